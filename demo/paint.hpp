// Painting pages. Any thread.
#pragma once

#include <QImage>
#include <QPainter>

#include "page_art.hpp"

namespace vellix::demo {

// The colours of a book's cover.
struct Palette {
  QColor ground;
  QColor deep;
  QColor mid;
  QColor pale;
  QColor accent;
  QColor ink;
};
Palette paletteOf(const std::string& bookId);

// The page at `scale` times its own size, with its own pixels' coordinates.
QImage paintPage(const PageArt& page, double scale);
// The page in its own pixels, onto whatever the painter paints on.
void paintPage(QPainter& painter, const PageArt& page);

// The parts, in the pixels of a panel of kPageWidth by kPageHeight.
void paintTextPage(QPainter& painter, const TextPage& page, QPointF plateShift);
void paintFront(QPainter& painter, const PageArt& page);
void paintBack(QPainter& painter, const PageArt& page);
void paintFlaps(QPainter& painter, const PageArt& page);
void paintSpine(QPainter& painter, const PageArt& page, const QRectF& box);

// A cover's art over the whole panel; the picture in it is moved by `shift`, in pixels.
void paintArt(QPainter& painter, const std::string& bookId, QPointF shift);

// A drawing in ink for the head of a text page.
void paintPlate(QPainter& painter, const std::string& bookId, const QRectF& box);

}  // namespace vellix::demo
