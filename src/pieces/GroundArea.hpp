// Takes all of a pointer that comes to it: the part of a Ground that a handler cannot be.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>

namespace vellix {

class GroundArea : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT

 public:
  explicit GroundArea(QQuickItem* parent = nullptr);

 signals:
  void struck();  // by a press of the pointer

 protected:
  bool event(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void touchEvent(QTouchEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void hoverEnterEvent(QHoverEvent* event) override;
  void hoverMoveEvent(QHoverEvent* event) override;
  void mouseUngrabEvent() override;
  void touchUngrabEvent() override;
};

}  // namespace vellix
