#include <QPainterPath>
#include <random>

#include "paint.hpp"

namespace vellix::demo {

void paintRainArt(QPainter& painter, QPointF shift);
void paintRipples(QPainter& painter, QPointF centre, double size, int rings, const QColor& colour,
                  double width);

void paintRipples(QPainter& painter, QPointF centre, double size, int rings, const QColor& colour,
                  double width) {
  painter.setBrush(Qt::NoBrush);
  for (int i = 1; i <= rings; ++i) {
    QColor tone = colour;
    tone.setAlphaF(colour.alphaF() *
                   static_cast<float>(1.0 - 0.8 * static_cast<double>(i) / rings));
    painter.setPen(QPen(tone, width));
    painter.drawEllipse(centre, size * i / rings, size * i / rings * 0.34);
  }
}

void paintRainArt(QPainter& painter, QPointF shift) {
  const Palette p = paletteOf("rain");
  QLinearGradient sky(0, 0, 0, kPageHeight);
  sky.setColorAt(0, QColor(34, 74, 80));
  sky.setColorAt(0.6, QColor(92, 142, 138));
  sky.setColorAt(0.78, QColor(170, 200, 188));
  sky.setColorAt(0.781, QColor(50, 98, 100));
  sky.setColorAt(1, QColor(22, 56, 60));
  painter.fillRect(QRectF(0, 0, kPageWidth, kPageHeight), sky);
  painter.setPen(Qt::NoPen);
  for (const auto& [y, colour] :
       {std::pair{1470.0, QColor(112, 154, 146)}, {1530.0, QColor(84, 130, 124)}}) {
    QPainterPath hill;
    hill.moveTo(0, 1592);
    hill.lineTo(0, y);
    hill.cubicTo(400, y - 130, 700, y + 60, 1000, y - 40);
    hill.cubicTo(1200, y - 110, 1340, y, 1440, y - 30);
    hill.lineTo(1440, 1592);
    painter.fillPath(hill, colour);
  }
  std::minstd_rand dice(23);
  for (int i = 0; i < 360; ++i) {
    const double x = static_cast<double>(dice() % 1700) - 100;
    const double y = static_cast<double>(dice() % 1580);
    const double length = 34 + static_cast<double>(dice() % 80);
    painter.setPen(QPen(QColor(236, 246, 240, 34 + static_cast<int>(dice() % 80)),
                        1.6 + static_cast<double>(dice() % 3), Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(x, y), QPointF(x - length * 0.22, y + length));
  }
  for (const auto& [x, y, size] : {std::tuple{260.0, 1690.0, 170.0},
                                   {1120.0, 1720.0, 210.0},
                                   {700.0, 1950.0, 260.0},
                                   {180.0, 1960.0, 130.0},
                                   {1310.0, 1960.0, 140.0},
                                   {640.0, 1650.0, 110.0}}) {
    paintRipples(painter, {x, y}, size, 4, QColor(220, 238, 230, 150), 4);
  }

  // One umbrella, and nobody hurrying under it.
  const QRectF box = panelBox(PageKind::front, "rain", Element::picture).translated(shift);
  const QPointF top(box.center().x(), box.top() + 30);
  const double rim = box.top() + 330;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(p.ink, 15, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(top - QPointF(0, 26), QPointF(top.x(), box.bottom() - 70));
  painter.drawArc(QRectF(top.x() - 84, box.bottom() - 112, 84, 84), 180 * 16, 180 * 16);
  const double edges[] = {box.left(), box.left() + box.width() * 0.27,
                          box.left() + box.width() * 0.5, box.left() + box.width() * 0.73,
                          box.right()};
  const QColor panels[] = {QColor(222, 160, 62), QColor(238, 184, 88), QColor(228, 168, 70),
                           QColor(200, 136, 48)};
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < 4; ++i) {
    const double bow = box.width() * (i < 2 ? -0.02 : 0.02);
    QPainterPath panel;
    panel.moveTo(top);
    const auto rib = [&](double x) {
      return QPointF((top.x() + 2.6 * x) / 3.6 + (x - top.x()) * 0.16, box.top() + 110);
    };
    panel.quadTo(rib(edges[i]), QPointF(edges[i], rim));
    panel.quadTo(QPointF((edges[i] + edges[i + 1]) / 2 + bow, rim - 74),
                 QPointF(edges[i + 1], rim));
    panel.quadTo(rib(edges[i + 1]), top);
    painter.fillPath(panel, panels[i]);
  }
}

}  // namespace vellix::demo
