#include "pdf_reading.hpp"

#include <QHash>
#include <algorithm>

namespace vellix::demo {
namespace {

QDataStream& operator<<(QDataStream& stream, const PdfBarcode& code) {
  return stream << code.kind << code.digits << code.box;
}

QDataStream& operator>>(QDataStream& stream, PdfBarcode& code) {
  return stream >> code.kind >> code.digits >> code.box;
}

// More than these makes no sense, whoever says so.
constexpr qint32 kMostOfAnything = 1 << 20;

// How many follow; 0 where the stream is broken.
qint32 countIn(QDataStream& stream) {
  qint32 count = 0;
  stream >> count;
  if (count < 0 || count > kMostOfAnything) stream.setStatus(QDataStream::ReadCorruptData);
  return stream.status() == QDataStream::Ok ? count : 0;
}

template <class Entry>
void tell(QDataStream& stream, const std::vector<Entry>& entries) {
  stream << static_cast<qint32>(entries.size());
  for (const Entry& entry : entries) stream << entry;
}

template <class Entry>
void take(QDataStream& stream, std::vector<Entry>& entries) {
  const qint32 count = countIn(stream);
  for (qint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
    stream >> entries.emplace_back();
  }
}

// Each text once, so that all words that say the same share it, and a whole book's its fonts.
class Texts {
 public:
  qint32 placeOf(const QString& text) {
    const auto known = places_.constFind(text);
    if (known != places_.cend()) return *known;
    all_.push_back(text);
    return *places_.insert(text, static_cast<qint32>(all_.size() - 1));
  }
  const std::vector<QString>& all() const { return all_; }

 private:
  QHash<QString, qint32> places_;
  std::vector<QString> all_;
};

}  // namespace

QDataStream& operator<<(QDataStream& stream, const PdfPage& page) {
  stream << page.width << page.height << page.trim << page.bleed << page.moreWords;
  tell(stream, page.inks);
  Texts texts;
  std::vector<std::pair<qint32, qint32>> places;
  places.reserve(page.words.size());
  for (const PdfWord& word : page.words) {
    places.emplace_back(texts.placeOf(word.text), texts.placeOf(word.font));
  }
  tell(stream, texts.all());
  stream << static_cast<qint32>(page.words.size());
  for (std::size_t i = 0; i < page.words.size(); ++i) {
    stream << places[i].first << page.words[i].box << page.words[i].size << places[i].second;
  }
  return stream;
}

QDataStream& operator>>(QDataStream& stream, PdfPage& page) {
  page = {};
  PdfPage read;
  stream >> read.width >> read.height >> read.trim >> read.bleed >> read.moreWords;
  take(stream, read.inks);
  std::vector<QString> texts;
  take(stream, texts);
  const auto named = [&](qint32 place) {
    if (place >= 0 && place < std::ssize(texts)) return texts[static_cast<std::size_t>(place)];
    stream.setStatus(QDataStream::ReadCorruptData);
    return QString();
  };
  const qint32 words = countIn(stream);
  read.words.reserve(std::min(static_cast<std::size_t>(words), kMostWordsOfAPage));
  for (qint32 i = 0; i < words && stream.status() == QDataStream::Ok; ++i) {
    PdfWord& word = read.words.emplace_back();
    qint32 text = 0;
    qint32 font = 0;
    stream >> text >> word.box >> word.size >> font;
    word.text = named(text);
    word.font = named(font);
  }
  // What is not larger than nothing cannot be shown.
  if (!(read.width > 0 && read.height > 0)) stream.setStatus(QDataStream::ReadCorruptData);
  if (stream.status() == QDataStream::Ok) page = std::move(read);
  return stream;
}

QDataStream& operator<<(QDataStream& stream, const PdfReading& reading) {
  stream << static_cast<qint32>(reading.trouble) << static_cast<qint32>(reading.count);
  tell(stream, reading.pages);
  return stream;
}

QDataStream& operator>>(QDataStream& stream, PdfReading& reading) {
  reading = {};
  qint32 trouble = 0;
  qint32 count = 0;
  stream >> trouble >> count;
  if (trouble < 0 || trouble > static_cast<qint32>(PdfTrouble::tooLong)) {
    stream.setStatus(QDataStream::ReadCorruptData);
  }
  PdfReading read{static_cast<PdfTrouble>(trouble), count, {}};
  take(stream, read.pages);
  if (stream.status() == QDataStream::Ok) reading = std::move(read);
  return stream;
}

QDataStream& operator<<(QDataStream& stream, const PdfSight& sight) {
  stream << static_cast<qint32>(sight.picture.width())
         << static_cast<qint32>(sight.picture.height());
  for (int y = 0; y < sight.picture.height(); ++y) {
    stream.writeRawData(reinterpret_cast<const char*>(sight.picture.constScanLine(y)),
                        sight.picture.width() * 3);
  }
  tell(stream, sight.barcodes);
  return stream;
}

QDataStream& operator>>(QDataStream& stream, PdfSight& sight) {
  sight = {};
  qint32 width = 0;
  qint32 height = 0;
  stream >> width >> height;
  if (width <= 0 || height <= 0 || width > kMostSightPixels / height) {
    stream.setStatus(QDataStream::ReadCorruptData);
    return stream;
  }
  PdfSight read{QImage(width, height, QImage::Format_RGB888), {}};
  if (read.picture.isNull()) stream.setStatus(QDataStream::ReadCorruptData);
  for (int y = 0; y < read.picture.height(); ++y) {
    char* row = reinterpret_cast<char*>(read.picture.scanLine(y));
    if (stream.readRawData(row, width * 3) != width * 3) {
      stream.setStatus(QDataStream::ReadPastEnd);
      return stream;
    }
  }
  take(stream, read.barcodes);
  if (stream.status() == QDataStream::Ok) sight = std::move(read);
  return stream;
}

}  // namespace vellix::demo
