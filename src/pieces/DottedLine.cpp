#include "DottedLine.hpp"

#include <QPainter>

namespace vellix {
namespace {

constexpr qreal kDot = 1.5;
constexpr qreal kStep = 4.5;

}  // namespace

DottedLine::DottedLine(QQuickItem* parent) : RasterItem(parent) { setImplicitHeight(kDot); }

void DottedLine::draw(QPainter& painter, const QRectF& rect) const {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color());
  for (qreal x = rect.left(); x + kDot <= rect.right(); x += kStep) {
    painter.drawEllipse(QRectF(x, rect.center().y() - kDot / 2, kDot, kDot));
  }
}

}  // namespace vellix
