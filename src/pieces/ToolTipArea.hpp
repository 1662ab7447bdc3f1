// Gives help to what is not pressed: lay it over the item and set `text`. It takes no presses.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>

namespace vellix {

class ToolTipArea : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)

 public:
  explicit ToolTipArea(QQuickItem* parent = nullptr);

  QString text() const { return text_; }
  void setText(const QString& text);

 signals:
  void textChanged();

 protected:
  void hoverEnterEvent(QHoverEvent* event) override;
  void hoverMoveEvent(QHoverEvent* event) override;
  void hoverLeaveEvent(QHoverEvent* event) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  QString text_;
};

}  // namespace vellix
