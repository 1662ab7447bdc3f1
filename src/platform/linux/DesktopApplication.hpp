// The program as the desktop knows it: one running instance, owner of a name on the session bus,
// which a second start and the desktop itself hand their requests to (org.freedesktop.Application).
#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QObject>
#include <functional>
#include <optional>
#include <vector>

#include "platform/qt/start_request.hpp"

namespace vellix {

// The name of the desktop entry and on the bus.
inline constexpr const char* kDesktopName = "example.tessarine.Vellix";

// What the desktop gave this process to come to the front with. Ask ahead of the QGuiApplication,
// which may take it away.
QByteArray givenActivationToken();

// Main thread.
class DesktopApplication : public QObject {
  Q_OBJECT

 public:
  // Does nothing yet. Without a bus it stays alone.
  explicit DesktopApplication(QDBusConnection bus = QDBusConnection::sessionBus(),
                              const QString& name = kDesktopName);
  ~DesktopApplication() override;

  // True when another instance has taken the request, and this process has nothing left to do.
  // Otherwise this is the instance that takes requests, as far as there is a bus. Asks the bus and
  // the other instance, and waits for them a few seconds at most.
  bool handOver(const StartRequest& request);

  // Called in later turns for each request, first for those that came before. May be set once.
  void listen(std::function<void(StartRequest)> told);

  // Lets the next start be the first again.
  void retire();

 private:
  friend class ApplicationInterface;
  enum class Outcome { taken, gone, failed };
  Outcome send(const StartRequest& request) const;
  std::optional<bool> ownName() const;
  void take(StartRequest request);

  QDBusConnection bus_;
  const QString name_;
  const QString path_;
  bool registered_ = false;
  std::vector<StartRequest> early_;
  std::function<void(StartRequest)> told_;
};

}  // namespace vellix
