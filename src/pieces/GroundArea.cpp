#include "GroundArea.hpp"

#include <QCursor>

namespace vellix {

GroundArea::GroundArea(QQuickItem* parent) : QQuickItem(parent) {
  setAcceptedMouseButtons(Qt::AllButtons);
  setAcceptTouchEvents(true);
  setAcceptHoverEvents(true);
  setCursor(Qt::ArrowCursor);
}

// A touchpad's pinch has no handler of its own.
bool GroundArea::event(QEvent* event) {
  if (event->type() != QEvent::NativeGesture) return QQuickItem::event(event);
  event->accept();
  return true;
}

// Held, so that no handler of what lies behind takes them over.
void GroundArea::mousePressEvent(QMouseEvent* event) {
  setKeepMouseGrab(true);
  event->accept();
  emit struck();
}

void GroundArea::touchEvent(QTouchEvent* event) {
  setKeepTouchGrab(true);
  event->accept();
}

void GroundArea::wheelEvent(QWheelEvent* event) { event->accept(); }

void GroundArea::hoverEnterEvent(QHoverEvent* event) { event->accept(); }

void GroundArea::hoverMoveEvent(QHoverEvent* event) { event->accept(); }

void GroundArea::mouseUngrabEvent() { setKeepMouseGrab(false); }

void GroundArea::touchUngrabEvent() { setKeepTouchGrab(false); }

}  // namespace vellix
