#include "reader/document.hpp"

#include <cmath>

namespace vellix::demo {

PdfDocument readable() {
  PdfDocument document(poppler::document::load_from_file(kInput));
  if (document && document->is_locked()) document.reset();
  return document;
}

QSizeF sizeOf(const poppler::page& page) {
  const auto rect = page.page_rect();
  const QSizeF size(std::abs(rect.width()), std::abs(rect.height()));
  const auto turned = page.orientation();
  const bool lies = turned == poppler::page::landscape || turned == poppler::page::seascape;
  if (!(size.width() > 0 && size.height() > 0)) return {612, 792};
  return lies ? size.transposed() : size;
}

}  // namespace vellix::demo
