#include "Shadow.hpp"

#include <QCache>
#include <QQuickWindow>
#include <QSGImageNode>
#include <algorithm>
#include <array>
#include <cmath>

namespace vellix {
namespace {

constexpr int kCacheBytes = 1 << 20;

struct Node : QSGNode {
  std::array<QSGImageNode*, 9> patches{};
  QSGTexture* texture = nullptr;
  qint64 imageKey = 0;
  ~Node() override { delete texture; }
};

// Distance to the edge of a rounded square around the origin, negative inside.
qreal distanceTo(qreal x, qreal y, qreal half, qreal radius) {
  const qreal dx = std::abs(x) - half + radius;
  const qreal dy = std::abs(y) - half + radius;
  return std::min(std::max(dx, dy), 0.0) + std::hypot(std::max(dx, 0.0), std::max(dy, 0.0)) -
         radius;
}

// A rounded square with a falloff as soft as a Gaussian's; its middle is what the patches stretch.
QImage softSquare(qreal half, qreal radius, qreal blur, const QColor& color, qreal dpr) {
  const qreal reach = half + blur;
  const int side = static_cast<int>(std::ceil(2 * reach * dpr));
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  for (int row = 0; row < side; ++row) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(row));
    for (int column = 0; column < side; ++column) {
      const qreal x = (column + 0.5) / dpr - reach;
      const qreal y = (row + 0.5) / dpr - reach;
      const qreal sigma = blur / 2.2;
      const qreal depth = distanceTo(x, y, half, radius + blur * 0.25);
      const qreal strength = 0.5 * std::erfc(depth / (sigma * M_SQRT2));
      const qreal faded = std::max(0.0, (strength - 0.014) / 0.986);
      line[column] = qPremultiply(qRgba(color.red(), color.green(), color.blue(),
                                        static_cast<int>(std::lround(color.alpha() * faded))));
    }
  }
  return image;
}

}  // namespace

Shadow::Shadow(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
  connect(this, &Shadow::looksChanged, this, &QQuickItem::polish);
}

// How much of a side belongs to a corner: inside it the shadow still changes.
qreal Shadow::corner() const { return radius_ + blur_ * 1.25; }

void Shadow::updatePolish() {
  if (!window() || width() <= 0 || height() <= 0 || blur_ <= 0) {
    image_ = {};
    update();
    return;
  }
  static QCache<QString, QImage> known(kCacheBytes);
  const qreal dpr = window()->effectiveDevicePixelRatio();
  const QString key =
      QStringLiteral("%1 %2 %3 %4").arg(radius_).arg(blur_).arg(color_.rgba(), 0, 16).arg(dpr);
  if (const QImage* image = known.object(key)) {
    image_ = *image;
  } else {
    image_ = softSquare(corner() + 1, radius_, blur_, color_, dpr);
    known.insert(key, new QImage(image_), static_cast<int>(image_.sizeInBytes()));
  }
  update();
}

void Shadow::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  polish();
}

void Shadow::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange) polish();
}

QSGNode* Shadow::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* node = static_cast<Node*>(old);
  if (image_.isNull()) {
    delete node;
    return nullptr;
  }
  if (!node) node = new Node;
  if (node->imageKey != image_.cacheKey()) {
    QSGTexture* before = node->texture;
    node->texture = window()->createTextureFromImage(image_);
    node->imageKey = image_.cacheKey();
    for (QSGImageNode*& patch : node->patches) {
      if (!patch) {
        patch = window()->createImageNode();
        patch->setFlag(QSGNode::OwnedByParent);
        node->appendChildNode(patch);
      }
      patch->setTexture(node->texture);
      // A falloff looks the same so, and without a GPU it costs a fraction of smooth stretching.
      patch->setFiltering(QSGTexture::Nearest);
    }
    delete before;
  }
  const QRectF area = boundingRect().adjusted(-blur_, -blur_, blur_, blur_).translated(0, drop_);
  const qreal full = image_.width() / window()->effectiveDevicePixelRatio();
  const auto cuts = [full](qreal start, qreal length, qreal wanted) {
    const qreal edge = std::min({wanted, length / 2, full / 2});
    return std::array{start, start + edge, start + length - edge, start + length};
  };
  const qreal wanted = corner() + blur_;
  const auto xs = cuts(area.left(), area.width(), wanted);
  const auto ys = cuts(area.top(), area.height(), wanted);
  const qreal scale = image_.width() / full;
  const auto sources = [&](const std::array<qreal, 4>& to) {
    const qreal edge = (to[1] - to[0]) * scale;
    return std::array{0.0, edge, image_.width() - edge, qreal(image_.width())};
  };
  const auto us = sources(xs);
  const auto vs = sources(ys);
  for (std::size_t i = 0; i < node->patches.size(); ++i) {
    const std::size_t column = i % 3;
    const std::size_t row = i / 3;
    node->patches[i]->setRect(xs[column], ys[row], xs[column + 1] - xs[column],
                              ys[row + 1] - ys[row]);
    node->patches[i]->setSourceRect(us[column], vs[row], us[column + 1] - us[column],
                                    vs[row + 1] - vs[row]);
  }
  return node;
}

}  // namespace vellix
