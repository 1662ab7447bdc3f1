// Reads one PDF for the demo service, in a process of its own: what comes from outside may be
// anything, and whatever it does to its reader, only the reader ends.
//
//   vellix_demo_pdf_reader words <PDF           its pages and words, as a PdfReading
//   vellix_demo_pdf_reader picture N W H <PDF   page N, from 0, as a JPEG of W by H pixels
//   vellix_demo_pdf_reader sketches <PDF        all pages, small and grey, as QImages
#include <poppler-document.h>
#include <poppler-global.h>
#include <poppler-image.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string_view>

#include "art_changes.hpp"
#include "pdf_reading.hpp"

namespace vellix::demo {
namespace {

constexpr rlim_t kMostMemory = rlim_t{1} << 30;
// Of the processor's time; on a busy machine it may last longer by the clock.
constexpr unsigned kMostSeconds = 20;
constexpr unsigned kMostSecondsForAPicture = 8;
constexpr unsigned kMostWaiting = 3;
constexpr int kMostForSketches = 8;
constexpr std::size_t kMostWords = 400'000;
constexpr const char* kInput = "/proc/self/fd/0";

void limitItself(unsigned seconds) {
  const auto limit = [](int what, rlim_t most) {
    const rlimit both{most, most};
    setrlimit(what, &both);
  };
  limit(RLIMIT_AS, kMostMemory);
  limit(RLIMIT_CPU, seconds);
  limit(RLIMIT_CORE, 0);
  alarm(seconds * kMostWaiting);
}

// As shown, in points; a page without any is taken for a common one.
QSizeF sizeOf(const poppler::page& page) {
  const auto rect = page.page_rect();
  const QSizeF size(std::abs(rect.width()), std::abs(rect.height()));
  const auto turned = page.orientation();
  const bool lies = turned == poppler::page::landscape || turned == poppler::page::seascape;
  if (!(size.width() > 0 && size.height() > 0)) return {612, 792};
  return lies ? size.transposed() : size;
}

std::vector<PdfWord> wordsOf(const poppler::page& page, QSizeF size) {
  const QRectF whole(0, 0, 1, 1);
  const auto rounded = [](double value) { return std::round(value * 1e5) / 1e5; };
  std::vector<PdfWord> words;
  for (const auto& box : page.text_list()) {
    const auto utf8 = box.text().to_utf8();
    // Letters that were joined into one are letters again, so that a word reads the same however
    // it was set.
    QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()))
                       .normalized(QString::NormalizationForm_KC)
                       .trimmed();
    text.remove(QChar(0xAD));
    const auto at = box.bbox();
    const QRectF place = QRectF(at.x() / size.width(), at.y() / size.height(),
                                at.width() / size.width(), at.height() / size.height())
                             .normalized()
                             .intersected(whole);
    if (text.isEmpty() || place.isEmpty()) continue;  // what was cut off is not on the page
    words.push_back({text, QRectF(QPointF(rounded(place.left()), rounded(place.top())),
                                  QPointF(rounded(place.right()), rounded(place.bottom())))});
  }
  return words;
}

PdfReading read() {
  PdfReading reading;
  const std::unique_ptr<poppler::document> document(poppler::document::load_from_file(kInput));
  if (!document) return reading;
  reading.trouble = PdfTrouble::locked;
  if (document->is_locked()) return reading;
  reading.count = document->pages();
  reading.trouble = PdfTrouble::empty;
  if (reading.count <= 0) return reading;
  reading.trouble = PdfTrouble::tooLong;
  if (reading.count > kMostPdfPages) return reading;
  std::size_t words = 0;
  for (int i = 0; i < reading.count; ++i) {
    const std::unique_ptr<poppler::page> page(document->create_page(i));
    if (!page) {
      reading.trouble = PdfTrouble::damaged;
      return reading;
    }
    const QSizeF size = sizeOf(*page);
    PdfPage entry{size.width(), size.height(), {}};
    if (words < kMostWords) entry.words = wordsOf(*page, size);
    words += entry.words.size();
    reading.pages.push_back(std::move(entry));
  }
  reading.trouble = PdfTrouble::none;
  return reading;
}

