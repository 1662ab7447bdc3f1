#include "platform/linux/PortalLook.hpp"

#include "platform/linux/PortalSettings.hpp"

namespace vellix {

PortalLook::PortalLook(const QString& busAddress) {
  auto* settings = new PortalSettings;
  connect(settings, &PortalSettings::told, this, &PortalLook::take);
  thread_.emplace("look", settings, [=] { settings->start(busAddress); });
}

void PortalLook::take(const Look& look) {
  if (look == look_) return;
  look_ = look;
  emit changed();
}

}  // namespace vellix
