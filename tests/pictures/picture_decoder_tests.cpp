#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <QTemporaryDir>

#include "pictures/PictureReading.hpp"
#include "pictures/QtPictureDecoder.hpp"
#include "pictures/pictures.hpp"
#include "platform/waiting.hpp"

namespace vellix {
namespace {

class QtPictureDecoderTest : public testing::Test {
 protected:
  PictureHandle decoded(Picture picture) {
    const auto pending = decoder_.decode(std::move(picture));
    EXPECT_FALSE(pending.resolved());
    return await(pending).value_or(nullptr);
  }

  PixelCache cache_;
  QtPictureDecoder decoder_{cache_};
};

TEST_F(QtPictureDecoderTest, TakesThePageFormats) {
  for (const char* format : {"jpg", "png", "webp"}) {
    const auto picture = pictureOf(format, encodedAs(format, testImage(301, 203)));
    const auto known = decoder_.inspect(picture);
    ASSERT_TRUE(known.has_value()) << format;
    EXPECT_EQ(known->width, 301) << format;
    EXPECT_EQ(known->height, 203) << format;
    EXPECT_EQ(known->bytes, picture.bytes);
    const auto handle = decoded(picture);
    ASSERT_TRUE(handle) << format;
    EXPECT_EQ(*handle, *known);
    EXPECT_FALSE(cache_.cachedPixels(*handle, QSize(150, 101)).isNull()) << format;
  }
}

TEST_F(QtPictureDecoderTest, ReadsFromTheFileAndHoldsNoBytes) {
  QTemporaryDir folder;
  const auto bytes = encodedAs("png", testImage(40, 30));
  QFile file(folder.filePath("anything.txt"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray::fromStdString(bytes));
  file.close();
  Picture picture = pictureOf("k", bytes);
  picture.file = file.fileName().toStdString();
  const auto known = decoder_.inspect(picture);
  ASSERT_TRUE(known.has_value());
  EXPECT_EQ(known->width, 40);
  EXPECT_TRUE(known->bytes.empty());
  cache_.notePage({{40, 30}, PictureFit::within, {40, 40}});
  const auto handle = decoded(picture);
  ASSERT_TRUE(handle);
  EXPECT_TRUE(handle->bytes.empty());

  picture.file += "-gone";
  EXPECT_FALSE(decoder_.inspect(picture).has_value());
  picture.key = "other";
  EXPECT_FALSE(decoded(picture));
}

// Cut anywhere, even by one byte of what matters, it is told apart.
TEST_F(QtPictureDecoderTest, RefusesACutPicture) {
  for (const char* format : {"jpg", "png", "webp"}) {
    const auto whole = encodedAs(format, testImage(300, 400));
    ASSERT_TRUE(decoded(pictureOf("whole", whole)));
    for (const double share : {0.0, 0.001, 0.01, 0.1, 0.5, 0.9, 0.99}) {
      const auto size = static_cast<std::size_t>(double(whole.size()) * share);
      EXPECT_FALSE(decoded(pictureOf("cut", whole.substr(0, size)))) << format << share;
    }
    EXPECT_FALSE(decoded(pictureOf("cut", whole.substr(0, whole.size() - 20)))) << format;
  }
  const auto jpeg = encodedAs("jpg", testImage(300, 400));
  EXPECT_FALSE(decoded(pictureOf("cut", jpeg.substr(0, jpeg.size() - 1))));
  EXPECT_TRUE(decoded(pictureOf("trailing", jpeg + std::string(1000, 'x'))));
}

TEST_F(QtPictureDecoderTest, ATwiceCodedJpegIsWholeToo) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, "jpg");
  writer.setProgressiveScanWrite(true);
  ASSERT_TRUE(writer.write(testImage(300, 400)));
  const auto bytes = buffer.data().toStdString();
  EXPECT_TRUE(decoded(pictureOf("progressive", bytes)));
  EXPECT_FALSE(decoded(pictureOf("cut", bytes.substr(0, bytes.size() / 2))));
}

TEST_F(QtPictureDecoderTest, RefusesWhatIsNoPageFormat) {
  const std::string svg =
      "<?xml version=\"1.0\"?><svg xmlns=\"http://www.w3.org/2000/svg\" width=\"10\" "
      "height=\"10\"/>";
  std::vector<std::string> others = {"",
                                     "x",
                                     svg,
                                     "<html>502</html>",
                                     "%PDF-1.4\n",
                                     std::string("GIF89a\x01\x00\x01\x00", 10),
                                     std::string(100'000, '\0'),
                                     "\xFF\xD8\xFF",
                                     "\xFF\xD8\xFF\xE0garbage that goes on for a while",
                                     "\x89PNG\r\n\x1A\n",
                                     std::string("RIFF\x04\0\0\0WEBP", 12),
                                     "RIFFxxxxWEBPVP8 garbage garbage garbage"};
  for (const char* format : {"bmp", "tiff", "ico", "ppm"}) {
    others.push_back(encodedAs(format, testImage(16, 16)));
  }
  for (const auto& bytes : others) {
    EXPECT_FALSE(decoder_.inspect(pictureOf("k", bytes)).has_value()) << bytes.substr(0, 20);
    EXPECT_FALSE(decoded(pictureOf("k", bytes))) << bytes.substr(0, 20);
  }
  EXPECT_EQ(cache_.bytesHeld(), 0);
}

TEST_F(QtPictureDecoderTest, RefusesBombsByTheirHeader) {
  struct Row {
    unsigned width, height;
    bool accepted;
  };
  const Row rows[] = {{20'001, 1, false},      {1, 20'001, false},
                      {20'000, 1, true},       {10'000, 10'000, true},
                      {10'001, 10'000, false}, {65'535, 65'535, false},
                      {0x7FFFFFFF, 2, false},  {0x7FFFFFFF, 0x7FFFFFFF, false}};
  for (const auto& row : rows) {
    const auto picture = pictureOf("bomb", pngThatClaims(row.width, row.height));
    EXPECT_EQ(decoder_.inspect(picture).has_value(), row.accepted)
        << row.width << 'x' << row.height;
    EXPECT_FALSE(decoded(picture)) << row.width << 'x' << row.height;
  }
}

TEST_F(QtPictureDecoderTest, DamageInTheMiddleDoesNoHarm) {
  for (const char* format : {"jpg", "png", "webp"}) {
    const auto whole = encodedAs(format, testImage(120, 90));
    for (std::size_t at = 4; at < whole.size(); at += whole.size() / 60 + 1) {
      auto broken = whole;
      broken[at] = static_cast<char>(broken[at] ^ 0x5A);
      decoded(pictureOf("broken", broken));
    }
  }
}

TEST(PictureReading, HoldsTheSizeAsked) {
  DecodingBudget budget(1 << 24);
  std::optional<DecodingBudget::Share> share;
  for (const char* format : {"jpg", "png", "webp"}) {
    for (const QSize size : {QSize(800, 640), QSize(801, 643), QSize(7, 5), QSize(1, 1)}) {
      const auto bytes =
          QByteArray::fromStdString(encodedAs(format, testImage(size.width(), size.height())));
      for (const int reduction : kReductions) {
        const QImage image = decodePicture(bytes, reduction, budget, share);
        EXPECT_EQ(image.size(), reducedSize(size, reduction)) << format << reduction;
      }
    }
  }
}

TEST(PictureReading, ReducedPixelsShowTheSamePicture) {
  DecodingBudget budget(1 << 24);
  std::optional<DecodingBudget::Share> share;
  for (const char* format : {"jpg", "png", "webp"}) {
    const QImage source = testImage(803, 601);
    const auto bytes = QByteArray::fromStdString(encodedAs(format, source));
    for (const int reduction : kReductions) {
      const QImage image = decodePicture(bytes, reduction, budget, share);
      ASSERT_FALSE(image.isNull());
      for (const double at : {0.1, 0.5, 0.9}) {
        const QRgb pixel = image.pixel(int(at * image.width()), int(at * image.height()));
        EXPECT_NEAR(qRed(pixel), at * 255, 25) << format << reduction;
        EXPECT_NEAR(qGreen(pixel), at * 255, 25) << format << reduction;
      }
    }
  }
}

TEST(PictureReading, KeepsAlphaOnlyWhereThereIsSome) {
  DecodingBudget budget(1 << 24);
  std::optional<DecodingBudget::Share> share;
  const auto opaque = QByteArray::fromStdString(encodedAs("png", testImage(20, 20)));
  const auto clear = QByteArray::fromStdString(encodedAs("png", testImage(20, 20, true)));
  for (const int reduction : kReductions) {
    EXPECT_EQ(decodePicture(opaque, reduction, budget, share).format(), QImage::Format_RGB32);
    EXPECT_EQ(decodePicture(clear, reduction, budget, share).format(),
              QImage::Format_ARGB32_Premultiplied);
  }
}

TEST(PictureReading, PicksTheGreatestReductionThatIsEnough) {
  const QSize full(2000, 3001);
  EXPECT_EQ(reductionFor(full, {1, 1}), 8);
  EXPECT_EQ(reductionFor(full, {250, 375}), 8);
  EXPECT_EQ(reductionFor(full, {251, 375}), 4);
  EXPECT_EQ(reductionFor(full, {250, 376}), 4);
  EXPECT_EQ(reductionFor(full, {500, 750}), 4);
  EXPECT_EQ(reductionFor(full, {1000, 1500}), 2);
  EXPECT_EQ(reductionFor(full, {1001, 1500}), 1);
  EXPECT_EQ(reductionFor(full, {9000, 9000}), 1);
}

}  // namespace
}  // namespace vellix
