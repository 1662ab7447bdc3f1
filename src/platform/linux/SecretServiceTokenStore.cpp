#include "platform/linux/SecretServiceTokenStore.hpp"

#include <QCoreApplication>
#include <utility>

namespace vellix {

struct SecretServiceTokenStore::State : std::enable_shared_from_this<State> {
  explicit State(int jobLimit) : limit(jobLimit) {}

  const int limit;  // ms
  std::optional<std::string> token;
  bool written = false;  // since the start: what priming brings is out of date
  bool busy = false;
  std::deque<KeychainJob> jobs;
  std::vector<Resolver<>> settling;

  void write(KeychainJob job) {
    written = true;
    jobs.push_back(std::move(job));
    if (!busy) next();
  }

  void next() {
    busy = !jobs.empty();
    if (!busy) {
      for (const auto& resolver : std::exchange(settling, {})) resolver();
      return;
    }
    const KeychainJob job = std::move(jobs.front());
    jobs.pop_front();
    KeychainThread::instance().run(
        job, limit, [state = shared_from_this()](const std::optional<QString>&) { state->next(); });
  }
};

SecretServiceTokenStore::SecretServiceTokenStore(int jobLimit)
    : state_(std::make_shared<State>(jobLimit)) {}

void SecretServiceTokenStore::prime(int limit, std::function<void()> done) {
  KeychainThread::instance().run(
      {.kind = KeychainJob::Kind::read}, limit,
      [state = state_, done = std::move(done)](const std::optional<QString>& secret) {
        if (secret && !secret->isEmpty() && !state->written) state->token = secret->toStdString();
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
