// An item that shows an image of the device's own pixels, on the device's own pixels: one that has
// as many as its place is painted as it is, sharp and at the cost of a copy.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QImage>

#include "pictures/GridItem.hpp"

namespace vellix {

class PictureItem : public vellix::GridItem {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  explicit PictureItem(QQuickItem* parent = nullptr);

 protected:
  QSize deviceSize() const;  // of the item, in whole pixels of the device
  // What is painted from the next frame on: a part of the image at a place in the item, in the
  // device's pixels, or a plain ground all over the item.
  void showImage(const QImage& image, const QRectF& part, const QRect& place);
  void showGround(const QColor& colour);

  // Whether any of it lies in the window and is not cut off.
  bool isInSight() const;

  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  QRectF inItem(const QRect& place) const;

  QImage image_;
  QRectF part_;
  QRect place_;
  QColor ground_;
  bool fresh_ = false;  // image_ is not in the texture yet
};

}  // namespace vellix
