#include "platform/linux/KeychainThread.hpp"

#include <qt6keychain/keychain.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <utility>

namespace vellix {
namespace {

using namespace Qt::StringLiterals;

const auto kService = u"com.rennyvale.Sorel"_s;
const auto kAccount = u"session"_s;
constexpr int kPatienceAtEnd = 500;  // ms

QKeychain::Job* makeJob(const KeychainJob& job) {
  switch (job.kind) {
    case KeychainJob::Kind::write: {
      auto* write = new QKeychain::WritePasswordJob(kService);
      write->setTextData(job.secret);
      return write;
    }
    case KeychainJob::Kind::remove:
      return new QKeychain::DeletePasswordJob(kService);
    case KeychainJob::Kind::read:
      break;
  }
  return new QKeychain::ReadPasswordJob(kService);
}

KeychainAnswer answerOf(QKeychain::Job* job) {
  const auto* read = qobject_cast<QKeychain::ReadPasswordJob*>(job);
  const bool done = job->error() == QKeychain::NoError;
  const bool none = job->error() == QKeychain::EntryNotFound;
  KeychainAnswer answer{.sure = done || (none && nothingIsLocked(kService, kAccount))};
  if (read && done) answer.secret = read->textData();
  return answer;
}

}  // namespace

KeychainThread& KeychainThread::instance() {
  static auto* const only = new KeychainThread;
  return *only;
}

KeychainThread::KeychainThread() : worker_(new QObject), thread_(new QThread) {
  worker_->moveToThread(thread_);
  thread_->setObjectName("keychain");
  thread_->start();
  qAddPostRoutine([] { instance().stop(); });
}

// A thread that hangs in the library is left behind.
void KeychainThread::stop() {
  calls_.clear();
  thread_->quit();
  thread_->wait(QDeadlineTimer(kPatienceAtEnd));
}

void KeychainThread::run(const KeychainJob& job, int limit,
                         std::function<void(const KeychainAnswer&)> done) {
  const auto id = expect(limit, [done = std::move(done)](void* value) {
    done(value ? *static_cast<KeychainAnswer*>(value) : KeychainAnswer{});
  });
  const auto start = [this, id, job] { startJob(id, job); };
  QMetaObject::invokeMethod(worker_, start, Qt::QueuedConnection);
}

void KeychainThread::startJob(std::int64_t id, const KeychainJob& job) {
  QKeychain::Job* running = makeJob(job);
  running->setAutoDelete(true);
  running->setInsecureFallback(false);
  running->setKey(kAccount);
  QObject::connect(running, &QKeychain::Job::finished, worker_,
                   [this, id](QKeychain::Job* ended) { tell(id, answerOf(ended)); });
  running->start();
}

void KeychainThread::findSecretService(int limit, std::function<void(SecretService)> done) {
  const auto id = expect(limit, [done = std::move(done)](void* value) {
    done(value ? *static_cast<SecretService*>(value) : SecretService::unknown);
  });
  const auto look = [this, id] { tell(id, lookForSecretService()); };
  QMetaObject::invokeMethod(worker_, look, Qt::QueuedConnection);
}

std::int64_t KeychainThread::expect(int limit, std::function<void(void*)> answer) {
  const auto id = ++lastId_;
  Call& call = calls_[id];
  call.answer = std::move(answer);
  call.limit = std::make_unique<QTimer>();
  call.limit->setSingleShot(true);
  QObject::connect(call.limit.get(), &QTimer::timeout, &home_, [this, id] { finish(id, nullptr); });
  call.limit->start(limit);
  return id;
}

template <class T>
void KeychainThread::tell(std::int64_t id, T value) {
  const auto deliver = [this, id, value]() mutable { finish(id, &value); };
  QMetaObject::invokeMethod(&home_, deliver, Qt::QueuedConnection);
}

void KeychainThread::finish(std::int64_t id, void* value) {
  const auto found = calls_.find(id);
  if (found == calls_.end()) return;
  Call call = std::move(found->second);
  calls_.erase(found);
  // This may be the timer's own call.
  call.limit->stop();
  call.limit.release()->deleteLater();
  call.answer(value);
}

}  // namespace vellix
