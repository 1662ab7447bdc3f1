// A bar of a chart: a part of its item's width from the left or, `upright`, of its height from the
// foot. Its edges lie on the device's pixels. `round` rounds both ends; only the head of an upright
// one. Lengths are logical pixels.
#pragma once

#include "pieces/RasterItem.hpp"

namespace vellix {

class Bar : public vellix::RasterItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(qreal fraction MEMBER fraction_ WRITE setFraction NOTIFY shapeChanged)
  Q_PROPERTY(qreal least MEMBER least_ WRITE setLeast NOTIFY shapeChanged)  // however little it is
  Q_PROPERTY(qreal round MEMBER round_ WRITE setRound NOTIFY shapeChanged)
  Q_PROPERTY(bool upright MEMBER upright_ WRITE setUpright NOTIFY shapeChanged)

 public:
  explicit Bar(QQuickItem* parent = nullptr) : RasterItem(parent) {}

  void setFraction(qreal fraction) { change(fraction_, fraction); }
  void setLeast(qreal least) { change(least_, least); }
  void setRound(qreal round) { change(round_, round); }
  void setUpright(bool upright) { change(upright_, upright); }

 signals:
  void shapeChanged();

 protected:
  QString drawingKey() const override;
  QRectF drawingRect() const override;
  void draw(QPainter& painter, const QRectF& rect) const override;

 private:
  template <class T>
  void change(T& member, T value) {
    if (member == value) return;
    member = value;
    polish();
    emit shapeChanged();
  }
  qreal length() const;

  qreal fraction_ = 0;
  qreal least_ = 0;
  qreal round_ = 0;
  bool upright_ = false;
};

}  // namespace vellix
