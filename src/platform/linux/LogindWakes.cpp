#include "platform/linux/LogindWakes.hpp"

#include <QDeadlineTimer>
#include <QThread>

#include "platform/linux/LogindSleep.hpp"

namespace vellix {
namespace {

constexpr int kPatienceAtEnd = 500;  // ms

}  // namespace

LogindWakes::LogindWakes(const QString& busAddress) : thread_(new QThread) {
  auto* sleep = new LogindSleep;
  sleep->moveToThread(thread_);
  thread_->setObjectName("wakes");
  connect(thread_, &QThread::started, sleep, [=] { sleep->start(busAddress); });
  connect(thread_, &QThread::finished, sleep, &QObject::deleteLater);
  connect(sleep, &LogindSleep::ended, this, [this] {
    if (woken_) woken_();
  });
  thread_->start();
}

// A thread that hangs on the bus is left behind.
LogindWakes::~LogindWakes() {
  thread_->quit();
  if (thread_->wait(QDeadlineTimer(kPatienceAtEnd))) delete thread_;
}

}  // namespace vellix
