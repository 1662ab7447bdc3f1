#include "platform/linux/PortalSettings.hpp"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

namespace vellix {
namespace {

using namespace Qt::StringLiterals;
using Settings = QMap<QString, QVariantMap>;

const auto kConnection = u"vellix-look"_s;
const auto kPortal = u"org.freedesktop.portal.Desktop"_s;
const auto kPath = u"/org/freedesktop/portal/desktop"_s;
const auto kInterface = u"org.freedesktop.portal.Settings"_s;
const auto kAppearance = u"org.freedesktop.appearance"_s;
const auto kDesktop = u"org.gnome.desktop.interface"_s;

constexpr int kDark = 1;
constexpr int kLight = 2;

Look lookOf(const Settings& settings) {
  const QVariantMap appearance = settings.value(kAppearance);
  const QVariantMap desktop = settings.value(kDesktop);
  const int scheme = appearance.value(u"color-scheme"_s).toInt();
  const QVariant animations = desktop.value(u"enable-animations"_s);
  const bool still = animations.isValid() && !animations.toBool();
  return {.scheme = scheme == kDark    ? Scheme::dark
                    : scheme == kLight ? Scheme::light
                                       : Scheme::unset,
          .reducedMotion = still || appearance.value(u"reduced-motion"_s).toInt() == 1};
}

// Some portals wrap a value once more than they should.
QVariant plain(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
}

}  // namespace

PortalSettings::~PortalSettings() {
  qDeleteAll(children());  // they hold the connection
  QDBusConnection::disconnectFromBus(kConnection);
}

void PortalSettings::start(const QString& address) {
  auto bus = address.isEmpty()
                 ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, kConnection)
                 : QDBusConnection::connectToBus(address, kConnection);
  if (!bus.isConnected()) return;
  // Without this QtDBus knows the slot's types only once a message has been through it, and would
  // not connect.
  qRegisterMetaType<QDBusVariant>();
  bus.connect(kPortal, kPath, kInterface, u"SettingChanged"_s, this,
              SLOT(setOne(QString, QString, QDBusVariant)));
  auto* watcher =
      new QDBusServiceWatcher(kPortal, bus, QDBusServiceWatcher::WatchForRegistration, this);
  connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &PortalSettings::readAll);
  readAll();
}

void PortalSettings::readAll() {
  auto call = QDBusMessage::createMethodCall(kPortal, kPath, kInterface, u"ReadAll"_s);
  call.setArguments({QStringList{kAppearance, kDesktop}});
  auto* watcher = new QDBusPendingCallWatcher(QDBusConnection(kConnection).asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, &PortalSettings::take);
}

void PortalSettings::take(QDBusPendingCallWatcher* call) {
  call->deleteLater();
  const QDBusMessage reply = call->reply();
  if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != u"a{sa{sv}}"_s) return;
  settings_ = qdbus_cast<Settings>(reply.arguments().constFirst());
  for (QVariantMap& space : settings_) {
    for (QVariant& value : space) value = plain(value);
  }
  emit told(lookOf(settings_));
}

void PortalSettings::setOne(const QString& space, const QString& key, const QDBusVariant& value) {
  settings_[space][key] = plain(value.variant());
  emit told(lookOf(settings_));
}

}  // namespace vellix
