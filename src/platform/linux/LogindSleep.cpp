#include "platform/linux/LogindSleep.hpp"

#include <QDBusConnection>

namespace vellix {
namespace {

using namespace Qt::StringLiterals;

const auto kConnection = u"vellix-wakes"_s;

}  // namespace

LogindSleep::~LogindSleep() { QDBusConnection::disconnectFromBus(kConnection); }

void LogindSleep::start(const QString& address) {
  auto bus = address.isEmpty()
                 ? QDBusConnection::connectToBus(QDBusConnection::SystemBus, kConnection)
                 : QDBusConnection::connectToBus(address, kConnection);
  if (!bus.isConnected()) return;
  bus.connect(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
              u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s, this, SLOT(prepare(bool)));
}

void LogindSleep::prepare(bool toSleep) {
  if (!toSleep) emit ended();
}

}  // namespace vellix
