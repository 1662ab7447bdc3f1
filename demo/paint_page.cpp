#include "paint.hpp"

#include <algorithm>

namespace vellix::demo {

QImage paintPage(const PageArt& page, double scale) {
  const QSize full = sizeOf(page);
  const QSize size(std::max(1, static_cast<int>(full.width() * scale + 0.5)),
                   std::max(1, static_cast<int>(full.height() * scale + 0.5)));
  QImage image(size, QImage::Format_RGB32);
  image.fill(QColor(252, 249, 241));
  QPainter painter(&image);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                         QPainter::SmoothPixmapTransform);
  painter.scale(scale, scale);
  paintPage(painter, page);
  return image;
}

void paintPage(QPainter& painter, const PageArt& page) {
  switch (page.kind) {
    case PageKind::text:
      paintTextPage(painter, page.text,
                    {page.pictureShift.x() * kPageWidth, page.pictureShift.y() * kPageHeight});
      break;
    case PageKind::front:
      paintFront(painter, page);
      break;
    case PageKind::back:
      paintBack(painter, page);
      break;
    case PageKind::flaps:
      paintFlaps(painter, page);
      break;
    case PageKind::jacket: {
      const double panel = kPageWidth * kJacketScale;
      painter.save();
      painter.scale(kJacketScale, kJacketScale);
      painter.setClipRect(QRectF(0, 0, kPageWidth, kPageHeight));
      paintBack(painter, page);
      painter.restore();
      painter.save();
      painter.translate(panel + kSpine, 0);
      painter.scale(kJacketScale, kJacketScale);
      painter.setClipRect(QRectF(0, 0, kPageWidth, kPageHeight));
      paintFront(painter, page);
      painter.restore();
      paintSpine(painter, page, QRectF(panel, 0, kSpine, 1515));
      break;
    }
  }
}

}  // namespace vellix::demo
