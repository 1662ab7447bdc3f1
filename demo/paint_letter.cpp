#include <QPainterPath>
#include <cmath>

#include "paint.hpp"

namespace vellix::demo {

void paintLetterArt(QPainter& painter, QPointF shift);

void paintLetterArt(QPainter& painter, QPointF shift) {
  const Palette p = paletteOf("letter");
  QLinearGradient ground(0, 0, 0, kPageHeight);
  ground.setColorAt(0, QColor(96, 50, 88));
  ground.setColorAt(1, QColor(56, 26, 54));
  painter.fillRect(QRectF(0, 0, kPageWidth, kPageHeight), ground);
  const QRectF box = panelBox(PageKind::front, "letter", Element::picture).translated(shift);

  // The letter itself: a strip that leaves the envelope and winds off the cover.
  constexpr int kSteps = 150;
  const auto centreline = [&](double t) {
    return QPointF(720 + 470 * std::sin(t * 7.3 + 0.35) * (0.25 + t), 1290 - t * 430);
  };
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < kSteps; ++i) {
    const double t = i / static_cast<double>(kSteps);
    const double u = (i + 1.4) / static_cast<double>(kSteps);
    const QPointF a = centreline(t);
    const QPointF b = centreline(u);
    const double slope = std::cos(t * 7.3 + 0.35);
    const QColor tone = slope > 0 ? QColor(250, 240, 228) : QColor(226, 206, 204);
    painter.setBrush(tone);
    painter.drawPolygon(QPolygonF({{a.x() - 12, a.y() - 52},
                                   {b.x() - 12, b.y() - 52},
                                   {b.x() + 12, b.y() + 52},
                                   {a.x() + 12, a.y() + 52}}));
  }
  for (const double line : {-26.0, 0.0, 26.0}) {
    QPainterPath writing;
    for (int i = 0; i <= 900; ++i) {
      const double t = i / 900.0;
      const QPointF at = centreline(t);
      const double wobble = std::sin(t * 640 + line) * 5 + std::sin(t * 270) * 3;
      const QPointF point(at.x() + line * 0.2, at.y() + line + wobble);
      const bool gap = std::fmod(t * 61 + line, 1.0) < 0.16;
      if (i == 0 || gap) {
        writing.moveTo(point);
      } else {
        writing.lineTo(point);
      }
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(92, 48, 86, 170), 2.4));
    painter.drawPath(writing);
  }

  // The envelope in front of it.
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(30, 12, 28, 90));
  painter.drawRoundedRect(box.translated(14, 22), 12, 12);
  painter.setBrush(QColor(236, 200, 186));
  painter.drawRoundedRect(box, 12, 12);
  painter.setBrush(QColor(224, 180, 168));
  painter.drawPolygon(QPolygonF({box.topLeft() + QPointF(6, 6), box.center() + QPointF(0, 40),
                                 box.bottomLeft() + QPointF(6, -6)}));
  painter.drawPolygon(QPolygonF({box.topRight() + QPointF(-6, 6), box.center() + QPointF(0, 40),
                                 box.bottomRight() + QPointF(-6, -6)}));
  painter.setBrush(QColor(244, 214, 198));
  painter.drawPolygon(QPolygonF({box.bottomLeft() + QPointF(8, -4), box.center() + QPointF(0, -20),
                                 box.bottomRight() + QPointF(-8, -4)}));
  painter.setBrush(p.accent);
  painter.drawEllipse(box.center() + QPointF(0, 24), 74, 74);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(160, 46, 52), 5));
  painter.drawEllipse(box.center() + QPointF(0, 24), 56, 56);
  QFont seal = fontOf(Face::italic);
  seal.setPixelSize(80);
  painter.setFont(seal);
  painter.setPen(QColor(150, 40, 46));
  painter.drawText(QRectF(box.center() - QPointF(60, 44), QSizeF(120, 130)), Qt::AlignCenter,
                   QStringLiteral("A"));
}

}  // namespace vellix::demo
