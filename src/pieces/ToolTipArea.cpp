#include "ToolTipArea.hpp"

#include "HelpTip.hpp"

namespace vellix {

ToolTipArea::ToolTipArea(QQuickItem* parent) : QQuickItem(parent) {}

void ToolTipArea::setText(const QString& text) {
  if (text == text_) return;
  text_ = text;
  setAcceptHoverEvents(!text_.isEmpty());
  HelpTip::reword(this, text_);
  emit textChanged();
}

void ToolTipArea::hoverEnterEvent(QHoverEvent* event) {
  HelpTip::show(this, text_);
  event->ignore();
}

void ToolTipArea::hoverMoveEvent(QHoverEvent* event) { event->ignore(); }

void ToolTipArea::hoverLeaveEvent(QHoverEvent* event) {
  HelpTip::hide(this);
  event->ignore();
}

void ToolTipArea::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change == ItemVisibleHasChanged && !data.boolValue) HelpTip::hide(this);
}

}  // namespace vellix
