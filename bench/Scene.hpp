// Waiting for a window, and looking around in it. Main thread.
#pragma once

#include <QQuickItem>
#include <QQuickWindow>
#include <functional>

namespace vellix::bench {

// Runs the event loop until it holds; false after `limit` milliseconds. It is looked at after
// every turn with an event, and every `tick` milliseconds where one is given.
bool waitUntil(const std::function<bool()>& holds, int limit = 20'000, int tick = 0);

// The first item under this one that is wanted; null when there is none.
QQuickItem* findItem(QQuickItem* under, const std::function<bool(QQuickItem*)>& wanted);

// Counts a window's painted frames from its making on. The window must outlive it.
class Frames : public QObject {
 public:
  explicit Frames(QQuickWindow* window);
  int count() const { return count_; }
  double lastAt() const { return lastAt_; }  // on wallTime's clock
  // Called with every frame, right after it was painted.
  std::function<void()> onFrame;
  // Waits until none was painted for so many milliseconds; false when that never happens.
  bool settle(int quiet = 400);

 private:
  int count_ = 0;
  double lastAt_ = 0;
};

}  // namespace vellix::bench
