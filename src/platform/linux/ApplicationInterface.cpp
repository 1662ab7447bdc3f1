#include "platform/linux/ApplicationInterface.hpp"

namespace vellix {
namespace {

QByteArray tokenIn(const QVariantMap& platformData) {
  for (const char* key : {"activation-token", "desktop-startup-id"}) {
    const QString token = platformData.value(QLatin1String(key)).toString();
    if (!token.isEmpty()) return token.toUtf8();
  }
  return {};
}

}  // namespace

void ApplicationInterface::Activate(const QVariantMap& platformData) {
  application_->take({.urls = {}, .activationToken = tokenIn(platformData)});
}

void ApplicationInterface::Open(const QStringList& uris, const QVariantMap& platformData) {
  application_->take({.urls = uris, .activationToken = tokenIn(platformData)});
}

void ApplicationInterface::ActivateAction(const QString& /*name*/,
                                          const QVariantList& /*parameter*/,
                                          const QVariantMap& platformData) {
  Activate(platformData);
}

}  // namespace vellix
