#include "GoogleG.hpp"

#include <QPainter>
#include <algorithm>
#include <array>

namespace vellix {
namespace {

// An arc from one angle on, in degrees against the clock with 0 at the right.
struct Arc {
  QRgb colour;
  int from;
  int span;
};
constexpr QRgb kBlue = 0xff4285f4;
// Each reaches a little under the next, so that no ground shows between them.
constexpr std::array kArcs{Arc{0xff34a853, -142, 92}, Arc{0xfffbbc05, 152, 66},
                           Arc{0xffea4335, 40, 114}, Arc{kBlue, -50, 50}};

}  // namespace

void GoogleG::draw(QPainter& painter, const QRectF& rect) const {
  const qreal size = std::min(rect.width(), rect.height());
  const qreal stroke = size * 0.205;
  QRectF circle(0, 0, size - stroke, size - stroke);
  circle.moveCenter(rect.center());
  for (const auto& arc : kArcs) {
    painter.setPen(QPen(QColor::fromRgba(arc.colour), stroke, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(circle, arc.from * 16, arc.span * 16);
  }
  painter.fillRect(
      QRectF(rect.center().x(), rect.center().y() - stroke / 2, size / 2 - size * 0.012, stroke),
      QColor::fromRgba(kBlue));
}

}  // namespace vellix
