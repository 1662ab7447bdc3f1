#include "jobs/CritterDrawing.hpp"

#include <QPainter>
#include <cmath>

namespace vellix {

CritterDrawing::CritterDrawing(QQuickItem* parent) : RasterItem(parent) { setSize(16); }

void CritterDrawing::setSize(qreal size) {
  if (size == size_) return;
  size_ = size;
  setImplicitSize(critterWidth(size), size);
  emit sizeChanged();
}

// Each edge lies on the device's pixels: between them cells would blur, or show where they meet.
void CritterDrawing::draw(QPainter& painter, const QRectF& rect) const {
  const CritterGrid grid = critterGrid(rect.width(), rect.height());
  const qreal scale = painter.transform().m11();
  const auto edge = [scale](qreal at) { return std::round(at * scale) / scale; };
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const CritterCell& cell : critterCells()) {
    const qreal x = rect.x() + grid.x + cell.column * grid.cell;
    const qreal y = rect.y() + grid.y + cell.row * grid.cell;
    painter.fillRect(
        QRectF(QPointF(edge(x), edge(y)), QPointF(edge(x + grid.cell), edge(y + grid.cell))),
        color());
  }
}

}  // namespace vellix
