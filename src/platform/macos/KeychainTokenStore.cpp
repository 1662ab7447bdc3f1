#include "platform/macos/KeychainTokenStore.hpp"

#include <qt6keychain/keychain.h>

#include <QCoreApplication>
#include <QStringDecoder>
#include <deque>
#include <utility>
#include <vector>

namespace vellix {
namespace {

using namespace Qt::StringLiterals;

const auto kAccount = u"session"_s;

void start(QKeychain::Job* job, std::function<void()> ended) {
  job->setAutoDelete(false);
  job->setKey(kAccount);
  // In a later turn, wherever the job is at home when it ends.
  QObject::connect(
      job, &QKeychain::Job::finished, job,
      [job, ended = std::move(ended)] {
        job->deleteLater();
        ended();
      },
      Qt::QueuedConnection);
  job->start();
}

std::optional<std::string> tokenIn(const QKeychain::ReadPasswordJob& job) {
  if (job.error() != QKeychain::NoError) return std::nullopt;
  const QByteArray bytes = job.binaryData();
  QStringDecoder decoder{QStringDecoder::Utf8};
  const QString text = decoder(bytes);
  if (text.isEmpty() || decoder.hasError()) return std::nullopt;
  return bytes.toStdString();
}

}  // namespace

struct KeychainTokenStore::State : std::enable_shared_from_this<State> {
  using Wish = std::optional<std::string>;  // what is to be kept; none to keep nothing

  explicit State(std::string name) : service(QString::fromStdString(name)) {}

  const QString service;
  std::optional<std::string> token;
  bool busy = false;
  std::deque<Wish> wishes;
  std::vector<Resolver<>> settling;

  void write(Wish wish) {
    token = wish;
    wishes.push_back(std::move(wish));
    if (!busy) next();
  }

  void next() {
    busy = !wishes.empty();
    if (!busy) {
      for (const auto& resolver : std::exchange(settling, {})) resolver();
      return;
    }
    const Wish wish = std::move(wishes.front());
    wishes.pop_front();
    start(jobFor(wish), [state = shared_from_this()] { state->next(); });
  }

  QKeychain::Job* jobFor(const Wish& wish) const {
    if (!wish) return new QKeychain::DeletePasswordJob(service);
    auto* job = new QKeychain::WritePasswordJob(service);
    job->setTextData(QString::fromStdString(*wish));
    return job;
  }
};

KeychainTokenStore::KeychainTokenStore(std::string service)
    : state_(std::make_shared<State>(std::move(service))) {}

void KeychainTokenStore::prime(std::function<void()> done) {
  auto* job = new QKeychain::ReadPasswordJob(state_->service);
  start(job, [job, state = state_, done = std::move(done)] {
    state->token = tokenIn(*job);
    done();
  });
}

std::optional<std::string> KeychainTokenStore::read() { return state_->token; }

void KeychainTokenStore::remove() { state_->write(std::nullopt); }

void KeychainTokenStore::add(const std::string& token) { state_->write(token); }

Pending<> KeychainTokenStore::settled() {
  const Resolver<> resolver;
  if (state_->busy) {
    state_->settling.push_back(resolver);
  } else {
    QMetaObject::invokeMethod(qApp, [resolver] { resolver(); }, Qt::QueuedConnection);
  }
  return resolver.pending();
}

}  // namespace vellix
