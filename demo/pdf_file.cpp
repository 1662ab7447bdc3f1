#include "pdf_file.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <functional>

#include "digest.hpp"
#include "pdf_process.hpp"

namespace vellix::demo {
namespace {

constexpr qint64 kMostOfAPicture = qint64{64} << 20;
constexpr int kPagesAtOnce = 25;
constexpr double kDotsPerPoint = 240.0 / 72;
constexpr int kMostAcross = 4000;
constexpr double kMostPixels = 6'000'000;

std::string excuse(QSize pixels) {
  QImage image(pixels, QImage::Format_RGB32);
  image.fill(QColor(252, 249, 241));
  QPainter painter(&image);
  QFont font(QStringLiteral("EB Garamond"));
  font.setItalic(true);
  font.setPixelSize(std::max(1, pixels.width() / 24));
  painter.setFont(font);
  painter.drawText(image.rect(), Qt::AlignCenter | Qt::TextWordWrap,
                   QStringLiteral("This page could not be drawn."));
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, "jpeg");
  writer.write(image);
  return bytes.toStdString();
}

// Asks once more where the reader was ended from without.
ReaderEnd ask(int file, const std::vector<std::string>& question, const Demand& demand,
              const std::function<void(QIODevice&)>& take) {
  const ReaderEnd end = askReader(file, question, demand, take);
  if (end != ReaderEnd::cut || demand.stop.stop_requested()) return end;
  return askReader(file, question, demand, take);
}

template <class Entry>
struct Range {
  std::vector<Entry> entries;
  ReaderEnd end = ReaderEnd::well;
};

// Asks for that range, and again for the rest where the reader's time ran out on the way.
template <class Entry>
Range<Entry> range(int file, const char* what, int from, int to, const Demand& demand) {
  std::vector<Entry> all;
  from = std::max(from, 0);
  const int begin = from;
  ReaderEnd end = ReaderEnd::well;
  for (bool again = false; from < to;) {
    const auto take = [&](QIODevice& answer) {
      QDataStream stream(&answer);
      for (Entry entry; from < to; ++from) {
        stream >> entry;
        if (stream.status() != QDataStream::Ok) return;
        all.push_back(std::move(entry));
      }
    };
    const int before = from;
    end = askReader(file, {what, std::to_string(from), std::to_string(to)}, demand, take);
    if (end == ReaderEnd::well) break;
    if (from > before) continue;
    if (end == ReaderEnd::failed || again || demand.stop.stop_requested()) break;
    again = true;
  }
  all.resize(static_cast<std::size_t>(from - begin));
  return {std::move(all), end};
}

}  // namespace

std::shared_ptr<const PdfFile> PdfFile::of(std::string_view bytes) {
  const int file = memfd_create("revision", MFD_CLOEXEC);
  if (file < 0) return nullptr;
  const std::shared_ptr<PdfFile> made(new PdfFile(file));
  made->tag_ = digestText(bytes);
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return nullptr;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return made;
}

std::shared_ptr<const PdfFile> PdfFile::at(const std::string& path) {
  // A pipe or a device of that name must hold up nobody.
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (file < 0) return nullptr;
  const std::shared_ptr<PdfFile> made(new PdfFile(file));
  struct stat told{};
  if (fstat(file, &told) != 0 || !S_ISREG(told.st_mode)) return nullptr;
  for (const auto number :
       {static_cast<qint64>(told.st_dev), static_cast<qint64>(told.st_ino),
        static_cast<qint64>(told.st_size), static_cast<qint64>(told.st_mtim.tv_sec),
        static_cast<qint64>(told.st_mtim.tv_nsec)}) {
    made->tag_ += std::to_string(number) + " ";
  }
  return made;
}

PdfFile::~PdfFile() { close(file_); }

PdfReading PdfFile::facts(const Demand& demand) const {
  PdfReading reading;
  const ReaderEnd end = ask(file_, {"facts"}, demand, [&](QIODevice& answer) {
    QDataStream stream(&answer);
    stream >> reading;
  });
  if (end == ReaderEnd::well) return reading;
  return {end == ReaderEnd::cut ? PdfTrouble::unread : PdfTrouble::damaged, 0, {}};
}

std::vector<PdfPage> PdfFile::pages(int from, int to, const Demand& demand) const {
  return range<PdfPage>(file_, "pages", from, to, demand).entries;
}

std::vector<PdfSight> PdfFile::sights(int from, int to, const Demand& demand) const {
  return range<PdfSight>(file_, "sights", from, to, demand).entries;
}

std::vector<QImage> PdfFile::sketches(int from, int to, const Demand& demand) const {
  return range<QImage>(file_, "sketches", from, to, demand).entries;
}

PdfReading PdfFile::read(const Demand& demand) const {
  PdfReading reading = facts(demand);
  if (reading.trouble != PdfTrouble::none) return reading;
  std::vector<PdfPage> all;
  std::size_t words = 0;
  for (int from = 0; from < reading.count; from += kPagesAtOnce) {
    const int to = std::min(reading.count, from + kPagesAtOnce);
    auto [read, end] = range<PdfPage>(file_, "pages", from, to, demand);
    for (PdfPage& page : read) {
      words += page.words.size();
      if (words > kMostWords) forgetWords(page);
      all.push_back(std::move(page));
    }
    if (std::ssize(all) < to) {
      reading.trouble = end == ReaderEnd::cut ? PdfTrouble::unread : PdfTrouble::damaged;
      break;
    }
  }
  reading.pages = std::move(all);
  return reading;
}

PdfPicture PdfFile::drawn(int page, QSize pixels, const Demand& demand) const {
  PdfPicture picture;
  const ReaderEnd end = ask(file_,
                            {"picture", std::to_string(page), std::to_string(pixels.width()),
                             std::to_string(pixels.height())},
                            demand, [&](QIODevice& answer) {
                              picture.jpeg = answer.read(kMostOfAPicture).toStdString();
                            });
  picture.drawn = end == ReaderEnd::well && !picture.jpeg.empty();
  if (picture.drawn) return picture;
  return {end == ReaderEnd::cut ? std::string() : excuse(pixels), false};
}

std::size_t PdfFile::size() const {
  struct stat told{};
  return fstat(file_, &told) == 0 ? static_cast<std::size_t>(told.st_size) : 0;
}

std::string PdfFile::piece(std::size_t from, std::size_t most) const {
  std::string all(std::min(most, size() - std::min(from, size())), '\0');
  std::size_t done = 0;
  while (done < all.size()) {
    const ssize_t got =
        pread(file_, all.data() + done, all.size() - done, static_cast<off_t>(from + done));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    done += static_cast<std::size_t>(got);
  }
  all.resize(done);
  return all;
}

QSize pixelsWithin(const PdfPage& page, int width, int height) {
  const double scale = std::min(width / page.width, height / page.height);
  return {std::max(1, static_cast<int>(std::lround(page.width * scale))),
          std::max(1, static_cast<int>(std::lround(page.height * scale)))};
}

QSize pixelsOf(const PdfPage& page) {
  const double wide = page.width * kDotsPerPoint;
  const double high = page.height * kDotsPerPoint;
  const double scale =
      std::min({1.0, kMostAcross / wide, kMostAcross / high, std::sqrt(kMostPixels / wide / high)});
  return pixelsWithin(page, static_cast<int>(std::ceil(wide * scale)),
                      static_cast<int>(std::ceil(high * scale)));
}

}  // namespace vellix::demo
