// The four-colour letter mark.
#pragma once

#include "RasterItem.hpp"

namespace vellix {

class GoogleG : public vellix::RasterItem {
  Q_OBJECT
  QML_ELEMENT

 public:
  explicit GoogleG(QQuickItem* parent = nullptr) : RasterItem(parent) { setImplicitSize(18, 18); }

 protected:
  QString drawingKey() const override { return QStringLiteral("g"); }
  void draw(QPainter& painter, const QRectF& rect) const override;
};

}  // namespace vellix
