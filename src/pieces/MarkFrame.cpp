#include "MarkFrame.hpp"

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGRectangleNode>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace vellix {
namespace {

// Device pixels; no screen is longer.
constexpr int kLongest = 16'384;

// Of straight pieces alone: dashes are laid out along a curve by a length that is only about its
// own.
QPainterPath straightened(const QPainterPath& path) {
  const QTransform fine = QTransform::fromScale(16, 16);
  QPainterPath pieces;
  for (const QPolygonF& each : path.toSubpathPolygons(fine)) {
    pieces.addPolygon(fine.inverted().map(each));
  }
  return pieces;
}

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

MarkFrame::MarkFrame(QQuickItem* parent) : GridItem(parent) {
  connect(this, &MarkFrame::looksChanged, this, &QQuickItem::update);
}

// One when it is small; else the four sides, which leave the middle out.
std::vector<QRect> MarkFrame::strips() const {
  const qreal dpr = deviceScale();
  const int pad = static_cast<int>(std::ceil(std::max(line_, halo_) / 2 * dpr)) + 1;
  const QSizeF size = QSizeF(width(), height()) * dpr;
  const QRect whole(QPoint(-pad, -pad),
                    QSize(static_cast<int>(std::min<qreal>(std::ceil(size.width()), 1e6)),
                          static_cast<int>(std::min<qreal>(std::ceil(size.height()), 1e6))) +
                        QSize(2 * pad + 1, 2 * pad + 1));
  const int thick = static_cast<int>(std::ceil((radius_ + std::max(line_, halo_)) * dpr)) + 2;
  const QRect seen = whole.intersected({whole.topLeft(), QSize(kLongest, kLongest)});
  if (whole.height() <= 3 * thick || whole.width() <= 3 * thick) return {seen};
  const int between = seen.height() - 2 * thick;
  const auto strip = [&seen](int x, int y, int width, int height) {
    return QRect(x, y, width, height).intersected(seen);
  };
  return {strip(whole.left(), whole.top(), seen.width(), thick),
          strip(whole.left(), whole.bottom() - thick + 1, seen.width(), thick),
          strip(whole.left(), whole.top() + thick, thick, between),
          strip(whole.right() - thick + 1, whole.top() + thick, thick, between)};
}

// As many on each quarter of the way around, so that none is cut short where it closes, and a whole
// one around the first corner, where the way begins. A painter would miscount those that it clips.
QPainterPath MarkFrame::dashes(const QPainterPath& path, qreal round) const {
  const qreal edge = path.length();
  const qreal even = edge / (8 * std::max(1.0, std::round(edge / (8 * dash_))));
  const qreal corner = std::numbers::pi / 2 * round;
  QPainterPathStroker stroker;
  stroker.setWidth(line_);
  stroker.setCapStyle(Qt::FlatCap);
  stroker.setDashPattern(QList<qreal>{even / line_, even / line_});
  stroker.setDashOffset((even - corner) / 2 / line_);
  return stroker.createStroke(path);
}

QImage MarkFrame::drawn(const QRect& strip, QPointF off) const {
  const qreal dpr = deviceScale();
  QImage image(strip.size(), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(off - QPointF(strip.topLeft()));
  painter.scale(dpr, dpr);
  const qreal round = std::min({radius_, width() / 2, height() / 2});
  QPainterPath path;
  path.addRoundedRect(QRectF(0, 0, width(), height()), round, round);
  if (halo_ > 0) {
    QColor light = Qt::white;
    light.setAlphaF(static_cast<float>(haloOpacity_));
    painter.strokePath(path, QPen(light, halo_));
  }
  if (dash_ > 0 && line_ > 0) {
    painter.fillPath(dashes(straightened(path), round), color_);
  } else {
    painter.strokePath(path, QPen(color_, line_));
  }
  return image;
}

QSGNode* MarkFrame::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
  auto* node = static_cast<Node*>(old);
  const bool drawable = width() > 0 && height() > 0 && std::isfinite(width()) &&
                        std::isfinite(height()) && std::isfinite(x()) && std::isfinite(y());
  if (!drawable) {
    delete node;
    return nullptr;
  }
  if (!node) node = new Node;
  node->clear();
  if (fill_ > 0) {
    QColor ground = color_;
    ground.setAlphaF(static_cast<float>(fill_));
    QSGRectangleNode* inside = window()->createRectangleNode();
    inside->setRect(QRectF(0, 0, width(), height()));
    inside->setColor(ground);
    node->appendChildNode(inside);
  }
  const qreal dpr = deviceScale();
  const QPointF off = -onGrid({}) * dpr;
  for (const QRect& strip : strips()) {
    if (strip.isEmpty()) continue;
    QSGImageNode* image = window()->createImageNode();
    image->setOwnsTexture(true);
    image->setFiltering(QSGTexture::Linear);
    image->setTexture(window()->createTextureFromImage(drawn(strip, off)));
    image->setRect(QRectF((QPointF(strip.topLeft()) - off) / dpr, QSizeF(strip.size()) / dpr));
    node->appendChildNode(image);
  }
  return node;
}

}  // namespace vellix
