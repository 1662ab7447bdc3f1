#include "pieces/FlowRow.hpp"

#include "pieces/flow_row.hpp"

namespace vellix {

void FlowRow::setSpacing(qreal spacing) {
  if (spacing == spacing_) return;
  spacing_ = spacing;
  polish();
  emit spacingChanged();
}

void FlowRow::componentComplete() {
  QQuickItem::componentComplete();
  // At once, so that whoever is laid out by it finds its size.
  updatePolish();
}

void FlowRow::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  if (now.width() != before.width()) polish();
}

void FlowRow::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change == ItemChildAddedChange) {
    for (const auto signal :
         {&QQuickItem::widthChanged, &QQuickItem::heightChanged, &QQuickItem::visibleChanged}) {
      connect(data.item, signal, this, &QQuickItem::polish);
    }
    polish();
  } else if (change == ItemChildRemovedChange) {
    disconnect(data.item, nullptr, this, nullptr);
    polish();
  }
}

void FlowRow::updatePolish() {
  if (!isComponentComplete()) return;
  QList<QQuickItem*> items;
  std::vector<FlowBox> boxes;
  const auto children = childItems();
  for (QQuickItem* child : children) {
    if (!child->isVisible() || child->width() <= 0 || child->height() <= 0) continue;
    items.append(child);
    boxes.push_back({child->width(), child->height()});
  }
  const FlowPlan plan = flowRow(boxes, width(), spacing_);
  for (qsizetype i = 0; i < items.size(); ++i) {
    const FlowSpot& spot = plan.spots[static_cast<std::size_t>(i)];
    items[i]->setPosition({spot.x, spot.y});
  }
  setImplicitSize(plan.oneLine, plan.height);
}

}  // namespace vellix
