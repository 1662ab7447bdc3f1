#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>
#include <random>

#include "paint.hpp"

namespace vellix::demo {
namespace {

constexpr double kW = kPageWidth;
constexpr double kH = kPageHeight;

void sky(QPainter& painter, const QColor& top, const QColor& middle, const QColor& bottom) {
  QLinearGradient gradient(0, 0, 0, kH);
  gradient.setColorAt(0, top);
  gradient.setColorAt(0.55, middle);
  gradient.setColorAt(1, bottom);
  painter.fillRect(QRectF(0, 0, kW, kH), gradient);
}

// A band of land from a wavy edge to the foot of the panel.
void land(QPainter& painter, double y, double height, double waves, double phase,
          const QColor& colour) {
  QPainterPath path;
  path.moveTo(0, kH);
  for (int i = 0; i <= 96; ++i) {
    const double t = i / 96.0;
    const double wave = std::sin(t * waves * 6.2832 + phase) * 0.62 +
                        std::sin(t * waves * 2.3 * 6.2832 + phase * 1.7) * 0.38;
    path.lineTo(t * kW, y - wave * height);
  }
  path.lineTo(kW, kH);
  path.closeSubpath();
  painter.fillPath(path, colour);
}

void salt(QPainter& painter, QPointF shift) {
  const Palette p = paletteOf("salt");
  sky(painter, p.ground, QColor(56, 110, 116), QColor(233, 176, 128));
  const QRectF sun = panelBox(PageKind::front, "salt", Element::picture).translated(shift);
  QRadialGradient glow(sun.center(), sun.width() * 1.5);
  glow.setColorAt(0, QColor(255, 214, 160, 150));
  glow.setColorAt(1, QColor(255, 214, 160, 0));
  painter.setPen(Qt::NoPen);
  painter.setBrush(glow);
  painter.drawEllipse(sun.center(), sun.width() * 1.5, sun.width() * 1.5);
  painter.setBrush(p.accent);
  painter.drawEllipse(sun);
  land(painter, 1130, 46, 1.1, 0.4, QColor(158, 118, 108));
  land(painter, 1240, 54, 0.9, 2.2, QColor(196, 142, 112));
  painter.fillRect(QRectF(0, 1330, kW, kH - 1330), p.pale);
  // The pans: pale tiles that narrow towards the horizon.
  for (int row = 0; row < 9; ++row) {
    const double top = 1330 + std::pow(row / 9.0, 1.7) * 710;
    const double bottom = 1330 + std::pow((row + 1) / 9.0, 1.7) * 710;
    const double spread = 0.32 + row * 0.17;
    for (int column = -7; column < 7; ++column) {
      const int tone = ((row * 5 + column * 7) % 5 + 5) % 5;
      QPainterPath tile;
      const double s2 = spread + 0.17;
      tile.moveTo(kW / 2 + column * 250 * spread, top);
      tile.lineTo(kW / 2 + (column + 1) * 250 * spread, top);
      tile.lineTo(kW / 2 + (column + 1) * 250 * s2, bottom);
      tile.lineTo(kW / 2 + column * 250 * s2, bottom);
      tile.closeSubpath();
      const QColor tones[] = {QColor(244, 233, 216), QColor(236, 219, 196), QColor(226, 206, 184),
                              QColor(206, 200, 190), QColor(240, 226, 206)};
      painter.setBrush(tones[tone]);
      painter.setPen(QPen(QColor(250, 244, 232), 2.5 + row * 0.7));
      painter.drawPath(tile);
    }
  }
  // The road.
  QPainterPath road;
  road.moveTo(700, 1322);
  road.cubicTo(640, 1440, 980, 1520, 760, 1690);
  road.cubicTo(600, 1820, 420, 1900, 330, kH);
  road.lineTo(760, kH);
  road.cubicTo(780, 1900, 960, 1800, 930, 1680);
  road.cubicTo(1020, 1520, 690, 1430, 716, 1322);
  road.closeSubpath();
  painter.fillPath(road, p.deep);
  QLinearGradient shade(0, 1720, 0, kH);
  shade.setColorAt(0, QColor(24, 52, 58, 0));
  shade.setColorAt(0.45, QColor(24, 52, 58, 190));
  shade.setColorAt(1, QColor(24, 52, 58, 240));
  painter.fillRect(QRectF(0, 1690, kW, kH - 1690), shade);
}

void lantern(QPainter& painter, QPointF at, double size, double glowing) {
  QRadialGradient glow(at, size * 2.4);
  glow.setColorAt(0, QColor(255, 190, 96, static_cast<int>(150 * glowing)));
  glow.setColorAt(1, QColor(255, 170, 80, 0));
  painter.setPen(Qt::NoPen);
  painter.setBrush(glow);
  painter.drawEllipse(at, size * 2.4, size * 2.4);
  QPainterPath body;
  body.moveTo(at.x() - size * 0.34, at.y() + size * 0.6);
  body.cubicTo(at.x() - size * 0.75, at.y() - size * 0.2, at.x() - size * 0.5, at.y() - size * 0.8,
               at.x(), at.y() - size * 0.8);
  body.cubicTo(at.x() + size * 0.5, at.y() - size * 0.8, at.x() + size * 0.75, at.y() - size * 0.2,
               at.x() + size * 0.34, at.y() + size * 0.6);
  body.closeSubpath();
  QLinearGradient paper(at.x(), at.y() - size * 0.8, at.x(), at.y() + size * 0.6);
  paper.setColorAt(0, QColor(232, 116, 58));
  paper.setColorAt(0.6, QColor(250, 176, 84));
  paper.setColorAt(1, QColor(255, 240, 190));
  painter.fillPath(body, paper);
  painter.setPen(QPen(QColor(150, 60, 40, 90), size * 0.03));
  painter.drawLine(QPointF(at.x(), at.y() - size * 0.8), QPointF(at.x(), at.y() + size * 0.6));
  painter.fillRect(QRectF(at.x() - size * 0.34, at.y() + size * 0.57, size * 0.68, size * 0.07),
                   QColor(120, 52, 40));
}

void lanterns(QPainter& painter, QPointF shift) {
  sky(painter, QColor(16, 26, 58), QColor(42, 62, 110), QColor(120, 96, 128));
  std::minstd_rand dice(11);
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < 150; ++i) {
    const double x = static_cast<double>(dice() % 1440);
    const double y = std::pow(static_cast<double>(dice() % 1000) / 1000.0, 1.4) * 1300;
    const double size = 1.2 + static_cast<double>(dice() % 24) / 10.0;
    painter.setBrush(QColor(255, 246, 220, 60 + static_cast<int>(dice() % 150)));
    painter.drawEllipse(QPointF(x, y), size, size);
  }
  land(painter, 1440, 110, 0.8, 0.2, QColor(52, 62, 104));
  land(painter, 1560, 90, 1.1, 1.9, QColor(38, 47, 86));
  for (int i = 0; i < 34; ++i) {
    const double x = static_cast<double>(dice() % 1440);
    const double y = 880 + static_cast<double>(dice() % 620);
    lantern(painter, {x, y}, 8 + static_cast<double>(dice() % 14), 0.55);
  }
  land(painter, 1690, 70, 0.9, 3.6, QColor(26, 33, 66));
  // The crooked chimney and the mill, small against the hill.
  painter.fillRect(QRectF(250, 1628, 74, 62), QColor(20, 25, 52));
  QPainterPath roof;
  roof.moveTo(238, 1630);
  roof.lineTo(287, 1588);
  roof.lineTo(336, 1630);
  roof.closeSubpath();
  painter.fillPath(roof, QColor(20, 25, 52));
  painter.fillRect(QRectF(276, 1648, 16, 18), QColor(255, 206, 120));
  land(painter, 1800, 50, 0.7, 5.0, QColor(16, 21, 46));
  const QPointF centre = panelBox(PageKind::front, "lanterns", Element::picture).center() + shift;
  lantern(painter, centre + QPointF(0, 20), 235, 1);
  lantern(painter, {250, 1010}, 76, 0.9);
  lantern(painter, {1200, 1120}, 96, 0.9);
  lantern(painter, {1060, 860}, 44, 0.8);
  lantern(painter, {330, 1340}, 54, 0.8);
}

}  // namespace

