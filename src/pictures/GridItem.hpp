// An item whose content lies on the device's own pixels, wherever the item stands: what lies
// between two of them is blurred. It is painted anew when its size, window or scale is another, and
// when it comes to lie elsewhere between the pixels, also by what moves only its parent.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>

namespace vellix {

class GridItem : public QQuickItem {
  Q_OBJECT
  QML_ANONYMOUS

 public:
  explicit GridItem(QQuickItem* parent = nullptr);

 protected:
  qreal deviceScale() const;  // the device's pixels to a logical one
  // The corner of one of the device's pixels that is nearest to this place, both in the item's
  // coordinates. Good for the frame that is being painted.
  QPointF onGrid(QPointF at) const;

  // Another size, another window or another scale; every class has its own answer beside the paint.
  virtual void resized() {}
  // A frame is about to be painted.
  virtual void framed() {}

  void geometryChange(const QRectF& now, const QRectF& before) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  void realign();

  QPointF origin_;   // in the scene, when last the item was neither turned nor scaled
  QPointF painted_;  // the origin when it was last found to lie elsewhere between the pixels
  QMetaObject::Connection aligning_;
};

}  // namespace vellix
