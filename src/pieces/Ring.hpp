// A ring, or an arc of one, that starts at the top and runs clockwise. `sweep` is the drawn part of
// the circle, `dashes` above 0 cuts it into as many strokes.
#pragma once

#include "RasterItem.hpp"

namespace vellix {

class Ring : public vellix::RasterItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(qreal sweep MEMBER sweep_ WRITE setSweep NOTIFY shapeChanged)
  Q_PROPERTY(qreal thickness MEMBER thickness_ WRITE setThickness NOTIFY shapeChanged)
  Q_PROPERTY(int dashes MEMBER dashes_ WRITE setDashes NOTIFY shapeChanged)

 public:
  explicit Ring(QQuickItem* parent = nullptr) : RasterItem(parent) {}

  void setSweep(qreal sweep) { change(sweep_, sweep); }
  void setThickness(qreal thickness) { change(thickness_, thickness); }
  void setDashes(int dashes) { change(dashes_, dashes); }

 signals:
  void shapeChanged();

 protected:
  QString drawingKey() const override;
  void draw(QPainter& painter, const QRectF& rect) const override;

 private:
  template <class T>
  void change(T& member, T value) {
    if (member == value) return;
    member = value;
    polish();
    emit shapeChanged();
  }

  qreal sweep_ = 1;
  qreal thickness_ = 1.5;
  int dashes_ = 0;
};

}  // namespace vellix
