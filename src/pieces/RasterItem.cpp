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

RasterItem::RasterItem(QQuickItem* parent) : GridItem(parent), color_(Qt::black) {}

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
  const qreal dpr = deviceScale();
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
  update();
}

// In the middle of its drawing's place, but on the device's own pixels.
QRectF RasterItem::imageRect() const {
  const QSizeF shown = QSizeF(image_.size()) / deviceScale();
  const QPointF centre = drawingRect().center();
  return {onGrid(centre - QPointF(shown.width() / 2, shown.height() / 2)), shown};
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
  node->picture->setRect(imageRect());
  return node;
}

}  // namespace vellix
