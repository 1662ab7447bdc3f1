#include "reader/sights.hpp"

#include <poppler-image.h>
#include <poppler-page-renderer.h>

#include <algorithm>
#include <cmath>

#include "reader/barcode_places.hpp"
#include "reader/barcodes.hpp"
#include "reader/document.hpp"

namespace vellix::demo {
namespace {

// How much larger a page is drawn where barcodes are read: an EAN at 80 % has bars of three pixels
// then.
constexpr int kCloser = 3;
// Two parts of a large page share so much, in pixels; it is more than a barcode has.
constexpr double kOverlap = 2.0 * kSightDots;
// Beyond that no page is searched: it is no sheet of paper.
constexpr double kMostOfASheet = 40e6;

// The part of the page in `part`, where the whole page has so many pixels.
QImage drawnPart(const poppler::page& page, QSizeF pixels, QRect part) {
  const QSizeF size = sizeOf(page);
  poppler::page_renderer renderer;
  renderer.set_render_hints(poppler::page_renderer::antialiasing |
                            poppler::page_renderer::text_antialiasing);
  renderer.set_image_format(poppler::image::format_rgb24);
  const poppler::image image = renderer.render_page(&page, 72 * pixels.width() / size.width(),
                                                    72 * pixels.height() / size.height(), part.x(),
                                                    part.y(), part.width(), part.height());
  if (!image.is_valid()) return {};
  return QImage(reinterpret_cast<const uchar*>(image.const_data()), image.width(), image.height(),
                image.bytes_per_row(), QImage::Format_RGB888)
      .copy();
}

QSizeF pixelsAt(QSizeF points, double dots) {
  return {std::max(1.0, std::round(points.width() * dots / 72)),
          std::max(1.0, std::round(points.height() * dots / 72))};
}

QSize within(QSizeF pixels, double most) {
  const double scale = std::min(1.0, std::sqrt(most / pixels.width() / pixels.height()));
  // A strip is as long as it may be, and a pixel wide.
  const auto side = [&](double length) {
    return static_cast<int>(std::clamp(std::floor(length * scale), 1.0, most));
  };
  const QSize size(side(pixels.width()), side(pixels.height()));
  const int longest = static_cast<int>(most) / std::min(size.width(), size.height());
  return size.boundedTo({longest, longest});
}

QImage grey(const QImage& image) { return image.convertToFormat(QImage::Format_Grayscale8); }

// Joins what was found in two parts of the page.
void add(std::vector<PdfBarcode>& codes, std::vector<PdfBarcode> more) {
  for (PdfBarcode& code : more) {
    const auto same = std::ranges::find_if(codes, [&](const PdfBarcode& known) {
      return known.kind == code.kind && known.digits == code.digits &&
             known.box.intersects(code.box);
    });
    if (same == codes.end()) {
      codes.push_back(std::move(code));
    } else {
      same->box |= code.box;
    }
  }
}

// In the part of the page whose picture that is, where the whole page has `pixels`.
void search(const poppler::page& page, QSizeF pixels, const QImage& picture, QPoint at,
            std::vector<PdfBarcode>& codes) {
  const QSizeF closer = pixels * kCloser;
  for (const QRect& place : barcodePlaces(grey(picture))) {
    const QRect part((place.topLeft() + at) * kCloser, place.size() * kCloser);
    std::vector<PdfBarcode> found = barcodesIn(grey(drawnPart(page, closer, part)));
    for (PdfBarcode& code : found) {
      const QRectF box = code.box.translated(part.topLeft());
      code.box = QRectF(box.x() / closer.width(), box.y() / closer.height(),
                        box.width() / closer.width(), box.height() / closer.height());
    }
    add(codes, std::move(found));
  }
}

// For a page whose picture is too coarse to tell where barcodes are.
std::vector<PdfBarcode> barcodesOfLarge(const poppler::page& page, QSizeF pixels) {
  std::vector<PdfBarcode> codes;
  if (pixels.width() * pixels.height() > kMostOfASheet) return codes;
  const double side = std::sqrt(kMostSightPixels);
  for (double y = 0; y == 0 || y + kOverlap < pixels.height(); y += side - kOverlap) {
    for (double x = 0; x == 0 || x + kOverlap < pixels.width(); x += side - kOverlap) {
      const QRect part =
          QRectF(x, y, std::min(side, pixels.width() - x), std::min(side, pixels.height() - y))
              .toAlignedRect();
      search(page, pixels, drawnPart(page, pixels, part), part.topLeft(), codes);
    }
  }
  return codes;
}

}  // namespace

QImage drawn(const poppler::page& page, QSize pixels) {
  return drawnPart(page, pixels, QRect(QPoint(0, 0), pixels));
}

QImage sketchOf(const poppler::page& page) {
  const QSizeF size = sizeOf(page);
  const double scale = kSketchSide / std::min(size.width(), size.height());
  const auto side = [&](double points) {
    return std::clamp(static_cast<int>(std::lround(points * scale)), 1, 4 * kSketchSide);
  };
  const QSize small(side(size.width()), side(size.height()));
  // Drawn larger and then scaled down, so that thin lines turn into an even grey.
  const QImage large = drawn(page, small * 3);
  return large.isNull()
             ? QImage()
             : grey(large.scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

PdfSight sightOf(const poppler::page& page) {
  const QSizeF pixels = pixelsAt(sizeOf(page), kSightDots);
  const QSize size = within(pixels, kMostSightPixels);
  PdfSight sight{drawn(page, size), {}};
  if (sight.picture.isNull()) return sight;
  if (size == pixels.toSize()) {
    search(page, pixels, sight.picture, {0, 0}, sight.barcodes);
  } else {
    sight.barcodes = barcodesOfLarge(page, pixels);
  }
  return sight;
}

}  // namespace vellix::demo
