// A thread on which a bus is spoken to, for that may block. Made and ended on the main thread.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

class QThread;

namespace vellix {

class BusThread {
 public:
  // The speaker is at home on the thread from now on, and goes with it; `begin` is called there.
  BusThread(const QString& name, QObject* speaker, std::function<void()> begin);
  // Waits for half a second at most. A thread that hangs on the bus is left behind.
  ~BusThread();
  BusThread(const BusThread&) = delete;
  BusThread& operator=(const BusThread&) = delete;

 private:
  QThread* thread_;
};

}  // namespace vellix
