#include "pieces/frame_drawing.hpp"

#include <QPainter>
#include <QPainterPath>
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

// In the device's pixels, from the corner as it lies on their grid.
std::vector<QRect> stripsOf(const FrameShape& shape) {
  const FrameLook& look = shape.look;
  const qreal thickest = std::max(look.line, look.halo);
  const int pad = static_cast<int>(std::ceil(thickest / 2 * shape.scale)) + 1;
  const QSizeF size = shape.size * shape.scale;
  const QRect whole(QPoint(-pad, -pad),
                    QSize(static_cast<int>(std::min<qreal>(std::ceil(size.width()), 1e6)),
                          static_cast<int>(std::min<qreal>(std::ceil(size.height()), 1e6))) +
                        QSize(2 * pad + 1, 2 * pad + 1));
  const int thick = static_cast<int>(std::ceil((look.radius + thickest) * shape.scale)) + 2;
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
QPainterPath dashesOf(const FrameLook& look, const QPainterPath& path, qreal round) {
  const qreal edge = path.length();
  const qreal even = edge / (8 * std::max(1.0, std::round(edge / (8 * look.dash))));
  const qreal corner = std::numbers::pi / 2 * round;
  QPainterPathStroker stroker;
  stroker.setWidth(look.line);
  stroker.setCapStyle(Qt::FlatCap);
  stroker.setDashPattern(QList<qreal>{even / look.line, even / look.line});
  stroker.setDashOffset((even - corner) / 2 / look.line);
  return stroker.createStroke(path);
}

QImage drawn(const FrameShape& shape, const QRect& strip) {
  const FrameLook& look = shape.look;
  QImage image(strip.size(), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(shape.off - QPointF(strip.topLeft()));
  painter.scale(shape.scale, shape.scale);
  const qreal round = std::min({look.radius, shape.size.width() / 2, shape.size.height() / 2});
  QPainterPath path;
  path.addRoundedRect(QRectF({}, shape.size), round, round);
  if (look.halo > 0) {
    QColor light = Qt::white;
    light.setAlphaF(static_cast<float>(look.haloOpacity));
    painter.strokePath(path, QPen(light, look.halo));
  }
  if (look.dash > 0 && look.line > 0) {
    painter.fillPath(dashesOf(look, straightened(path), round), look.color);
  } else {
    painter.strokePath(path, QPen(look.color, look.line));
  }
  return image;
}

}  // namespace

bool FrameShape::isDrawable() const {
  return size.width() > 0 && size.height() > 0 && std::isfinite(size.width()) &&
         std::isfinite(size.height()) && std::isfinite(off.x()) && std::isfinite(off.y());
}

std::vector<FrameStrip> drawFrame(const FrameShape& shape) {
  std::vector<FrameStrip> strips;
  if (!shape.isDrawable()) return strips;
  for (const QRect& strip : stripsOf(shape)) {
    if (strip.isEmpty()) continue;
    strips.push_back({QRectF((QPointF(strip.topLeft()) - shape.off) / shape.scale,
                             QSizeF(strip.size()) / shape.scale),
                      drawn(shape, strip)});
  }
  return strips;
}

}  // namespace vellix
