// Reads one PDF for the demo service, in a process of its own: what comes from outside may be
// anything, and whatever it does to its reader, only the reader ends.
//
//   vellix_demo_pdf_reader facts <PDF           its pages without their words, as a PdfReading
//   vellix_demo_pdf_reader pages N M <PDF       pages N until before M, from 0, as PdfPages
//   vellix_demo_pdf_reader sights N M <PDF      the same as they look, as PdfSights
//   vellix_demo_pdf_reader sketches N M <PDF    the same, small and grey, as QImages
//   vellix_demo_pdf_reader picture N W H <PDF   page N as a JPEG of W by H pixels
#include <poppler-global.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QFile>
#include <QImageWriter>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "pdf_reading.hpp"
#include "reader/document.hpp"
#include "reader/prepress.hpp"
#include "reader/sights.hpp"
#include "reader/words.hpp"

namespace vellix::demo {
namespace {

constexpr rlim_t kMostMemory = rlim_t{1} << 30;
// Of the processor's time; on a busy machine it may last longer by the clock.
constexpr unsigned kMostSeconds = 20;
constexpr unsigned kMostSecondsForAPicture = 8;
constexpr unsigned kMostWaiting = 10;

void limitItself(unsigned seconds) {
  const auto limit = [](int what, rlim_t most, rlim_t more) {
    const rlimit both{most, most + more};
    setrlimit(what, &both);
  };
  limit(RLIMIT_AS, kMostMemory, 0);
  // The end at the first limit tells that it was the reader's own time; at the last it would not.
  limit(RLIMIT_CPU, seconds, 2);
  limit(RLIMIT_CORE, 0, 0);
  alarm(seconds * kMostWaiting);
}

PdfReading facts() {
  PdfReading reading;
  const PdfDocument document(poppler::document::load_from_file(kInput));
  if (!document) return reading;
  reading.trouble = PdfTrouble::locked;
  if (document->is_locked()) return reading;
  reading.count = document->pages();
  reading.trouble = PdfTrouble::empty;
  if (reading.count <= 0) return reading;
  reading.trouble = PdfTrouble::tooLong;
  if (reading.count > kMostPdfPages) return reading;
  Prepress prepress;
  reading.trouble = PdfTrouble::none;
  for (int i = 0; i < reading.count; ++i) {
    const std::unique_ptr<poppler::page> page(document->create_page(i));
    if (!page) {
      reading.trouble = PdfTrouble::damaged;
      break;
    }
    const QSizeF size = sizeOf(*page);
    PdfPage entry{size.width(), size.height(), {}};
    prepress.tell(i, entry);
    reading.pages.push_back(std::move(entry));
  }
  return reading;
}

int tellFacts(QFile& out) {
  QDataStream stream(&out);
  stream << facts();
  return out.flush() && stream.status() == QDataStream::Ok ? 0 : 1;
}

// Tells each page as soon as it is known: what comes after it may fail. `of` says nothing where it
// fails itself.
template <class Of>
int tellEach(QFile& out, int from, int to, const Of& of) {
  const PdfDocument document = readable();
  if (!document) return 1;
  QDataStream stream(&out);
  for (int i = std::max(0, from); i < std::min(to, document->pages()); ++i) {
    const std::unique_ptr<poppler::page> page(document->create_page(i));
    if (!page || !of(stream, *page, i)) return 1;
    if (!out.flush() || stream.status() != QDataStream::Ok) return 1;
  }
  return 0;
}

int tellPages(QFile& out, int from, int to) {
  Prepress prepress;
  return tellEach(out, from, to, [&](QDataStream& stream, const poppler::page& page, int index) {
    const QSizeF size = sizeOf(page);
    PdfPage entry{size.width(), size.height(), {}};
    tellWords(page, entry);
    prepress.tell(index, entry);
    stream << entry;
    return true;
  });
}

int tellSights(QFile& out, int from, int to) {
  return tellEach(out, from, to, [](QDataStream& stream, const poppler::page& page, int) {
    const PdfSight sight = sightOf(page);
    if (!sight.picture.isNull()) stream << sight;
    return !sight.picture.isNull();
  });
}

int tellSketches(QFile& out, int from, int to) {
  return tellEach(out, from, to, [](QDataStream& stream, const poppler::page& page, int) {
    const QImage sketch = sketchOf(page);
    if (!sketch.isNull()) stream << sketch;
    return !sketch.isNull();
  });
}

int tellPicture(QFile& out, int number, QSize pixels) {
  const PdfDocument document = readable();
  const std::unique_ptr<poppler::page> page(document ? document->create_page(number) : nullptr);
  const QImage image = page && !pixels.isEmpty() ? drawn(*page, pixels) : QImage();
  if (image.isNull()) return 1;
  QImageWriter writer(&out, "jpeg");
  writer.setQuality(90);
  return writer.write(image) && out.flush() ? 0 : 1;
}

}  // namespace
}  // namespace vellix::demo

int main(int argc, char** argv) {
  using namespace vellix::demo;
  const std::string_view what = argc > 1 ? argv[1] : "";
  const auto number = [&](int place) { return std::atoi(argv[place]); };
  limitItself(what == "picture" ? kMostSecondsForAPicture : kMostSeconds);
  poppler::set_debug_error_function([](const std::string&, void*) {}, nullptr);
  QFile out;
  if (!out.open(stdout, QIODevice::WriteOnly)) return 1;
  if (what == "facts" && argc == 2) return tellFacts(out);
  if (what == "pages" && argc == 4) return tellPages(out, number(2), number(3));
  if (what == "sights" && argc == 4) return tellSights(out, number(2), number(3));
  if (what == "sketches" && argc == 4) return tellSketches(out, number(2), number(3));
  if (what == "picture" && argc == 5) {
    return tellPicture(out, number(2), QSize(number(3), number(4)));
  }
  std::fputs(
      "usage: vellix_demo_pdf_reader facts | pages N M | sights N M | sketches N M |\n"
      "                              picture N WIDTH HEIGHT\n",
      stderr);
  return 2;
}
