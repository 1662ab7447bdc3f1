#include "pdf_reading.hpp"

namespace vellix::demo {

QDataStream& operator<<(QDataStream& stream, const PdfReading& reading) {
  stream << static_cast<qint32>(reading.trouble) << static_cast<qint32>(reading.count)
         << static_cast<qint32>(reading.pages.size());
  for (const PdfPage& page : reading.pages) {
    stream << page.width << page.height << static_cast<qint32>(page.words.size());
    for (const PdfWord& word : page.words) stream << word.text << word.box;
  }
  return stream;
}

QDataStream& operator>>(QDataStream& stream, PdfReading& reading) {
  qint32 trouble = 0;
  qint32 count = 0;
  qint32 pages = 0;
  stream >> trouble >> count >> pages;
  reading = {};
  PdfReading read{static_cast<PdfTrouble>(trouble), count, {}};
  for (qint32 i = 0; i < pages && stream.status() == QDataStream::Ok; ++i) {
    PdfPage page;
    qint32 words = 0;
    stream >> page.width >> page.height >> words;
    for (qint32 w = 0; w < words && stream.status() == QDataStream::Ok; ++w) {
      stream >> page.words.emplace_back().text >> page.words.back().box;
    }
    read.pages.push_back(std::move(page));
  }
  if (stream.status() == QDataStream::Ok) reading = std::move(read);
  return stream;
}

}  // namespace vellix::demo
