#include <QLinearGradient>
#include <QPainterPath>
#include <cmath>
#include <random>

#include "paint.hpp"

namespace vellix::demo {

void paintBreadArt(QPainter& painter, QPointF shift);
void paintWheat(QPainter& painter, QPointF foot, double length, double lean, const QColor& stalk,
                const QColor& grain);

// A stalk from its foot upwards, bending by `lean` pixels, with paired grains at its head.
void paintWheat(QPainter& painter, QPointF foot, double length, double lean, const QColor& stalk,
                const QColor& grain) {
  const auto along = [&](double t) {
    return QPointF(foot.x() + lean * t * t, foot.y() - length * t);
  };
  QPainterPath path;
  path.moveTo(along(0));
  for (int i = 1; i <= 24; ++i) path.lineTo(along(i / 24.0));
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(stalk, length * 0.011, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(path);
  painter.setPen(Qt::NoPen);
  painter.setBrush(grain);
  const double size = length * 0.052;
  for (int i = 0; i < 7; ++i) {
    const double t = 0.66 + i * 0.05;
    const QPointF at = along(t);
    const double tilt = std::atan2(2 * lean * t, length) * 57.3;
    for (const int side : {-1, 1}) {
      painter.save();
      painter.translate(at);
      painter.rotate(tilt + side * 30);
      painter.drawEllipse(QPointF(side * size * 0.42, -size * 0.7), size * 0.34, size * 0.92);
      painter.restore();
    }
  }
  painter.save();
  painter.translate(along(1.0));
  painter.rotate(std::atan2(2 * lean, length) * 57.3);
  painter.drawEllipse(QPointF(0, -size * 0.5), size * 0.32, size * 0.95);
  painter.restore();
}

void paintBreadArt(QPainter& painter, QPointF shift) {
  const Palette p = paletteOf("bread");
  painter.fillRect(QRectF(0, 0, kPageWidth, kPageHeight), p.ground);
  // A table, a cloth and the winter behind them.
  QLinearGradient wall(0, 0, 0, 1480);
  wall.setColorAt(0, QColor(250, 240, 222));
  wall.setColorAt(1, QColor(238, 214, 180));
  painter.fillRect(QRectF(0, 0, kPageWidth, 1480), wall);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(255, 250, 240, 170));
  painter.drawEllipse(QPointF(720, 1190), 560, 560);
  painter.setBrush(QColor(232, 170, 110, 70));
  painter.drawEllipse(QPointF(720, 1190), 470, 470);
  for (const auto& [x, lean] : {std::pair{200.0, -90.0},
                                {310.0, -30.0},
                                {1130.0, 30.0},
                                {1240.0, 100.0},
                                {110.0, -60.0},
                                {1330.0, 60.0}}) {
    paintWheat(painter, {x, 1560}, 690 - std::abs(x - 720) * 0.25, lean, QColor(190, 138, 70),
               QColor(206, 152, 74));
  }
  painter.fillRect(QRectF(0, 1480, kPageWidth, 560), p.deep);
  painter.fillRect(QRectF(0, 1480, kPageWidth, 12), QColor(176, 98, 56));
  for (int i = 0; i < 7; ++i) {
    painter.fillRect(QRectF(0, 1560 + i * 76.0, kPageWidth, 3), QColor(120, 56, 30, 90));
  }
  const QRectF box = panelBox(PageKind::front, "bread", Element::picture).translated(shift);
  painter.setBrush(QColor(70, 38, 26, 80));
  painter.drawEllipse(QRectF(box.left() - 20, box.bottom() - 90, box.width() + 40, 120));
  QPainterPath loaf;
  const double x = box.left();
  const double w = box.width();
  const double foot = box.bottom() - 30;
  loaf.moveTo(x + w * 0.02, foot - 120);
  loaf.cubicTo(x - w * 0.02, box.top() + 140, x + w * 0.25, box.top(), x + w * 0.5, box.top());
  loaf.cubicTo(x + w * 0.75, box.top(), x + w * 1.02, box.top() + 140, x + w * 0.98, foot - 120);
  loaf.cubicTo(x + w * 0.96, foot + 10, x + w * 0.04, foot + 10, x + w * 0.02, foot - 120);
  QLinearGradient crust(0, box.top(), 0, foot);
  crust.setColorAt(0, QColor(222, 152, 84));
  crust.setColorAt(0.55, QColor(190, 106, 52));
  crust.setColorAt(1, QColor(128, 62, 32));
  painter.fillPath(loaf, crust);
  painter.save();
  painter.setClipPath(loaf);
  // Flour, and the scores through it.
  std::minstd_rand dice(5);
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < 900; ++i) {
    const double u = static_cast<double>(dice() % 1000) / 1000.0;
    const double v = static_cast<double>(dice() % 1000) / 1000.0;
    painter.setBrush(QColor(255, 246, 228, static_cast<int>(90 * (1 - v))));
    painter.drawEllipse(QPointF(x + u * w, box.top() + v * v * 420), 3.2, 2.2);
  }
  for (int i = 0; i < 4; ++i) {
    const double cx = x + w * (0.2 + 0.2 * i);
    QPainterPath score;
    score.moveTo(cx - 66, foot - 170);
    score.quadTo(cx - 44, box.top() + 190, cx + 44, box.top() + 70);
    score.quadTo(cx + 16, box.top() + 260, cx - 66, foot - 170);
    painter.fillPath(score, QColor(250, 222, 176));
    painter.setPen(QPen(QColor(150, 78, 38, 150), 5));
    painter.drawPath(score);
    painter.setPen(Qt::NoPen);
  }
  painter.restore();
  painter.fillRect(QRectF(0, 1770, kPageWidth, 270), p.ground);
  painter.fillRect(QRectF(0, 1770, kPageWidth, 8), p.accent);
}

}  // namespace vellix::demo
