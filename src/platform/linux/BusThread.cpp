#include "platform/linux/BusThread.hpp"

#include <QDeadlineTimer>
#include <QThread>
#include <utility>

namespace vellix {
namespace {

constexpr int kPatienceAtEnd = 500;  // ms

}  // namespace

BusThread::BusThread(const QString& name, QObject* speaker, std::function<void()> begin)
    : thread_(new QThread) {
  speaker->moveToThread(thread_);
  thread_->setObjectName(name);
  QObject::connect(thread_, &QThread::started, speaker, std::move(begin));
  QObject::connect(thread_, &QThread::finished, speaker, &QObject::deleteLater);
  thread_->start();
}

BusThread::~BusThread() {
  thread_->quit();
  if (thread_->wait(QDeadlineTimer(kPatienceAtEnd))) delete thread_;
}

}  // namespace vellix
