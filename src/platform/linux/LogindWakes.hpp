// The end of each sleep of the machine, as the login manager tells it on the system bus. A machine
// without either never tells. Main thread; the bus is spoken to on a thread of its own, for it may
// block.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

#include "platform/ports/wakes.hpp"

class QThread;

namespace vellix {

class LogindWakes : public QObject, public Wakes {
 public:
  // Begins to listen at once. An empty address is that of the system bus.
  explicit LogindWakes(const QString& busAddress = {});
  ~LogindWakes() override;
  LogindWakes(const LogindWakes&) = delete;
  LogindWakes& operator=(const LogindWakes&) = delete;

  void observe(std::function<void()> woken) override { woken_ = std::move(woken); }

 private:
  std::function<void()> woken_;
  QThread* thread_;
};

}  // namespace vellix
