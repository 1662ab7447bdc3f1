#include "platform/linux/LauncherBadge.hpp"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>

namespace vellix {

// The desktop entry's name tells the launcher which icon is meant.
void LauncherBadge::show(std::optional<std::int64_t> count) {
  if (count == told_) return;
  auto signal = QDBusMessage::createSignal(QStringLiteral("/com/canonical/unity/launcherentry/1"),
                                           QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                           QStringLiteral("Update"));
  signal << QStringLiteral("application://%1.desktop").arg(QGuiApplication::desktopFileName())
         << QVariantMap{{QStringLiteral("count"), static_cast<qlonglong>(count.value_or(0))},
                        {QStringLiteral("count-visible"), count.has_value()}};
  if (QDBusConnection::sessionBus().send(signal)) told_ = count;
}

}  // namespace vellix
