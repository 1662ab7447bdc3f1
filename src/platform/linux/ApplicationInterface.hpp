// The methods of org.freedesktop.Application, as the bus calls them.
#pragma once

#include <QDBusAbstractAdaptor>
#include <QVariantList>
#include <QVariantMap>

#include "platform/linux/DesktopApplication.hpp"

namespace vellix {

class ApplicationInterface : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
  explicit ApplicationInterface(DesktopApplication* application)
      : QDBusAbstractAdaptor(application), application_(application) {}

 public slots:
  void Activate(const QVariantMap& platformData);
  void Open(const QStringList& uris, const QVariantMap& platformData);
  // The desktop entry names no actions.
  void ActivateAction(const QString& name, const QVariantList& parameter,
                      const QVariantMap& platformData);

 private:
  DesktopApplication* application_;
};

}  // namespace vellix
