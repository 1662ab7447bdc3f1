#include "HalfRound.hpp"

#include <QPainter>

namespace vellix {

void HalfRound::setMirrored(bool mirrored) {
  if (mirrored == mirrored_) return;
  mirrored_ = mirrored;
  polish();
  emit mirroredChanged();
}

void HalfRound::draw(QPainter& painter, const QRectF& rect) const {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color());
  const QRectF disc(mirrored_ ? rect.left() - rect.width() : rect.left(), rect.top(),
                    rect.width() * 2, rect.height());
  painter.drawPie(disc, (mirrored_ ? -90 : 90) * 16, 180 * 16);
}

}  // namespace vellix
