// The desktop's look from the settings portal on the session bus, and every change of it. Without
// a bus or a portal it stays unset. Main thread; the bus is spoken to on a thread of its own, for
// it may block.
#pragma once

#include <QObject>
#include <QString>
#include <optional>

#include "platform/linux/BusThread.hpp"
#include "platform/ports/look.hpp"

namespace vellix {

class PortalLook : public QObject {
  Q_OBJECT

 public:
  // Asks at once; the answer comes in a later turn. An empty address is that of the session bus.
  explicit PortalLook(const QString& busAddress = {});

  const Look& look() const { return look_; }

 signals:
  void changed();

 private:
  void take(const Look& look);

  Look look_;
  std::optional<BusThread> thread_;
};

}  // namespace vellix
