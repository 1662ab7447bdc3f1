// What the bus itself knows.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

namespace vellix {

// Asks the bus by the name of one of its methods, and blocks until it answers, for two seconds at
// most. An error message when it does not.
QDBusMessage askBus(const QDBusConnection& bus, const QString& question, const QVariantList& of);

}  // namespace vellix
