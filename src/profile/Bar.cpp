#include "profile/Bar.hpp"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace vellix {

// Of whole pixels of the device.
qreal Bar::length() const {
  const qreal whole = upright_ ? height() : width();
  const qreal part = std::clamp(fraction_, 0.0, 1.0) * whole;
  return std::round(std::min(std::max(part, least_), whole) * deviceScale()) / deviceScale();
}

QString Bar::drawingKey() const {
  return length() > 0 ? QStringLiteral("%1").arg(round_) : QString{};
}

QRectF Bar::drawingRect() const {
  const qreal scale = deviceScale();
  const qreal across = std::floor((upright_ ? width() : height()) * scale) / scale;
  if (upright_) return {0, height() - length(), across, length()};
  return {0, 0, length(), across};
}

void Bar::draw(QPainter& painter, const QRectF& rect) const {
  // The foot of an upright one is cut off straight.
  const QRectF shape = upright_ ? rect.adjusted(0, 0, 0, round_) : rect;
  const qreal corner = std::min({round_, shape.width() / 2, shape.height() / 2});
  painter.setClipRect(rect);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color());
  painter.drawRoundedRect(shape, corner, corner);
}

}  // namespace vellix