int tell(const PdfReading& reading) {
  QFile out;
  if (!out.open(stdout, QIODevice::WriteOnly)) return 1;
  QDataStream stream(&out);
  stream << reading;
  return out.flush() && stream.status() == QDataStream::Ok ? 0 : 1;
}

// Null when it cannot be drawn.
QImage drawn(const poppler::page& page, int width, int height) {
  const QSizeF size = sizeOf(page);
  poppler::page_renderer renderer;
  renderer.set_render_hints(poppler::page_renderer::antialiasing |
                            poppler::page_renderer::text_antialiasing);
  renderer.set_image_format(poppler::image::format_rgb24);
  const poppler::image image = renderer.render_page(
      &page, 72 * width / size.width(), 72 * height / size.height(), 0, 0, width, height);
  if (!image.is_valid()) return {};
  return QImage(reinterpret_cast<const uchar*>(image.const_data()), image.width(), image.height(),
                image.bytes_per_row(), QImage::Format_RGB888)
      .copy();
}

int draw(int number, int width, int height) {
  const std::unique_ptr<poppler::document> document(poppler::document::load_from_file(kInput));
  if (!document || document->is_locked()) return 1;
  const std::unique_ptr<poppler::page> page(document->create_page(number));
  if (!page) return 1;
  const QImage image = drawn(*page, width, height);
  QFile out;
  if (image.isNull() || !out.open(stdout, QIODevice::WriteOnly)) return 1;
  QImageWriter writer(&out, "jpeg");
  writer.setQuality(90);
  return writer.write(image) && out.flush() ? 0 : 1;
}

int sketch() {
  const std::unique_ptr<poppler::document> document(poppler::document::load_from_file(kInput));
  QFile out;
  if (!document || document->is_locked() || !out.open(stdout, QIODevice::WriteOnly)) return 1;
  QDataStream stream(&out);
  for (int i = 0; i < document->pages(); ++i) {
    if (std::clock() > kMostForSketches * CLOCKS_PER_SEC) break;
    const std::unique_ptr<poppler::page> page(document->create_page(i));
    if (!page) break;
    const QSizeF size = sizeOf(*page);
    const double scale = kSketchSide / std::min(size.width(), size.height());
    const auto side = [&](double points) {
      return std::clamp(static_cast<int>(std::lround(points * scale)), 1, 4 * kSketchSide);
    };
    const QSize small(side(size.width()), side(size.height()));
    // Drawn larger and then scaled down, so that thin lines turn into an even grey.
    stream << drawn(*page, small.width() * 3, small.height() * 3)
                  .scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                  .convertToFormat(QImage::Format_Grayscale8);
  }
  return out.flush() ? 0 : 1;
}

}  // namespace
}  // namespace vellix::demo

int main(int argc, char** argv) {
  const std::string_view what = argc > 1 ? argv[1] : "";
  vellix::demo::limitItself(what == "picture" ? vellix::demo::kMostSecondsForAPicture
                                              : vellix::demo::kMostSeconds);
  poppler::set_debug_error_function([](const std::string&, void*) {}, nullptr);
  if (what == "words" && argc == 2) return vellix::demo::tell(vellix::demo::read());
  if (what == "picture" && argc == 5) {
    return vellix::demo::draw(std::atoi(argv[2]), std::max(1, std::atoi(argv[3])),
                              std::max(1, std::atoi(argv[4])));
  }
  if (what == "sketches" && argc == 2) return vellix::demo::sketch();
  std::fputs("usage: vellix_demo_pdf_reader words | picture N WIDTH HEIGHT | sketches\n", stderr);
  return 2;
}
