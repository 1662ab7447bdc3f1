#include "pieces/HelpOver.hpp"

namespace vellix {

void HelpOver::setText(const QString& text) {
  auto* item = qobject_cast<QQuickItem*>(parent());
  if (!item || text == this->text()) return;
  if (!area_) {
    area_ = new ToolTipArea(item);
    connect(item, &QQuickItem::widthChanged, this, &HelpOver::cover);
    connect(item, &QQuickItem::heightChanged, this, &HelpOver::cover);
    cover();
  }
  area_->setText(text);
  emit textChanged();
}

void HelpOver::cover() {
  if (area_) area_->setSize(area_->parentItem()->size());
}

}  // namespace vellix
