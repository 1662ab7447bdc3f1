// The settings portal, read and watched on the thread that this lives on.
#pragma once

#include <QDBusVariant>
#include <QMap>
#include <QObject>
#include <QVariantMap>

#include "platform/ports/look.hpp"

class QDBusPendingCallWatcher;

namespace vellix {

class PortalSettings : public QObject {
  Q_OBJECT

 public:
  ~PortalSettings() override;

  // Connects, which may block, asks for all settings and watches them from then on.
  // An empty address is that of the session bus.
  void start(const QString& busAddress);

 signals:
  void told(const vellix::Look& look);

 private slots:
  void setOne(const QString& space, const QString& key, const QDBusVariant& value);

 private:
  void readAll();
  void take(QDBusPendingCallWatcher* call);

  QMap<QString, QVariantMap> settings_;  // by namespace, then key
};

}  // namespace vellix
