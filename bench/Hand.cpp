#include "Hand.hpp"

#include <QCoreApplication>
#include <QWheelEvent>

#include "measure.hpp"
#include "pieces/Sight.hpp"

// Qt's own way in for what a test does.
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button,
                                      QEvent::Type type, Qt::KeyboardModifiers mods, int timestamp);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key,
                                    Qt::KeyboardModifiers modifiers, const QString& text,
                                    bool repeats, ushort count);

namespace vellix::bench {
namespace {

constexpr qint64 kLook = 1'000;  // ms, longer than any press is mistrusted for
constexpr qint64 kTurn = 16;     // ms, from one turn of the wheel to the next
constexpr int kNotch = 120;

qint64 looked = 0;

qint64 clockNow() { return static_cast<qint64>(wallTime()) + looked; }

}  // namespace

Hand::Hand(QQuickWindow* window) : window_(window) { Sight::clock = clockNow; }

void Hand::look() { looked += kLook; }

void Hand::mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
  qt_handleMouseEvent(window_, at_, window_->mapToGlobal(at_), held, button, type, {},
                      static_cast<int>(clockNow()));
}

void Hand::moveTo(QQuickItem* item) {
  at_ = item->mapToScene(item->boundingRect().center());
  mouse(QEvent::MouseMove, Qt::NoButton, Qt::NoButton);
}

void Hand::press() {
  mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
  mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
}

void Hand::key(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    qt_handleKeyEvent(window_, type, key, modifiers, text, false, 1);
  }
}

void Hand::wheel(QQuickItem* over, int notches) {
  looked += kTurn;
  const QPointF at = over->mapToScene(over->boundingRect().center());
  QWheelEvent event(at, window_->mapToGlobal(at), {}, {0, -notches * kNotch}, Qt::NoButton, {},
                    Qt::NoScrollPhase, false);
  event.setTimestamp(static_cast<quint64>(clockNow()));
  QCoreApplication::sendEvent(window_, &event);
}

bool isA(const QQuickItem* item, QByteArrayView type) {
  const QByteArrayView name = item->metaObject()->className();
  return name.startsWith(type) && (name.size() == type.size() || name[type.size()] == '_');
}

bool inSight(const QQuickItem* item) {
  if (!item->isVisible() || !item->isEnabled() || item->width() <= 0) return false;
  const QPointF middle = item->mapToScene(item->boundingRect().center());
  for (const QQuickItem* at = item->parentItem(); at; at = at->parentItem()) {
    const bool cuts = at->clip() || !at->parentItem();
    if (cuts && !at->contains(at->mapFromScene(middle))) return false;
  }
  return true;
}

}  // namespace vellix::bench
