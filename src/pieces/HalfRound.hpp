// Half a disc: the left half, flat on the right, or the right half when mirrored.
#pragma once

#include "RasterItem.hpp"

namespace vellix {

class HalfRound : public vellix::RasterItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(bool mirrored READ mirrored WRITE setMirrored NOTIFY mirroredChanged)

 public:
  explicit HalfRound(QQuickItem* parent = nullptr) : RasterItem(parent) {}

  bool mirrored() const { return mirrored_; }
  void setMirrored(bool mirrored);

 signals:
  void mirroredChanged();

 protected:
  QString drawingKey() const override { return QLatin1String(mirrored_ ? "right" : "left"); }
  void draw(QPainter& painter, const QRectF& rect) const override;

 private:
  bool mirrored_ = false;
};

}  // namespace vellix
