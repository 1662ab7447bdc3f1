// What goes between the reader and the service.
#include <gtest/gtest.h>

#include <QIODevice>

#include "pdf_reading.hpp"

namespace vellix::demo {
namespace {

template <class Value>
QByteArray written(const Value& value) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  stream << value;
  return bytes;
}

template <class Value>
QDataStream::Status readInto(Value& value, const QByteArray& bytes) {
  QDataStream stream(bytes);
  stream >> value;
  return stream.status();
}

PdfReading sample() {
  PdfPage page{400, 300, {}, {360, 240}, {380, 280}, {"Gold", "Varnish"}, true};
  page.words = {{"Salt", {0.1, 0.2, 0.3, 0.4}, "Helvetica", 9},
                {"and", {0.5, 0.2, 0.1, 0.4}, "Times", 8.5},
                {"Pepper", {0.6, 0.2, 0.1, 0.4}, "Helvetica", 9}};
  return {PdfTrouble::none, 2, {page, {1, 2, {}}}};
}

TEST(PdfReadings, AreReadAsTheyWereWritten) {
  PdfReading read;
  ASSERT_EQ(readInto(read, written(sample())), QDataStream::Ok);
  EXPECT_EQ(read.trouble, PdfTrouble::none);
  EXPECT_EQ(read.count, 2);
  ASSERT_EQ(read.pages.size(), 2);
  const PdfPage& page = read.pages[0];
  EXPECT_EQ(page.width, 400);
  EXPECT_EQ(page.trim, QSizeF(360, 240));
  EXPECT_EQ(page.bleed, QSizeF(380, 280));
  EXPECT_EQ(page.inks, (std::vector<QString>{"Gold", "Varnish"}));
  EXPECT_TRUE(page.moreWords);
  EXPECT_FALSE(read.pages[1].moreWords);
  ASSERT_EQ(page.words.size(), 3);
  EXPECT_EQ(page.words[1].text, "and");
  EXPECT_EQ(page.words[1].box, QRectF(0.5, 0.2, 0.1, 0.4));
  EXPECT_EQ(page.words[1].font, "Times");
  EXPECT_EQ(page.words[1].size, 8.5);
  EXPECT_EQ(page.words[2].font, "Helvetica");
  EXPECT_EQ(page.words[2].font.constData(), page.words[0].font.constData()) << "kept once";
  EXPECT_EQ(page.words[2].text, "Pepper");
}

TEST(PdfReadings, KeepWhatManyWordsSayOnce) {
  PdfPage page{400, 300, {}};
  for (int i = 0; i < 100; ++i) {
    page.words.push_back({i % 2 == 0 ? QStringLiteral("salt") : QStringLiteral("road"), {}});
  }
  PdfPage read;
  ASSERT_EQ(readInto(read, written(page)), QDataStream::Ok);
  ASSERT_EQ(read.words.size(), 100);
  for (std::size_t i = 2; i < 100; ++i) {
    EXPECT_EQ(read.words[i].text, page.words[i].text);
    EXPECT_EQ(read.words[i].text.constData(), read.words[i - 2].text.constData());
  }
  EXPECT_EQ(read.words.capacity(), 100) << "no room for more than there are";
}

TEST(PdfReadings, AreDamagedWhenCutShortAnywhere) {
  const QByteArray whole = written(sample());
  for (qsizetype length = 0; length < whole.size(); ++length) {
    PdfReading read = sample();
    EXPECT_NE(readInto(read, whole.first(length)), QDataStream::Ok) << length;
    EXPECT_EQ(read.trouble, PdfTrouble::damaged) << length;
    EXPECT_TRUE(read.pages.empty()) << length;
  }
}

TEST(PdfReadings, AreDamagedWhenAnyByteIsAnother) {
  const QByteArray whole = written(sample());
  for (qsizetype place = 0; place < whole.size(); ++place) {
    QByteArray other = whole;
    other[place] = static_cast<char>(~other[place]);
    PdfReading read;
    const bool well = readInto(read, other) == QDataStream::Ok;
    EXPECT_EQ(read.pages.empty(), !well) << place;
  }
}

TEST(PdfReadings, OfSightsKeepThePicture) {
  PdfSight sight{QImage(13, 7, QImage::Format_RGB888), {{"EAN-13", "123", {0.1, 0.1, 0.2, 0.3}}}};
  sight.picture.fill(Qt::white);
  sight.picture.setPixelColor(12, 6, QColor(10, 20, 30));
  const QByteArray whole = written(sight);
  PdfSight read;
  ASSERT_EQ(readInto(read, whole), QDataStream::Ok);
  EXPECT_EQ(read.picture, sight.picture);
  ASSERT_EQ(read.barcodes.size(), 1);
  EXPECT_EQ(read.barcodes[0].digits, "123");
  for (qsizetype length = 0; length < whole.size(); ++length) {
    EXPECT_NE(readInto(read, whole.first(length)), QDataStream::Ok) << length;
    EXPECT_TRUE(read.picture.isNull()) << length;
  }
  QByteArray huge = whole;
  huge[0] = 0x7F;
  EXPECT_NE(readInto(read, huge), QDataStream::Ok);
}

}  // namespace
}  // namespace vellix::demo
