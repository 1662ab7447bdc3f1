// A horizontal dotted rule, as wide as the item.
#pragma once

#include "RasterItem.hpp"

namespace vellix {

class DottedLine : public vellix::RasterItem {
  Q_OBJECT
  QML_ELEMENT

 public:
  explicit DottedLine(QQuickItem* parent = nullptr);

 protected:
  QString drawingKey() const override { return QStringLiteral("dots"); }
  void draw(QPainter& painter, const QRectF& rect) const override;
};

}  // namespace vellix
