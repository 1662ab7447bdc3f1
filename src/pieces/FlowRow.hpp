// A row of items that goes on in a new line where the next item does not fit, each centred on its
// line. What is invisible or has no size takes no place.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>

namespace vellix {

class FlowRow : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  // Between items and between lines, in logical pixels.
  Q_PROPERTY(qreal spacing READ spacing WRITE setSpacing NOTIFY spacingChanged)

 public:
  using QQuickItem::QQuickItem;

  qreal spacing() const { return spacing_; }
  void setSpacing(qreal spacing);

 signals:
  void spacingChanged();

 protected:
  void componentComplete() override;
  void geometryChange(const QRectF& now, const QRectF& before) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;
  void updatePolish() override;

 private:
  qreal spacing_ = 0;
};

}  // namespace vellix
