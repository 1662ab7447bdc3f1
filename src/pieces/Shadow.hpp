// The soft shadow under a float: place it behind, over the same rectangle. It reaches `blur` beyond
// the item on every side and lies `drop` lower. Lengths are logical pixels.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QImage>
#include <QQuickItem>

namespace vellix {

class Shadow : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY looksChanged)
  Q_PROPERTY(qreal radius MEMBER radius_ NOTIFY looksChanged)
  Q_PROPERTY(qreal blur MEMBER blur_ NOTIFY looksChanged)
  Q_PROPERTY(qreal drop MEMBER drop_ NOTIFY looksChanged)

 public:
  explicit Shadow(QQuickItem* parent = nullptr);

 signals:
  void looksChanged();

 protected:
  void updatePolish() override;
  void geometryChange(const QRectF& now, const QRectF& before) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  qreal corner() const;

  QColor color_ = QColor(0, 0, 0, 46);
  qreal radius_ = 16;
  qreal blur_ = 24;
  qreal drop_ = 8;
  QImage image_;
};

}  // namespace vellix
