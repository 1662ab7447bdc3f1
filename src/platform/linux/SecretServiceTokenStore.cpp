#include "platform/linux/SecretServiceTokenStore.hpp"

#include <QCoreApplication>
#include <utility>

namespace vellix {

struct SecretServiceTokenStore::State : std::enable_shared_from_this<State> {
  using Then = std::function<void(const KeychainAnswer&)>;
  struct Errand {
    KeychainJob job;
    Then then;
  };

  State(int jobLimit, FileTokenStore file) : limit(jobLimit), left(std::move(file)) {}

  const int limit;      // ms
  FileTokenStore left;  // from a time without a keyring
  std::optional<std::string> token;
  bool written = false;  // since the start: what priming brings is out of date
  bool busy = false;
  std::deque<Errand> errands;
  std::vector<Resolver<>> settling;

  void prime(const KeychainAnswer& answer) {
    // Of a keyring that did not answer nobody knows whether the file is older.
    if (!answer.sure || written) return;
    if (answer.secret && !answer.secret->isEmpty()) {
      token = answer.secret->toStdString();
      left.remove();
    } else if (left.read()) {
      token = left.read();
      enqueue({KeychainJob::Kind::write, QString::fromStdString(*token)},
              [this](const KeychainAnswer& kept) {
                if (kept.sure) left.remove();
              });
    }
  }

  void write(KeychainJob job) {
    written = true;
    left.remove();
    enqueue(std::move(job), {});
  }

  void enqueue(KeychainJob job, Then then) {
    errands.push_back({std::move(job), std::move(then)});
    if (!busy) next();
  }

  void next() {
    busy = !errands.empty();
    if (!busy) {
      for (const auto& resolver : std::exchange(settling, {})) resolver();
      return;
    }
    const Errand errand = std::move(errands.front());
    errands.pop_front();
    KeychainThread::instance().run(
        errand.job, limit,
        [state = shared_from_this(), then = errand.then](const KeychainAnswer& answer) {
          if (then) then(answer);
          state->next();
        });
  }
};

SecretServiceTokenStore::SecretServiceTokenStore(int jobLimit, FileTokenStore left)
    : state_(std::make_shared<State>(jobLimit, std::move(left))) {}

void SecretServiceTokenStore::prime(int limit, std::function<void()> done) {
  KeychainThread::instance().run(
      {.kind = KeychainJob::Kind::read}, limit,
      [state = state_, done = std::move(done)](const KeychainAnswer& answer) {
        state->prime(answer);
        done();
      });
}

std::optional<std::string> SecretServiceTokenStore::read() { return state_->token; }

void SecretServiceTokenStore::remove() {
  state_->token.reset();
  state_->write({.kind = KeychainJob::Kind::remove});
}

void SecretServiceTokenStore::add(const std::string& token) {
  state_->token = token;
  state_->write({KeychainJob::Kind::write, QString::fromStdString(token)});
}

Pending<> SecretServiceTokenStore::settled() {
  const Resolver<> resolver;
  if (state_->busy) {
    state_->settling.push_back(resolver);
  } else {
    QMetaObject::invokeMethod(qApp, [resolver] { resolver(); }, Qt::QueuedConnection);
  }
  return resolver.pending();
}

}  // namespace vellix
