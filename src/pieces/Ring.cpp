#include "Ring.hpp"

#include <QPainter>
#include <QtMath>
#include <algorithm>

namespace vellix {

QString Ring::drawingKey() const {
  return QStringLiteral("%1 %2 %3").arg(sweep_).arg(thickness_).arg(dashes_);
}

void Ring::draw(QPainter& painter, const QRectF& rect) const {
  const qreal inset = thickness_ / 2;
  const QRectF circle = rect.adjusted(inset, inset, -inset, -inset);
  QPen pen(color(), thickness_, Qt::SolidLine, Qt::RoundCap);
  if (dashes_ > 0) {
    // Strokes of 55 % of their share of the circle, measured in pen widths as Qt wants them.
    const qreal share = M_PI * circle.width() / dashes_ / thickness_;
    pen.setCapStyle(Qt::FlatCap);
    pen.setDashPattern({share * 0.55, share * 0.45});
    pen.setDashOffset(share * 0.275);
  }
  painter.setPen(pen);
  const qreal part = std::clamp(sweep_, 0.0, 1.0);
  if (part >= 1) {
    painter.drawEllipse(circle);
  } else if (part > 0) {
    painter.drawArc(circle, 90 * 16, static_cast<int>(-part * 360 * 16));
  }
}

}  // namespace vellix
