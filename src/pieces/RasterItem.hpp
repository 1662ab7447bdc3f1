// An item that shows one small drawing, crisp on the device's pixels. Equal drawings are made once
// for the whole program. Everything but the texture upload happens on the main thread.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QImage>

#include "pictures/GridItem.hpp"

class QPainter;

namespace vellix {

class RasterItem : public vellix::GridItem {
  Q_OBJECT
  QML_ANONYMOUS
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

 public:
  explicit RasterItem(QQuickItem* parent = nullptr);

  QColor color() const { return color_; }
  void setColor(const QColor& color);

 signals:
  void colorChanged();

 protected:
  // Tells one drawing from all others of its class and size; empty draws nothing.
  virtual QString drawingKey() const = 0;
  // Where the drawing lies, in the item's coordinates.
  virtual QRectF drawingRect() const { return boundingRect(); }
  // Paints into `rect`, in logical pixels.
  virtual void draw(QPainter& painter, const QRectF& rect) const = 0;

  void resized() override { polish(); }
  void updatePolish() override;
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  QRectF imageRect() const;

  QColor color_;
  QImage image_;
};

}  // namespace vellix
