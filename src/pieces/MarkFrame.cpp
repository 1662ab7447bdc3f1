#include "MarkFrame.hpp"

#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGRectangleNode>
#include <algorithm>
#include <cmath>

namespace vellix {
namespace {

// Device pixels; no screen is longer.
constexpr int kLongest = 16'384;

// The software renderer places children that join later only by a parent with a place of its own.
struct Node : QSGTransformNode {
  ~Node() override { clear(); }
  void clear() {
    while (QSGNode* child = firstChild()) {
      removeChildNode(child);
      delete child;
    }
  }
};

}  // namespace

MarkFrame::MarkFrame(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
  connect(this, &MarkFrame::looksChanged, this, &QQuickItem::polish);
}

QPointF MarkFrame::offGrid() const {
  const qreal dpr = window()->effectiveDevicePixelRatio();
  const QPointF corner = mapToScene(QPointF(0, 0)) * dpr;
  return {corner.x() - std::round(corner.x()), corner.y() - std::round(corner.y())};
}

// One when it is small; else the four sides, which leave the middle out.
std::vector<QRect> MarkFrame::stripsOf(const QRect& whole) const {
  const qreal dpr = window()->effectiveDevicePixelRatio();
  const int thick = static_cast<int>(std::ceil((radius_ + std::max(line_, halo_)) * dpr)) + 2;
  if (whole.height() <= 3 * thick || whole.width() <= 3 * thick) {
    return {whole.intersected({whole.topLeft(), QSize(kLongest, kLongest)})};
  }
  const QRect seen = whole.intersected({whole.topLeft(), QSize(kLongest, kLongest)});
  const int between = seen.height() - 2 * thick;
  const auto strip = [&seen](int x, int y, int width, int height) {
    return QRect(x, y, width, height).intersected(seen);
  };
  return {strip(whole.left(), whole.top(), seen.width(), thick),
          strip(whole.left(), whole.bottom() - thick + 1, seen.width(), thick),
          strip(whole.left(), whole.top() + thick, thick, between),
          strip(whole.right() - thick + 1, whole.top() + thick, thick, between)};
}

QImage MarkFrame::drawn(const QRect& strip) const {
  const qreal dpr = window()->effectiveDevicePixelRatio();
  QImage image(strip.size(), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(off_ - QPointF(strip.topLeft()));
  painter.scale(dpr, dpr);
  const qreal round = std::min({radius_, width() / 2, height() / 2});
  QPainterPath path;
  path.addRoundedRect(QRectF(0, 0, width(), height()), round, round);
  if (halo_ > 0) {
    QColor light = Qt::white;
    light.setAlphaF(static_cast<float>(haloOpacity_));
    painter.strokePath(path, QPen(light, halo_));
  }
  QPen pen(color_, line_);
  if (dash_ > 0) {
    pen.setCapStyle(Qt::FlatCap);
    pen.setDashPattern({dash_ / line_, dash_ / line_});
  }
  painter.strokePath(path, pen);
  return image;
}

void MarkFrame::updatePolish() {
  strips_.clear();
  fresh_ = true;
  update();
  const bool drawable = window() && width() > 0 && height() > 0 && std::isfinite(width()) &&
                        std::isfinite(height()) && std::isfinite(x()) && std::isfinite(y());
  if (!drawable) return;
  off_ = offGrid();
  const qreal dpr = window()->effectiveDevicePixelRatio();
  const qreal pad = std::ceil(std::max(line_, halo_) / 2 * dpr) + 1;
  const QSizeF size = QSizeF(width(), height()) * dpr;
  const QRect whole(QPoint(static_cast<int>(-pad), static_cast<int>(-pad)),
                    QSize(static_cast<int>(std::min<qreal>(std::ceil(size.width()), 1e6)),
                          static_cast<int>(std::min<qreal>(std::ceil(size.height()), 1e6))) +
                        QSize(static_cast<int>(2 * pad) + 1, static_cast<int>(2 * pad) + 1));
  for (const QRect& strip : stripsOf(whole)) {
    if (!strip.isEmpty()) strips_.push_back({strip, drawn(strip)});
  }
}

// What moves an item's parent does not tell the item, but may put it between two pixels.
void MarkFrame::realign() {
  if (strips_.empty() || !isVisible()) return;
  constexpr qreal kNoise = 1e-3;
  const QPointF now = offGrid();
  if ((now - off_).manhattanLength() < kNoise) return;
  updatePolish();
}

void MarkFrame::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  polish();
}

void MarkFrame::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange) polish();
  if (change != ItemSceneChange) return;
  disconnect(aligning_);
  if (data.window) {
    aligning_ = connect(data.window, &QQuickWindow::afterAnimating, this, &MarkFrame::realign);
  }
}

QSGNode* MarkFrame::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* node = static_cast<Node*>(old);
  if (strips_.empty()) {
    delete node;
    return nullptr;
  }
  if (!node) {
    node = new Node;
    fresh_ = true;
  }
  if (!fresh_) return node;
  fresh_ = false;
  node->clear();
  const qreal dpr = window()->effectiveDevicePixelRatio();
  if (fill_ > 0) {
    QColor ground = color_;
    ground.setAlphaF(static_cast<float>(fill_));
    QSGRectangleNode* inside = window()->createRectangleNode();
    inside->setRect(QRectF(0, 0, width(), height()));
    inside->setColor(ground);
    node->appendChildNode(inside);
  }
  for (const Strip& strip : strips_) {
    QSGImageNode* image = window()->createImageNode();
    image->setOwnsTexture(true);
    image->setFiltering(QSGTexture::Linear);
    image->setTexture(window()->createTextureFromImage(strip.image));
    image->setRect(
        QRectF((QPointF(strip.place.topLeft()) - off_) / dpr, QSizeF(strip.place.size()) / dpr));
    node->appendChildNode(image);
  }
  return node;
}

}  // namespace vellix
