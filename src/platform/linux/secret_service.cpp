#include "platform/linux/secret_service.hpp"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QMap>

#include "platform/linux/ask_bus.hpp"

namespace vellix {
namespace {

using namespace Qt::StringLiterals;
using Attributes = QMap<QString, QString>;

const auto kSecretsName = u"org.freedesktop.secrets"_s;
constexpr int kSearchLimit = 2'000;  // ms

// On a connection of its own: the program's is another thread's.
template <class Ask>
auto overBus(Ask ask) {
  const auto name = u"vellix-secrets"_s;
  const auto answer = ask(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name));
  QDBusConnection::disconnectFromBus(name);
  return answer;
}

SecretService lookOnBus(const QDBusConnection& bus) {
  if (!bus.isConnected()) return SecretService::absent;
  const auto owner = askBus(bus, u"NameHasOwner"_s, {kSecretsName});
  if (owner.type() != QDBusMessage::ReplyMessage) return SecretService::unknown;
  if (owner.arguments().value(0).toBool()) return SecretService::present;
  const auto names = askBus(bus, u"ListActivatableNames"_s, {});
  if (names.type() != QDBusMessage::ReplyMessage) return SecretService::unknown;
  const bool startable = names.arguments().value(0).toStringList().contains(kSecretsName);
  return startable ? SecretService::present : SecretService::absent;
}

}  // namespace

SecretService lookForSecretService() { return overBus(lookOnBus); }

bool nothingIsLocked(const QString& service, const QString& account) {
  qDBusRegisterMetaType<Attributes>();
  auto search =
      QDBusMessage::createMethodCall(kSecretsName, u"/org/freedesktop/secrets"_s,
                                     u"org.freedesktop.Secret.Service"_s, u"SearchItems"_s);
  // As the keychain's library names them.
  search << QVariant::fromValue(Attributes{{u"server"_s, service}, {u"user"_s, account}});
  const auto found = overBus([&search](const QDBusConnection& bus) {
    return bus.call(search, QDBus::Block, kSearchLimit);
  });
  // What is open comes first, and then what is locked.
  if (found.type() != QDBusMessage::ReplyMessage || found.arguments().size() != 2) return false;
  return qdbus_cast<QList<QDBusObjectPath>>(found.arguments().at(1)).isEmpty();
}

}  // namespace vellix
