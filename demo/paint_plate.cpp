#include <QPainterPath>
#include <cmath>

#include "paint.hpp"

namespace vellix::demo {

void paintContours(QPainter& painter, const QRectF& box, double step, const QColor& thin,
                   const QColor& thick, double width);
void paintWheat(QPainter& painter, QPointF foot, double length, double lean, const QColor& stalk,
                const QColor& grain);
void paintRipples(QPainter& painter, QPointF centre, double size, int rings, const QColor& colour,
                  double width);

namespace {

const QColor kInk(40, 36, 33);

// The flats, the light and its one long arm.
void lighthouse(QPainter& painter, const QRectF& box) {
  const double ground = box.top() + box.height() * 0.72;
  painter.setPen(QPen(kInk, 2));
  for (int i = 0; i < 26; ++i) {
    const double y = box.top() + 20 + i * (ground - box.top() - 40) / 26;
    const double inset = 30 + 60 * std::fabs(std::sin(i * 1.7));
    painter.drawLine(QPointF(box.left() + inset, y), QPointF(box.right() - inset * 0.8, y));
  }
  const double x = box.left() + box.width() * 0.3;
  painter.setBrush(QColor(252, 249, 241));
  painter.setPen(Qt::NoPen);
  painter.drawPolygon(QPolygonF({{x, box.top() + 150},
                                 {box.right() - 20, box.top() + 60},
                                 {box.right() - 20, box.top() + 230}}));
  painter.setPen(QPen(kInk, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolygon(QPolygonF({{x - 54, ground + 8},
                                 {x + 54, ground + 8},
                                 {x + 34, box.top() + 190},
                                 {x - 34, box.top() + 190}}));
  painter.setBrush(kInk);
  for (int i = 0; i < 2; ++i) {
    const double top = box.top() + 250 + i * 120.0;
    painter.drawPolygon(QPolygonF({{x - 39 - i * 5, top},
                                   {x + 39 + i * 5, top},
                                   {x + 43 + i * 5, top + 58},
                                   {x - 43 - i * 5, top + 58}}));
  }
  painter.setBrush(QColor(252, 249, 241));
  painter.drawRect(QRectF(x - 26, box.top() + 124, 52, 66));
  painter.setBrush(kInk);
  painter.drawPolygon(
      QPolygonF({{x - 40, box.top() + 124}, {x + 40, box.top() + 124}, {x, box.top() + 76}}));
  painter.setPen(QPen(kInk, 3));
  painter.drawLine(QPointF(box.left(), ground + 8), QPointF(box.right(), ground + 8));
  for (int i = 0; i < 9; ++i) {
    const double y = ground + 26 + i * i * 2.3;
    for (int j = 0; j < 5; ++j) {
      const double from = box.left() + std::fmod(i * 137.0 + j * 211.0, box.width() - 160);
      painter.drawLine(QPointF(from, y), QPointF(from + 60 + 18 * ((i + j) % 4), y));
    }
  }
}

void lanternRow(QPainter& painter, const QRectF& box) {
  for (int i = 0; i < 9; ++i) {
    const double t = i / 8.0;
    const double size = 40 + 52 * std::sin(t * 3.1416);
    const QPointF at(box.left() + 60 + t * (box.width() - 120),
                     box.center().y() - 170 * std::sin(t * 3.1416) + 120);
    painter.setBrush(i == 4 ? QColor(226, 214, 188) : QColor(252, 249, 241));
    painter.setPen(QPen(kInk, 4));
    painter.drawEllipse(at, size * 0.7, size);
    for (const double bow : {0.25, 0.5}) {
      painter.setBrush(Qt::NoBrush);
      painter.setPen(QPen(kInk, 2));
      painter.drawEllipse(at, size * bow, size);
    }
    painter.fillRect(QRectF(at.x() - size * 0.3, at.y() + size * 0.94, size * 0.6, 10), kInk);
    painter.setPen(QPen(kInk, 2));
    painter.drawLine(at + QPointF(0, size + 10), at + QPointF(size * 0.2, size + 70));
  }
}

}  // namespace

void paintPlate(QPainter& painter, const std::string& bookId, const QRectF& box) {
  painter.save();
  painter.setClipRect(box.adjusted(-6, -6, 6, 6));
  if (bookId == "carto") {
    paintContours(painter, QRectF(box.left(), box.top() - 500, box.width(), 1500), 0.5, kInk, kInk,
                  1.6);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(kInk, 5));
    painter.drawRect(box.adjusted(3, 3, -3, -3));
  } else if (bookId == "bread") {
    for (int i = 0; i < 7; ++i) {
      const double lean = (i - 3) * 80.0;
      paintWheat(painter, {box.center().x() + (i - 3) * 40.0, box.bottom() - 10},
                 box.height() * (0.9 - 0.05 * std::abs(i - 3)), lean, kInk, kInk);
    }
    painter.fillRect(QRectF(box.center().x() - 130, box.bottom() - 190, 260, 20),
                     QColor(252, 249, 241));
    painter.fillRect(QRectF(box.center().x() - 130, box.bottom() - 184, 260, 8), kInk);
  } else if (bookId == "rain") {
    paintRipples(painter, box.center() + QPointF(0, 90), box.width() * 0.48, 9, kInk, 3.4);
    paintRipples(painter, {box.left() + 190, box.top() + 180}, 170, 5, kInk, 2.6);
    paintRipples(painter, {box.right() - 210, box.top() + 130}, 130, 4, kInk, 2.6);
  } else if (bookId == "lanterns") {
    lanternRow(painter, box);
  } else {
    lighthouse(painter, box);
  }
  painter.restore();
}

}  // namespace vellix::demo
