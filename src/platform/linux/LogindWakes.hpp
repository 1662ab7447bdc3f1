// The end of each sleep of the machine, as the login manager tells it on the system bus. A machine
// without either never tells. Main thread; the bus is spoken to on a thread of its own, for it may
// block.
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <optional>
#include <utility>

#include "platform/linux/BusThread.hpp"
#include "platform/ports/wakes.hpp"

namespace vellix {

class LogindWakes : public QObject, public Wakes {
 public:
  // An empty address is that of the system bus.
  explicit LogindWakes(QString busAddress = {}) : busAddress_(std::move(busAddress)) {}

  // Begins to listen, the first time: until then nobody would be told.
  void observe(std::function<void()> woken) override;

 private:
  const QString busAddress_;
  std::function<void()> woken_;
  std::optional<BusThread> thread_;
};

}  // namespace vellix
