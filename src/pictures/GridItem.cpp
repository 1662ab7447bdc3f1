#include "pictures/GridItem.hpp"

#include <QQuickWindow>
#include <cmath>

namespace vellix {

GridItem::GridItem(QQuickItem* parent) : QQuickItem(parent) { setFlag(ItemHasContents); }

qreal GridItem::deviceScale() const { return window() ? window()->effectiveDevicePixelRatio() : 1; }

QPointF GridItem::onGrid(QPointF at) const {
  const qreal scale = deviceScale();
  const auto snapped = [scale](qreal origin, qreal offset) {
    return std::round((origin + offset) * scale) / scale - origin;
  };
  return {snapped(origin_.x(), at.x()), snapped(origin_.y(), at.y())};
}

void GridItem::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  if (now.size() == before.size()) return;
  resized();
  update();
}

void GridItem::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change != ItemDevicePixelRatioHasChanged && change != ItemSceneChange) return;
  resized();
  update();
  if (change != ItemSceneChange) return;
  disconnect(aligning_);
  if (!data.window) return;
  aligning_ = connect(data.window, &QQuickWindow::afterAnimating, this, [this] {
    realign();
    framed();
  });
}

// Each frame, since what moves an item's parent does not tell the item. While it is turned or
// scaled there is no grid to lie on: it keeps the one that it had, and does not wobble.
void GridItem::realign() {
  if (!isVisible()) return;
  const QTransform toScene = itemTransform(nullptr, nullptr);
  if (toScene.type() > QTransform::TxTranslate) return;
  origin_ = toScene.map(QPointF());
  const QPointF moved = (origin_ - painted_) * deviceScale();
  const auto whole = [](qreal by) { return std::abs(by - std::round(by)) < 1e-6; };
  if (whole(moved.x()) && whole(moved.y())) return;
  painted_ = origin_;
  update();
}

}  // namespace vellix
