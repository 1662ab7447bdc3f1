#include "jobs/CritterDrawing.hpp"

#include <QPainter>

namespace vellix {

CritterDrawing::CritterDrawing(QQuickItem* parent) : RasterItem(parent) { setSize(16); }

void CritterDrawing::setSize(qreal size) {
  if (size == size_) return;
  size_ = size;
  setImplicitSize(critterWidth(size), size);
  emit sizeChanged();
}

// Without smoothing each edge lies on the device's pixels: between them cells would blur, and show
// where they meet.
void CritterDrawing::draw(QPainter& painter, const QRectF& rect) const {
  const CritterGrid grid = critterGrid(rect.width(), rect.height());
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const CritterCell& cell : critterCells()) {
    painter.fillRect(QRectF(rect.x() + grid.x + cell.column * grid.cell,
                            rect.y() + grid.y + cell.row * grid.cell, grid.cell, grid.cell),
                     color());
  }
}

}  // namespace vellix
