// An item that shows an image of the device's own pixels, on the device's own pixels: one that has
// as many as its place is painted as it is, sharp and at the cost of a copy.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QImage>
#include <QQuickItem>

namespace vellix {

class PictureItem : public QQuickItem {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  explicit PictureItem(QQuickItem* parent = nullptr);

 protected:
  qreal deviceScale() const;  // the device's pixels to a logical one
  QSize deviceSize() const;   // of the item, in whole pixels of the device
  // What is painted from the next frame on: a part of the image at a place in the item, in the
  // device's pixels, or a plain ground all over the item.
  void showImage(const QImage& image, const QRectF& part, const QRect& place);
  void showGround(const QColor& colour);

  // Another size, another window or another scale; every class has its own answer.
  virtual void resized() = 0;
  // A frame is about to be painted.
  virtual void framed() {}
  // Whether any of it lies in the window and is not cut off.
  bool isInSight() const;

  void geometryChange(const QRectF& now, const QRectF& before) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  void noteOrigin();
  void realign();
  QRectF onGrid(const QRect& place) const;

  QImage image_;
  QRectF part_;
  QRect place_;
  QColor ground_;
  bool fresh_ = false;  // image_ is not in the texture yet
  QPointF origin_;      // in the scene, when last the item was neither turned nor scaled
  QPointF painted_;     // the origin that the last frame was laid out for
  QMetaObject::Connection aligning_;
};

}  // namespace vellix
