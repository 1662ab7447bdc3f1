// Pages painted in a test: drawings, photographs and words, as a reader would tell of them.
#pragma once

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <random>

#include "check/compared.hpp"

namespace vellix::demo {

// Letter paper at kSightDots; all places are in pixels.
class PaintedPage {
 public:
  explicit PaintedPage(QSize size = {850, 1100}) {
    sight_.picture = QImage(size, QImage::Format_RGB888);
    sight_.picture.fill(Qt::white);
    page_.width = size.width() * 72.0 / kSightDots;
    page_.height = size.height() * 72.0 / kSightDots;
  }
  // Everything that is painted from now on lies so far aside.
  PaintedPage& aside(double x, double y) {
    aside_ = {x, y};
    return *this;
  }
  PaintedPage& rect(const QRectF& place, QColor colour) {
    return paint([&](QPainter& painter) { painter.fillRect(place, colour); });
  }
  PaintedPage& frame(const QRectF& place, QColor colour, double thick = 2) {
    return paint([&](QPainter& painter) {
      painter.setPen(QPen(colour, thick));
      painter.drawRect(place);
      painter.drawLine(place.topLeft(), place.bottomRight());
      painter.drawEllipse(place.center(), place.width() / 4, place.height() / 4);
    });
  }
  // Soft shapes; another seed is another photograph.
  PaintedPage& photo(const QRectF& place, unsigned seed) {
    return paint([&](QPainter& painter) {
      painter.setClipRect(place);
      painter.fillRect(place, QColor(110, 120, 90));
      painter.setPen(Qt::NoPen);
      std::mt19937 random(seed);
      const auto part = [&](double most) {
        return static_cast<double>(random() % 1000) / 1000 * most;
      };
      for (int i = 0; i < 60; ++i) {
        painter.setBrush(QColor(static_cast<int>(part(255)), static_cast<int>(part(255)),
                                static_cast<int>(part(255)), 170));
        const double size = 8 + part(50);
        painter.drawEllipse(place.topLeft() + QPointF(part(place.width()), part(place.height())),
                            size, size * 0.7);
      }
    });
  }
  // A word as strokes that are as wide and thick as letters, in the text layer as well.
  PaintedPage& word(const QString& text, double x, double y, QColor ink = Qt::black) {
    const double high = 14;
    paint([&](QPainter& painter) {
      painter.setPen(QPen(ink, 1.6));
      for (qsizetype i = 0; i < text.size(); ++i) {
        const double left = x + 1 + 8.0 * static_cast<double>(i);
        const int code = text[i].unicode();
        painter.drawLine(QPointF(left, y + 3), QPointF(left, y + high - 3));
        if (code % 2 == 0) painter.drawArc(QRectF(left, y + 5, 5, 6), 0, 16 * 360);
        if (code % 3 == 0) painter.drawLine(QPointF(left, y + 4), QPointF(left + 5, y + 4));
        if (code % 5 < 3) painter.drawLine(QPointF(left, y + 7), QPointF(left + 5, y + 10));
      }
    });
    const QSizeF size = sight_.picture.size();
    page_.words.push_back(
        {text,
         {(x + aside_.x()) / size.width(), (y + aside_.y()) / size.height(),
          8.0 * static_cast<double>(text.size()) / size.width(), high / size.height()},
         "Serif",
         10});
    return *this;
  }
  PaintedPage& line(const QString& words, double x, double y, QColor ink = Qt::black) {
    for (const QString& each : words.split(u' ')) {
      word(each, x, y, ink);
      x += 8.0 * static_cast<double>(each.size()) + 5;
    }
    return *this;
  }
  PaintedPage& barcode(const QString& digits, const QRectF& place, bool drawn = true) {
    if (drawn) {
      for (int i = 0; i < static_cast<int>(place.width()); i += 4 + i % 3) {
        rect({place.x() + i, place.y(), 2, place.height()}, Qt::black);
      }
    }
    const QSizeF size = sight_.picture.size();
    if (!digits.isEmpty()) {
      sight_.barcodes.push_back({"EAN-13",
                                 digits,
                                 {place.x() / size.width(), place.y() / size.height(),
                                  place.width() / size.width(), place.height() / size.height()}});
    }
    return *this;
  }

  PdfSight sight() const { return sight_; }
  PdfPage page() const { return page_; }
  PdfPage& page() { return page_; }

 private:
  template <class Draw>
  PaintedPage& paint(Draw draw) {
    QPainter painter(&sight_.picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(aside_);
    draw(painter);
    return *this;
  }

  PdfSight sight_;
  PdfPage page_;
  QPointF aside_;
};

// Two pages that are partners; all of it lives as long as this.
struct PaintedPair {
  std::vector<PdfPage> proof, reference;
  Partners partners{Partner{0, 1}};
  Pair pair{proof, reference, partners, "submitted", "our file"};

  PaintedPair(const PaintedPage& now, const PaintedPage& then)
      : proof{now.page()}, reference{then.page()} {}
  PaintedPair(const PaintedPair&) = delete;
  PaintedPair& operator=(const PaintedPair&) = delete;
};

}  // namespace vellix::demo
