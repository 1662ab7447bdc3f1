// A person at the window: the pointer and the keys, through the door that the window system has.
#pragma once

#include <QQuickItem>
#include <QQuickWindow>
#include <functional>

namespace vellix::bench {

// One in a process, main thread. Its clock is the one that presses are stamped by and judged by.
class Hand {
 public:
  explicit Hand(QQuickWindow* window);

  // The person has looked for a moment at what is there.
  static void look();
  void moveTo(QQuickItem* item);
  // Presses and lets go where the pointer is.
  void press();
  void key(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
  void wheel(QQuickItem* over, int notches);

 private:
  void mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held);

  QQuickWindow* window_;
  QPointF at_;
};

// Whether an item is of a QML type.
bool isA(const QQuickItem* item, QByteArrayView type);
// Whether its middle can be seen and pressed: shown, enabled, in the window and not cut off.
bool inSight(const QQuickItem* item);

}  // namespace vellix::bench
