#include <QPainterPath>
#include <array>
#include <cmath>

#include "paint.hpp"

namespace vellix::demo {

void paintCartoArt(QPainter& painter, QPointF shift);
void paintContours(QPainter& painter, const QRectF& box, double step, const QColor& thin,
                   const QColor& thick, double width);

namespace {

double heightAt(double x, double y) {
  const auto hill = [&](double cx, double cy, double size, double height) {
    const double dx = x - cx;
    const double dy = y - cy;
    return height * std::exp(-(dx * dx + dy * dy) / (size * size));
  };
  return hill(0.30, 0.56, 0.27, 9) + hill(0.72, 0.74, 0.24, 8) + hill(0.85, 0.30, 0.33, 6) +
         hill(0.12, 0.95, 0.3, 5) + 0.7 * std::sin(x * 9 + y * 5) + 0.5 * std::sin(y * 13 - x * 4) +
         hill(0.5, 0.98, 0.2, 4);
}

void compass(QPainter& painter, const QRectF& box, const Palette& p) {
  painter.save();
  painter.translate(box.center());
  const double r = box.width() / 2;
  painter.setPen(Qt::NoPen);
  painter.setBrush(p.pale);
  painter.drawEllipse(QPointF(0, 0), r, r);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(p.deep, 4));
  painter.drawEllipse(QPointF(0, 0), r * 0.94, r * 0.94);
  painter.setPen(QPen(p.deep, 2));
  painter.drawEllipse(QPointF(0, 0), r * 0.84, r * 0.84);
  for (int i = 0; i < 8; ++i) {
    painter.save();
    painter.rotate(i * 45);
    const double length = i % 2 == 0 ? r * 0.78 : r * 0.45;
    const double half = i % 2 == 0 ? r * 0.16 : r * 0.1;
    painter.setPen(Qt::NoPen);
    painter.setBrush(i == 0 ? p.accent : p.deep);
    painter.drawPolygon(QPolygonF({{0, -length}, {half, -half * 0.6}, {0, 0}}));
    painter.setBrush(p.mid);
    painter.drawPolygon(QPolygonF({{0, -length}, {-half, -half * 0.6}, {0, 0}}));
    painter.restore();
  }
  painter.restore();
}

}  // namespace

// Isolines of a fixed landscape over `box`; every fifth is thick.
void paintContours(QPainter& painter, const QRectF& box, double step, const QColor& thin,
                   const QColor& thick, double width) {
  constexpr int kColumns = 96;
  constexpr int kRows = 136;
  std::vector<double> heights((kColumns + 1) * (kRows + 1));
  const auto at = [&](int c, int r) -> double& {
    return heights[static_cast<std::size_t>(r * (kColumns + 1) + c)];
  };
  for (int r = 0; r <= kRows; ++r) {
    for (int c = 0; c <= kColumns; ++c) {
      at(c, r) = heightAt(static_cast<double>(c) / kColumns, static_cast<double>(r) / kRows);
    }
  }
  const auto place = [&](double c, double r) {
    return QPointF(box.left() + c / kColumns * box.width(), box.top() + r / kRows * box.height());
  };
  int index = 0;
  for (double level = -1; level < 11; level += step, ++index) {
    QPainterPath path;
    for (int r = 0; r < kRows; ++r) {
      for (int c = 0; c < kColumns; ++c) {
        const std::array<double, 4> v = {at(c, r), at(c + 1, r), at(c + 1, r + 1), at(c, r + 1)};
        const std::array<std::array<int, 2>, 4> corner = {{{0, 0}, {1, 0}, {1, 1}, {0, 1}}};
        std::array<QPointF, 4> cuts;
        std::size_t count = 0;
        for (std::size_t e = 0; e < 4; ++e) {
          const std::size_t f = (e + 1) % 4;
          if ((v[e] < level) == (v[f] < level)) continue;
          const double t = (level - v[e]) / (v[f] - v[e]);
          cuts[count++] = place(c + corner[e][0] + t * (corner[f][0] - corner[e][0]),
                                r + corner[e][1] + t * (corner[f][1] - corner[e][1]));
        }
        for (std::size_t i = 0; i + 1 < count; i += 2) {
          path.moveTo(cuts[i]);
          path.lineTo(cuts[i + 1]);
        }
      }
    }
    const bool heavy = index % 5 == 0;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(
        QPen(heavy ? thick : thin, heavy ? width * 2 : width, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(path);
  }
}

void paintCartoArt(QPainter& painter, QPointF shift) {
  const Palette p = paletteOf("carto");
  const QRectF all(0, 0, kPageWidth, kPageHeight);
  painter.fillRect(all, p.ground);
  QLinearGradient wash(0, 0, kPageWidth, kPageHeight);
  wash.setColorAt(0, QColor(240, 240, 224));
  wash.setColorAt(1, QColor(190, 206, 182));
  painter.fillRect(all, wash);
  painter.save();
  painter.setClipRect(QRectF(0, 730, kPageWidth, kPageHeight - 730), Qt::IntersectClip);
  paintContours(painter, all, 0.42, QColor(62, 92, 80, 120), QColor(62, 92, 80, 190), 2.6);
  painter.restore();
  // The river and the walked line.
  QPainterPath river;
  river.moveTo(-20, 1720);
  river.cubicTo(320, 1560, 480, 1660, 640, 1400);
  river.cubicTo(760, 1200, 560, 1060, 760, 930);
  river.cubicTo(900, 850, 1180, 900, 1460, 800);
  painter.setPen(QPen(QColor(118, 160, 172), 26, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(river);
  QPainterPath walk;
  walk.moveTo(180, 1480);
  walk.cubicTo(340, 1120, 520, 1180, 640, 1080);
  walk.cubicTo(800, 940, 1000, 1180, 1160, 1000);
  painter.setPen(QPen(p.accent, 9, Qt::CustomDashLine, Qt::RoundCap));
  QPen dashes(p.accent, 9, Qt::CustomDashLine, Qt::RoundCap);
  dashes.setDashPattern({2.2, 2.4});
  painter.setPen(dashes);
  painter.drawPath(walk);
  painter.setPen(Qt::NoPen);
  painter.setBrush(p.accent);
  painter.drawEllipse(QPointF(180, 1480), 20, 20);
  painter.setPen(QPen(p.accent, 11, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(1138, 978), QPointF(1182, 1022));
  painter.drawLine(QPointF(1182, 978), QPointF(1138, 1022));
  compass(painter, panelBox(PageKind::front, "carto", Element::picture).translated(shift), p);
  painter.fillRect(QRectF(0, 1770, kPageWidth, 270), p.pale);
  painter.fillRect(QRectF(0, 1770, kPageWidth, 6), p.deep);
  // A border of alternating blocks, as maps have.
  for (int i = 0; i < 24; ++i) {
    painter.fillRect(QRectF(i * 60.0, 1776, 60, 14), i % 2 == 0 ? p.deep : p.pale);
  }
}

}  // namespace vellix::demo
