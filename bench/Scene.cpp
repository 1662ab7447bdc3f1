#include "Scene.hpp"

#include <QCoreApplication>
#include <QTimer>

#include "measure.hpp"

namespace vellix::bench {

bool waitUntil(const std::function<bool()>& holds, int limit, int tick) {
  const double end = wallTime() + limit;
  QTimer wake;
  wake.start(tick > 0 ? tick : limit);
  while (!holds()) {
    if (wallTime() >= end) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
  return true;
}

QQuickItem* findItem(QQuickItem* under, const std::function<bool(QQuickItem*)>& wanted) {
  for (QQuickItem* child : under->childItems()) {
    if (wanted(child)) return child;
    if (QQuickItem* found = findItem(child, wanted)) return found;
  }
  return nullptr;
}

Frames::Frames(QQuickWindow* window) {
  connect(window, &QQuickWindow::frameSwapped, this, [this] {
    ++count_;
    lastAt_ = wallTime();
    if (onFrame) onFrame();
  });
}

bool Frames::settle(int quiet) {
  const double start = wallTime();
  return waitUntil([&] { return wallTime() - std::max(start, lastAt_) >= quiet; }, 20'000, 20);
}

}  // namespace vellix::bench
