// From a file of a person's own to the photo that they are seen by.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <vector>

#include "pictures/PhotoMaking.hpp"
#include "pictures/PictureReading.hpp"
#include "pictures/QtPhotos.hpp"
#include "pictures/pictures.hpp"
#include "platform/MemoryPeak.hpp"
#include "platform/waiting.hpp"

namespace vellix {
namespace {

namespace fs = std::filesystem;

// A picture of one colour: in four inks, as printers have it, cyan and black without, magenta at
// three quarters, yellow at its full.
const char* const kFourInks =
    "ffd8ffee000e41646f626500640000000000ffdb0043000101010101010101010101010101010101010101010101"
    "0101010101010101010101010101010101010101010101010101010101010101010101010101010101ffc00014"
    "0800080008044311004d11005911004b1100ffc4001500010100000000000000000000000000000a0bffc40014"
    "100100000000000000000000000000000000ffda000e0443004d0059004b00003f007f03fe9ff9fc3fffd9";

QByteArray encoded(const char* format, const QImage& image) {
  return QByteArray::fromStdString(encodedAs(format, image));
}

// Left of the middle red, right of it blue, in the upper half; below lighter ones of each.
QImage quarters(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.fillRect(0, 0, width / 2, height / 2, Qt::red);
  painter.fillRect(width / 2, 0, width - width / 2, height / 2, Qt::blue);
  painter.fillRect(0, height / 2, width / 2, height - height / 2, Qt::yellow);
  painter.fillRect(width / 2, height / 2, width - width / 2, height - height / 2, Qt::green);
  return image;
}

class PhotoTest : public testing::Test {
 protected:
  static PhotoResult made(const QByteArray& bytes, std::int64_t budgetBytes = kMostDecoding) {
    DecodingBudget budget(budgetBytes);
    return makePhoto(bytes, budget);
  }
  // What the service gets, decoded.
  static QImage photoOf(const QByteArray& bytes) {
    const auto photo = made(bytes);
    EXPECT_TRUE(photo.has_value());
    if (!photo) return QImage(1, 1, QImage::Format_RGB32);
    auto jpeg = QByteArray::fromStdString(*photo);
    QBuffer buffer(&jpeg);
    QImageReader reader(&buffer, "jpeg");
    EXPECT_EQ(reader.imageFormat(), QImage::Format_RGB32) << "in colours";
    QImage image = reader.read();
    EXPECT_EQ(image.size(), QSize(kPhotoSide, kPhotoSide));
    return image;
  }
  static void expectColour(const QImage& image, double x, double y, QColor wanted) {
    const QColor seen = image.pixelColor(int(x * image.width()), int(y * image.height()));
    const std::string where = std::to_string(x) + ", " + std::to_string(y);
    EXPECT_NEAR(seen.red(), wanted.red(), 12) << where;
    EXPECT_NEAR(seen.green(), wanted.green(), 12) << where;
    EXPECT_NEAR(seen.blue(), wanted.blue(), 12) << where;
  }
};

TEST(CentredSquare, IsAsLargeAsFitsWithHalvesCutTowardZero) {
  struct Row {
    QSize whole;
    QRect square;
  };
  const Row rows[] = {
      {{1000, 400}, {300, 0, 400, 400}},
      {{400, 1000}, {0, 300, 400, 400}},
      {{300, 300}, {0, 0, 300, 300}},
      {{1001, 400}, {300, 0, 400, 400}},
      {{400, 1001}, {0, 300, 400, 400}},
      {{2, 1}, {0, 0, 1, 1}},
      {{1, 2}, {0, 0, 1, 1}},
      {{3, 2}, {0, 0, 2, 2}},
      {{4, 1}, {1, 0, 1, 1}},
      {{1, 1}, {0, 0, 1, 1}},
      {{20'000, 1}, {9'999, 0, 1, 1}},
      {{5, 2}, {1, 0, 2, 2}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(centredSquare(row.whole), row.square)
        << row.whole.width() << 'x' << row.whole.height();
  }
}

TEST_F(PhotoTest, IsTheSquareInTheMiddle) {
  for (const char* format : {"jpg", "png", "webp"}) {
    for (const bool wide : {true, false}) {
      QImage image(wide ? QSize(1000, 400) : QSize(400, 1000), QImage::Format_RGB32);
      image.fill(Qt::green);
      QPainter(&image).drawImage(wide ? QPoint(300, 0) : QPoint(0, 300), quarters(400, 400));
      const QImage photo = photoOf(encoded(format, image));
      expectColour(photo, 0.03, 0.03, Qt::red);
      expectColour(photo, 0.97, 0.03, Qt::blue);
      expectColour(photo, 0.03, 0.97, Qt::yellow);
      expectColour(photo, 0.47, 0.47, Qt::red);
      expectColour(photo, 0.53, 0.47, Qt::blue);
    }
  }
}

TEST_F(PhotoTest, IsScaledUpAsWellAsDown) {
  for (const char* format : {"jpg", "png", "webp"}) {
    for (const QSize size : {QSize(300, 300), QSize(512, 512), QSize(16, 16), QSize(1030, 1030),
                             QSize(4000, 3000), QSize(3001, 4001)}) {
      const QImage photo = photoOf(encoded(format, quarters(size.width(), size.height())));
      expectColour(photo, 0.2, 0.2, Qt::red);
      expectColour(photo, 0.8, 0.2, Qt::blue);
      expectColour(photo, 0.2, 0.8, Qt::yellow);
    }
  }
  QImage dot(1, 1, QImage::Format_RGB32);
  dot.fill(Qt::red);
  for (const double at : {0.0, 0.5, 0.99})
    expectColour(photoOf(encoded("png", dot)), at, at, Qt::red);
}

// One line of eight is white: whoever looks at a few pixels only sees it or misses it.
TEST_F(PhotoTest, CountsEveryPixelWhereItBecomesSmaller) {
  QImage lines(4096, 4096, QImage::Format_RGB32);
  lines.fill(Qt::black);
  for (int y = 3; y < lines.height(); y += 8) {
    std::fill_n(reinterpret_cast<QRgb*>(lines.scanLine(y)), lines.width(), 0xFFFFFFFFU);
  }
  for (const char* format : {"png", "jpg"}) {
    const QImage photo = photoOf(encoded(format, lines));
    for (int y = 100; y < 116; ++y) EXPECT_NEAR(qGray(photo.pixel(256, y)), 32, 8) << format << y;
  }
}

TEST_F(PhotoTest, StandsTheRightWayUp) {
  struct Row {
    QImageIOHandler::Transformation how;
    QColor first;  // in the corner that is first as it is stored, at the place it is shown
    double x, y;
  };
  const Row rows[] = {{QImageIOHandler::TransformationNone, Qt::red, 0.1, 0.1},
                      {QImageIOHandler::TransformationMirror, Qt::red, 0.9, 0.1},
                      {QImageIOHandler::TransformationRotate180, Qt::red, 0.9, 0.9},
                      {QImageIOHandler::TransformationFlip, Qt::red, 0.1, 0.9},
                      {QImageIOHandler::TransformationRotate90, Qt::red, 0.9, 0.1},
                      {QImageIOHandler::TransformationRotate270, Qt::red, 0.1, 0.9}};
  for (const auto& row : rows) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpg");
    writer.setTransformation(row.how);
    // Wider than high: the square is cut out of what is shown.
    QImage wide(800, 400, QImage::Format_RGB32);
    wide.fill(Qt::white);
    QPainter(&wide).drawImage(200, 0, quarters(400, 400));
    ASSERT_TRUE(writer.write(wide));
    expectColour(photoOf(buffer.data()), row.x, row.y, row.first);
  }
}

TEST_F(PhotoTest, LiesOnWhiteWhereThePictureIsTransparent) {
  for (const char* format : {"png", "webp"}) {
    QImage image(600, 600, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.fillRect(0, 0, 300, 600, Qt::red);
    painter.fillRect(300, 300, 300, 300, QColor(0, 0, 255, 128));
    painter.end();
    const QImage photo = photoOf(encoded(format, image));
    expectColour(photo, 0.2, 0.5, Qt::red);
    expectColour(photo, 0.8, 0.2, Qt::white);
    expectColour(photo, 0.8, 0.8, QColor(127, 127, 255));
  }
}

TEST_F(PhotoTest, HasTheColoursThatEverybodyShows) {
  QImage image(600, 600, QImage::Format_RGB32);
  image.fill(QColor(200, 100, 50));
  for (const auto space : {QColorSpace::AdobeRgb, QColorSpace::DisplayP3}) {
    image.setColorSpace(space);
    QImage wanted = image.copy(0, 0, 1, 1);
    wanted.convertToColorSpace(QColorSpace::SRgb);
    ASSERT_NE(wanted.pixel(0, 0), image.pixel(0, 0));
    for (const char* format : {"png", "jpg"}) {
      const QImage photo = photoOf(encoded(format, image));
      expectColour(photo, 0.5, 0.5, wanted.pixelColor(0, 0));
      EXPECT_FALSE(photo.colorSpace().isValid() && photo.colorSpace() != QColorSpace::SRgb);
    }
  }
}

TEST_F(PhotoTest, IsMadeOfEveryKindOfPixels) {
  const QImage source = quarters(600, 600);
  for (const auto format :
       {QImage::Format_RGBA64, QImage::Format_Indexed8, QImage::Format_RGB888}) {
    const QImage photo = photoOf(encoded("png", source.convertToFormat(format)));
    expectColour(photo, 0.2, 0.2, Qt::red);
    expectColour(photo, 0.8, 0.2, Qt::blue);
  }
  for (const char* kind : {"png", "jpg"}) {
    const QImage gray = source.convertToFormat(QImage::Format_Grayscale8);
    expectColour(photoOf(encoded(kind, gray)), 0.2, 0.2, gray.pixelColor(0, 0));
  }
}

TEST_F(PhotoTest, IsMadeOfAPictureInFourInks) {
  expectColour(photoOf(QByteArray::fromHex(kFourInks)), 0.5, 0.5, QColor(255, 64, 0));
}

TEST_F(PhotoTest, TellsNothingElseOfTheFile) {
  QImage image = quarters(600, 600);
  image.setText("Comment", "taken at home");
  image.setDotsPerMeterX(1234);
  for (const char* format : {"png", "jpg"}) {
    const auto photo = made(encoded(format, image));
    ASSERT_TRUE(photo);
    EXPECT_EQ(photo->find("taken at home"), std::string::npos);
  }
}

// As large as its quality makes it.
TEST_F(PhotoTest, IsPressedAtEightyFive) {
  const auto source = encoded("png", testImage(kPhotoSide, kPhotoSide));
  QImage same;
  ASSERT_TRUE(same.loadFromData(source));
  const auto pressed = [&same](int quality) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    same.save(&buffer, "jpeg", quality);
    return static_cast<std::size_t>(buffer.data().size());
  };
  const auto photo = made(source);
  ASSERT_TRUE(photo);
  EXPECT_GT(photo->size(), pressed(84));
  EXPECT_LT(photo->size(), pressed(86));
}

TEST_F(PhotoTest, IsNotMadeOfWhatIsBroken) {
  for (const char* format : {"jpg", "png", "webp"}) {
    const auto whole = encoded(format, testImage(300, 400));
    for (const double share : {0.1, 0.5, 0.99}) {
      const auto result = made(whole.first(qsizetype(double(whole.size()) * share)));
      ASSERT_FALSE(result) << format << share;
      EXPECT_EQ(result.error(), PhotoFailure::notMade) << format << share;
    }
  }
  for (const QByteArray& bytes :
       {QByteArray("\xFF\xD8\xFF"), QByteArray("\xFF\xD8\xFF\xE0garbage"),
        QByteArray("\x89PNG\r\n\x1A\n"), QByteArray("RIFF\x04\0\0\0WEBP", 12),
        QByteArray("\0\0\0\x18"
                   "ftypheic\0\0\0\0mif1heic",
                   24),
        QByteArray("\0\0\0\x18"
                   "ftypmif1\0\0\0\0mif1heic",
                   24)}) {
    const auto result = made(bytes);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error(), PhotoFailure::notMade) << bytes.toHex().toStdString();
  }
}

TEST_F(PhotoTest, IsNotLoadedFromWhatIsNoPicture) {
  for (const QByteArray& bytes :
       {QByteArray(), QByteArray("x"), QByteArray("%PDF-1.4\n"), QByteArray("<html>"),
        QByteArray(100'000, '\0'),
        QByteArray("\0\0\0\x18"
                   "ftypmp42\0\0\0\0mp42isom",
                   24),
        QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>"),
        encoded("bmp", testImage(20, 20)), encoded("tiff", testImage(20, 20))}) {
    const auto result = made(bytes);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error(), PhotoFailure::notLoaded) << bytes.first(20).toHex().toStdString();
  }
}

TEST_F(PhotoTest, IsNotMadeOfMoreThanThereMayBe) {
  const auto bomb = [](unsigned width, unsigned height) {
    return QByteArray::fromStdString(pngThatClaims(width, height));
  };
  for (const auto& bytes : {bomb(20'001, 1), bomb(10'001, 10'000), bomb(10'000, 10'000),
                            bomb(0x7FFFFFFF, 0x7FFFFFFF)}) {
    const auto result = made(bytes);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error(), PhotoFailure::notMade);
  }
  const auto large = encoded("png", testImage(800, 600));
  constexpr std::int64_t kNeeded = std::int64_t{800} * 600 * 4;
  EXPECT_TRUE(made(large, kNeeded));
  EXPECT_EQ(made(large, kNeeded - 1), PhotoResult(std::unexpected(PhotoFailure::notMade)));
}

TEST_F(PhotoTest, IsMadeOfAHundredMegapixelsInLittleMemory) {
  const QByteArray large = [] {
    QImage image(10'000, 10'000, QImage::Format_Grayscale8);
    image.fill(100);
    for (int y = 0; y < 5'000; ++y) std::fill_n(image.scanLine(y), 10'000, uchar{200});
    return encoded("jpg", image);
  }();
  const MemoryPeak peak;
  const QImage photo = photoOf(large);
  EXPECT_LT(peak.kilobytes(), 48 * 1'024);
  expectColour(photo, 0.5, 0.2, QColor(200, 200, 200));
  expectColour(photo, 0.5, 0.8, QColor(100, 100, 100));
}

class PhotoFile : public testing::Test {
 protected:
  std::string at(const std::string& name) const {
    return folder_.path().toStdString() + '/' + name;
  }
  std::string write(const std::string& name, const QByteArray& bytes) const {
    std::ofstream(at(name), std::ios::binary) << bytes.toStdString();
    return at(name);
  }
  PhotoResult made(const std::string& path) {
    const auto pending = photos_.make(path);
    EXPECT_FALSE(pending.resolved()) << "only in a later turn";
    const auto result = await(pending);
    EXPECT_TRUE(result) << path;
    return result.value_or(std::unexpected(PhotoFailure::notMade));
  }
  QTemporaryDir folder_;
  QtPhotos photos_;
};

TEST_F(PhotoFile, IsToldByItsContentAndNotItsName) {
  const auto picture = encoded("png", testImage(60, 40));
  for (const char* name : {"me.png", "me.jpg", "me.txt", "me", "燈台.png", "\xff\xfe.png"}) {
    EXPECT_TRUE(made(write(name, picture))) << name;
    fs::remove(at(name));
  }
}

TEST_F(PhotoFile, IsNotLoadedWhereThereIsNone) {
  ASSERT_EQ(::mkfifo(at("pipe").c_str(), 0600), 0);
  const auto small = encoded("jpg", testImage(60, 40));
  const auto padded = [&small](std::int64_t size) {
    return small + QByteArray(static_cast<qsizetype>(size) - small.size(), 'x');
  };
  EXPECT_TRUE(made(write("most.jpg", padded(kMostPhoto))));
  for (const auto& path :
       {at("missing"), at(""), at("pipe"), std::string("/dev/zero"), std::string(),
        write("text.jpg", "no picture"), write("empty.jpg", "")}) {
    EXPECT_EQ(made(path), PhotoResult(std::unexpected(PhotoFailure::notLoaded))) << path;
  }
  EXPECT_EQ(made(write("large.jpg", padded(kMostPhoto + 1))),
            PhotoResult(std::unexpected(PhotoFailure::notMade)));
}

TEST_F(PhotoFile, IsNotMadeWhereItIsBroken) {
  const auto picture = encoded("jpg", testImage(300, 400));
  EXPECT_EQ(made(write("cut.jpg", picture.chopped(500))),
            PhotoResult(std::unexpected(PhotoFailure::notMade)));
}

TEST(PhotosEnd, DoesNotWaitForWhatIsBeingMade) {
  std::vector<Pending<PhotoResult>> making;
  {
    QtPhotos photos;
    for (int i = 0; i < 5; ++i) making.push_back(photos.make("/proc/self/exe"));
  }
  QCoreApplication::processEvents();
  for (const auto& one : making) EXPECT_FALSE(one.resolved());
}

}  // namespace
}  // namespace vellix
