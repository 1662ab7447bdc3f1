#include "platform/linux/ask_bus.hpp"

namespace vellix {
namespace {

using namespace Qt::StringLiterals;

constexpr int kBusLimit = 2'000;  // ms

}  // namespace

QDBusMessage askBus(const QDBusConnection& bus, const QString& question, const QVariantList& of) {
  QDBusMessage call = QDBusMessage::createMethodCall(
      u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, question);
  call.setArguments(of);
  return bus.call(call, QDBus::Block, kBusLimit);
}

}  // namespace vellix
