// What a window costs that nobody touches.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include "Scene.hpp"
#include "measure.hpp"
#include "report.hpp"

namespace vellix::bench {

// Counts the timers that go off on the main thread.
class TimerCount : public QObject {
 public:
  int count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Timer) ++count;
    return false;
  }
};

// Tells the memory now, and what happens in the next seconds.
inline void tellRest(Frames& frames, QCoreApplication& application, double seconds) {
  tellFigure("pss", proportionalMegabytes());
  tellFigure("rss", residentMegabytes());
  if (seconds <= 0) return;
  TimerCount timers;
  application.installEventFilter(&timers);
  const int painted = frames.count();
  const double cpu = cpuOfProcess();
  const long switches = voluntarySwitches();
  bool over = false;
  QTimer::singleShot(static_cast<int>(seconds * 1000), &application, [&over] { over = true; });
  waitUntil([&over] { return over; }, static_cast<int>(seconds * 1000) + 5000);
  tellFigure("switches", static_cast<double>(voluntarySwitches() - switches));
  tellFigure("cpu", cpuOfProcess() - cpu);
  tellFigure("frames", frames.count() - painted);
  tellFigure("timers", timers.count - 1);  // without the one that ends this
}

}  // namespace vellix::bench
