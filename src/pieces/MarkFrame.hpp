// The frame of a mark on a picture, along the item's edge. Lengths are logical pixels.
#pragma once

#include <QtQml/qqmlregistration.h>

#include "pictures/GridItem.hpp"
#include "pieces/frame_drawing.hpp"

namespace vellix {

class MarkFrame : public vellix::GridItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY looksChanged)
  Q_PROPERTY(qreal line MEMBER line_ NOTIFY looksChanged)
  // About as long as a dash and the gap after it are, alike; 0 for a solid line.
  Q_PROPERTY(qreal dash MEMBER dash_ NOTIFY looksChanged)
  Q_PROPERTY(qreal halo MEMBER halo_ NOTIFY looksChanged)  // the lighter line; 0 for none
  Q_PROPERTY(qreal haloOpacity MEMBER haloOpacity_ NOTIFY looksChanged)
  Q_PROPERTY(qreal radius MEMBER radius_ NOTIFY looksChanged)
  Q_PROPERTY(qreal fill MEMBER fill_ NOTIFY looksChanged)  // opacity of the colour inside

 public:
  explicit MarkFrame(QQuickItem* parent = nullptr);

 signals:
  void looksChanged();

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  QColor color_ = Qt::black;
  qreal line_ = 1.6;
  qreal dash_ = 0;
  qreal halo_ = 3;
  qreal haloOpacity_ = 0.9;
  qreal radius_ = 3;
  qreal fill_ = 0;
};

}  // namespace vellix