// The other covers' art.
void paintCartoArt(QPainter& painter, QPointF shift);
void paintBreadArt(QPainter& painter, QPointF shift);
void paintLetterArt(QPainter& painter, QPointF shift);
void paintRainArt(QPainter& painter, QPointF shift);

Palette paletteOf(const std::string& bookId) {
  if (bookId == "salt") {
    return {QColor(24, 66, 74),    QColor(38, 78, 84),   QColor(196, 142, 112),
            QColor(248, 236, 216), QColor(226, 104, 60), QColor(30, 40, 44)};
  }
  if (bookId == "lanterns") {
    return {QColor(20, 30, 64),    QColor(14, 20, 46),   QColor(42, 62, 110),
            QColor(252, 238, 208), QColor(224, 112, 56), QColor(26, 30, 52)};
  }
  if (bookId == "carto") {
    return {QColor(226, 230, 212), QColor(62, 92, 80),  QColor(168, 188, 160),
            QColor(246, 244, 232), QColor(198, 72, 54), QColor(34, 54, 50)};
  }
  if (bookId == "bread") {
    return {QColor(244, 230, 208), QColor(150, 74, 40), QColor(206, 134, 76),
            QColor(252, 246, 234), QColor(52, 96, 94),  QColor(70, 38, 26)};
  }
  if (bookId == "letter") {
    return {QColor(84, 44, 78),    QColor(58, 28, 56),  QColor(142, 92, 130),
            QColor(250, 238, 228), QColor(214, 84, 78), QColor(46, 24, 44)};
  }
  return {QColor(40, 86, 88),    QColor(24, 60, 64),   QColor(104, 156, 150),
          QColor(236, 244, 236), QColor(222, 160, 62), QColor(22, 48, 50)};
}

void paintArt(QPainter& painter, const std::string& bookId, QPointF shift) {
  painter.save();
  if (bookId == "salt") {
    salt(painter, shift);
  } else if (bookId == "lanterns") {
    lanterns(painter, shift);
  } else if (bookId == "carto") {
    paintCartoArt(painter, shift);
  } else if (bookId == "bread") {
    paintBreadArt(painter, shift);
  } else if (bookId == "letter") {
    paintLetterArt(painter, shift);
  } else {
    paintRainArt(painter, shift);
  }
  painter.restore();
}

}  // namespace vellix::demo
