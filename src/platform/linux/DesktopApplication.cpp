#include "platform/linux/DesktopApplication.hpp"

#include <QDBusMessage>
#include <utility>

#include "platform/linux/ApplicationInterface.hpp"
#include "platform/linux/ask_bus.hpp"

namespace vellix {
namespace {

using namespace Qt::StringLiterals;

const auto kInterface = u"org.freedesktop.Application"_s;
constexpr int kOtherLimit = 5'000;  // ms, for the other instance
constexpr int kAttempts = 3;

// As the bus numbers them.
constexpr uint kDoNotQueue = 4;
constexpr uint kPrimaryOwner = 1;
constexpr uint kAlreadyOwner = 4;

}  // namespace

QByteArray givenActivationToken() {
  const QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
  return token.isEmpty() ? qgetenv("DESKTOP_STARTUP_ID") : token;
}

DesktopApplication::DesktopApplication(QDBusConnection bus, const QString& name)
    : bus_(std::move(bus)), name_(name), path_("/" + QString{name}.replace('.', '/')) {
  new ApplicationInterface(this);
}

DesktopApplication::~DesktopApplication() { retire(); }

bool DesktopApplication::handOver(const StartRequest& request) {
  if (!bus_.isConnected()) return false;
  // Ahead of the name, so that nobody finds the name without what is behind it.
  registered_ = bus_.registerObject(path_, this, QDBusConnection::ExportAdaptors);
  for (int attempt = 0; registered_ && attempt < kAttempts; ++attempt) {
    const auto owned = ownName();
    if (owned == true) return false;
    if (!owned) break;
    const auto outcome = send(request);
    if (outcome == Outcome::taken) return true;
    if (outcome == Outcome::failed) break;
  }
  retire();
  return false;
}

// None when the bus did not say.
std::optional<bool> DesktopApplication::ownName() const {
  const auto reply = askBus(bus_, u"RequestName"_s, {name_, kDoNotQueue});
  if (reply.type() != QDBusMessage::ReplyMessage) return std::nullopt;
  const uint owner = reply.arguments().value(0).toUInt();
  return owner == kPrimaryOwner || owner == kAlreadyOwner;
}

DesktopApplication::Outcome DesktopApplication::send(const StartRequest& request) const {
  const bool opens = !request.urls.isEmpty();
  QDBusMessage call =
      QDBusMessage::createMethodCall(name_, path_, kInterface, opens ? u"Open"_s : u"Activate"_s);
  QVariantMap platformData;
  if (!request.activationToken.isEmpty()) {
    platformData["activation-token"] = QString::fromUtf8(request.activationToken);
    platformData["desktop-startup-id"] = QString::fromUtf8(request.activationToken);
  }
  if (opens) call << request.urls;
  call << platformData;
  // One that has just ended is not to be started again: this process is there.
  call.setAutoStartService(false);
  const auto reply = bus_.call(call, QDBus::Block, kOtherLimit);
  if (reply.type() == QDBusMessage::ReplyMessage) return Outcome::taken;
  const QString error = reply.errorName();
  const bool gone = error == u"org.freedesktop.DBus.Error.ServiceUnknown"_s ||
                    error == u"org.freedesktop.DBus.Error.NameHasNoOwner"_s ||
                    error == u"org.freedesktop.DBus.Error.UnknownObject"_s;
  return gone ? Outcome::gone : Outcome::failed;
}

void DesktopApplication::listen(std::function<void(StartRequest)> told) {
  told_ = std::move(told);
  for (auto& request : std::exchange(early_, {})) take(std::move(request));
}

void DesktopApplication::take(StartRequest request) {
  if (!told_) {
    early_.push_back(std::move(request));
    return;
  }
  // In a turn of its own: whoever asked has its answer first.
  QMetaObject::invokeMethod(this, [this, request] { told_(request); }, Qt::QueuedConnection);
}

void DesktopApplication::retire() {
  if (!registered_) return;
  registered_ = false;
  askBus(bus_, u"ReleaseName"_s, {name_});
  bus_.unregisterObject(path_);
}

}  // namespace vellix
