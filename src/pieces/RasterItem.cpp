#include "RasterItem.hpp"

#include <QCache>
#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <cmath>

namespace vellix {
namespace {

constexpr int kCacheBytes = 4 << 20;

struct Node : QSGNode {
  QSGImageNode* picture = nullptr;
  qint64 imageKey = 0;
};

QCache<QString, QImage>& drawings() {
  static QCache<QString, QImage> cache(kCacheBytes);
  return cache;
}

}  // namespace

RasterItem::RasterItem(QQuickItem* parent) : QQuickItem(parent), color_(Qt::black) {
  setFlag(ItemHasContents);
}

void RasterItem::setColor(const QColor& color) {
  if (color == color_) return;
  color_ = color;
  polish();
  emit colorChanged();
}

void RasterItem::updatePolish() {
  const QRectF rect = drawingRect();
  const QString drawing = drawingKey();
  if (!window() || drawing.isEmpty() || rect.isEmpty() || color_.alpha() == 0) {
    image_ = {};
    update();
    return;
  }
  const qreal dpr = window()->effectiveDevicePixelRatio();
  const QSize pixels(static_cast<int>(std::ceil(rect.width() * dpr - 0.01)),
                     static_cast<int>(std::ceil(rect.height() * dpr - 0.01)));
  const QSizeF shown(pixels.width() / dpr, pixels.height() / dpr);

  const QString key = QStringLiteral("%1 %2 %3x%4 %5x%6 %7")
                          .arg(QLatin1String(metaObject()->className()), drawing)
                          .arg(rect.width())
                          .arg(rect.height())
                          .arg(pixels.width())
                          .arg(pixels.height())
                          .arg(color_.rgba(), 0, 16);
  if (const QImage* known = drawings().object(key)) {
    image_ = *known;
  } else {
    image_ = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    image_.fill(Qt::transparent);
    QPainter painter(&image_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(dpr, dpr);
    draw(painter,
         QRectF(QPointF((shown.width() - rect.width()) / 2, (shown.height() - rect.height()) / 2),
                rect.size()));
    painter.end();
    drawings().insert(key, new QImage(image_), static_cast<int>(image_.sizeInBytes()));
  }
  noteOrigin();
  imageRect_ = onGrid();
  update();
}

void RasterItem::noteOrigin() {
  const QTransform toScene = itemTransform(nullptr, nullptr);
  if (toScene.type() <= QTransform::TxTranslate) origin_ = toScene.map(QPointF(0, 0));
}

// Where the image lies: in the middle of its drawing's place, but on the device's own pixels. What
// is drawn between two of them is blurred.
QRectF RasterItem::onGrid() const {
  const qreal dpr = window()->effectiveDevicePixelRatio();
  const QSizeF shown = QSizeF(image_.size()) / dpr;
  const QPointF centre = drawingRect().center();
  const auto snapped = [dpr](qreal offset, qreal at) {
    return std::round((offset + at) * dpr) / dpr - offset;
  };
  return {QPointF(snapped(origin_.x(), centre.x() - shown.width() / 2),
                  snapped(origin_.y(), centre.y() - shown.height() / 2)),
          shown};
}

// What moves an item's parent does not tell the item, but may put it between two pixels.
void RasterItem::realign() {
  if (image_.isNull() || !isVisible()) return;
  constexpr qreal kNoise = 1e-6;
  noteOrigin();
  const QRectF now = onGrid();
  if ((now.topLeft() - imageRect_.topLeft()).manhattanLength() < kNoise) return;
  imageRect_ = now;
  update();
}

void RasterItem::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  polish();
}

void RasterItem::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange) polish();
  if (change != ItemSceneChange) return;
  disconnect(aligning_);
  if (data.window) {
    aligning_ = connect(data.window, &QQuickWindow::afterAnimating, this, &RasterItem::realign);
  }
}

QSGNode* RasterItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* node = static_cast<Node*>(old);
  if (image_.isNull()) {
    delete node;
    return nullptr;
  }
  if (!node) {
    node = new Node;
    node->picture = window()->createImageNode();
    node->picture->setOwnsTexture(true);
    node->picture->setFlag(QSGNode::OwnedByParent);
    node->picture->setFiltering(QSGTexture::Linear);
    node->appendChildNode(node->picture);
  }
  if (node->imageKey != image_.cacheKey()) {
    node->picture->setTexture(
        window()->createTextureFromImage(image_, QQuickWindow::TextureCanUseAtlas));
    node->imageKey = image_.cacheKey();
  }
  node->picture->setRect(imageRect_);
  return node;
}

}  // namespace vellix
