// The creature, in one colour. `size` is its height in logical pixels; it is as wide as that makes
// it.
#pragma once

#include "jobs/critter.hpp"
#include "pieces/RasterItem.hpp"

namespace vellix {

class CritterDrawing : public vellix::RasterItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged)

 public:
  explicit CritterDrawing(QQuickItem* parent = nullptr);

  qreal size() const { return size_; }
  void setSize(qreal size);

  // How far it stands from its place, downwards.
  Q_INVOKABLE static qreal shift(bool busy, bool up) { return critterShift(busy, up); }

 signals:
  void sizeChanged();

 protected:
  QString drawingKey() const override { return QStringLiteral("critter"); }
  void draw(QPainter& painter, const QRectF& rect) const override;

 private:
  qreal size_ = 0;
};

}  // namespace vellix
