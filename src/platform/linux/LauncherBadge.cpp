#include "platform/linux/LauncherBadge.hpp"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>

namespace vellix {

void LauncherBadge::show(std::optional<std::int64_t> count) {
  if (count == count_) return;
  count_ = count;
  if (!launchers_) {
    // The name that whoever draws such counts takes.
    launchers_ = std::make_unique<QDBusServiceWatcher>(QStringLiteral("com.canonical.Unity"),
                                                       QDBusConnection::sessionBus(),
                                                       QDBusServiceWatcher::WatchForRegistration);
    QObject::connect(launchers_.get(), &QDBusServiceWatcher::serviceRegistered, launchers_.get(),
                     [this] { tell(); });
  }
  tell();
}

// The desktop entry's name tells the launcher which icon is meant.
void LauncherBadge::tell() const {
  auto signal = QDBusMessage::createSignal(QStringLiteral("/com/canonical/unity/launcherentry/1"),
                                           QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                           QStringLiteral("Update"));
  signal << QStringLiteral("application://%1.desktop").arg(QGuiApplication::desktopFileName())
         << QVariantMap{{QStringLiteral("count"), static_cast<qlonglong>(count_.value_or(0))},
                        {QStringLiteral("count-visible"), count_.has_value()}};
  QDBusConnection::sessionBus().send(signal);
}

}  // namespace vellix
