#include "platform/linux/PortalLook.hpp"

#include <QDeadlineTimer>
#include <QThread>

#include "platform/linux/PortalSettings.hpp"

namespace vellix {
namespace {

constexpr int kPatienceAtEnd = 500;  // ms

}  // namespace

PortalLook::PortalLook(const QString& busAddress) : thread_(new QThread) {
  auto* settings = new PortalSettings;
  settings->moveToThread(thread_);
  thread_->setObjectName("look");
  connect(thread_, &QThread::started, settings, [=] { settings->start(busAddress); });
  connect(thread_, &QThread::finished, settings, &QObject::deleteLater);
  connect(settings, &PortalSettings::told, this, &PortalLook::take);
  thread_->start();
}

// A thread that hangs on the bus is left behind.
PortalLook::~PortalLook() {
  thread_->quit();
  if (thread_->wait(QDeadlineTimer(kPatienceAtEnd))) delete thread_;
}

void PortalLook::take(const Look& look) {
  if (look == look_) return;
  look_ = look;
  emit changed();
}

}  // namespace vellix
