// What decoding may take: bytes, scans and pixels, of one picture and of all at once.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

#include "pictures/JpegMarks.hpp"
#include "pictures/PictureReading.hpp"
#include "pictures/QtPictureDecoder.hpp"
#include "pictures/pictures.hpp"
#include "platform/waiting.hpp"

namespace vellix {
namespace {

constexpr std::int64_t kMega = 1 << 20;
// Pixels of 400 by 200, of 800 by 400, and of an eighth of that.
constexpr std::int64_t kSmall = 80'000;
constexpr std::int64_t kLarge = 320'000;
constexpr std::int64_t kEighth = 5'000;

QByteArray progressive(const QImage& image) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, "jpg");
  writer.setProgressiveScanWrite(true);
  EXPECT_TRUE(writer.write(image));
  return buffer.data();
}

// The last scan of a progressive JPEG over and over, until there are so many.
QByteArray withScans(QByteArray jpeg, int scans) {
  const qsizetype last = jpeg.lastIndexOf("\xFF\xDA");
  const QByteArray scan = jpeg.sliced(last, jpeg.size() - 2 - last);
  while (jpegMarks(jpeg).scans < scans) jpeg.insert(jpeg.size() - 2, scan);
  return jpeg;
}

// A JPEG's frame and its scans' heads, with nothing in them.
QByteArray skeleton(char frame, const QByteArray& factors, const QList<int>& componentsOfScans) {
  const auto word = [](int value) {
    return QByteArray(1, char(value >> 8)) + QByteArray(1, char(value & 255));
  };
  const auto components = static_cast<int>(factors.size());
  QByteArray jpeg("\xFF\xD8\xFF");
  jpeg += frame + word(8 + 3 * components) + '\x08' + word(200) + word(100) + char(components);
  for (int i = 0; i < components; ++i) jpeg += QByteArray(1, char(i)) + factors[i] + '\0';
  for (const int count : componentsOfScans) {
    jpeg += QByteArray("\xFF\xDA") + word(6 + 2 * count) + char(count) +
            QByteArray(2 * count + 3, '\0') + QByteArray("\x12\xFF\x00\x34", 4);
  }
  return jpeg + QByteArray("\xFF\xD9");
}

TEST(JpegMarks, CountTheScansAndTheCoefficientsThatAreHeld) {
  struct Row {
    const char* why;
    QByteArray jpeg;
    int scans;
    std::int64_t bytes;
  };
  const Row rows[] = {
      {"colour in one scan", skeleton('\xC0', "\x22\x11\x11", {3}), 1, 0},
      {"gray in one scan", skeleton('\xC0', "\x11", {1}), 1, 0},
      {"a scan for each colour", skeleton('\xC1', "\x11\x11\x11", {1, 1, 1}), 3, 120'000},
      {"one that holds a colour back", skeleton('\xC0', "\x11\x11\x11", {1}), 1, 120'000},
      {"progressive", skeleton('\xC2', "\x11\x11\x11", {3, 1, 1, 1}), 4, 120'000},
      {"progressive, colours at a quarter", skeleton('\xC2', "\x22\x11\x11", {3}), 1, 60'000},
      {"progressive gray", skeleton('\xC2', "\x11", {1, 1}), 2, 40'000},
      {"progressive in another coding", skeleton('\xCA', "\x11", {1, 1}), 2, 40'000},
      {"factors of nothing", skeleton('\xC2', QByteArray("\0\0\0", 3), {3}), 1, 0},
  };
  for (const auto& row : rows) {
    const JpegMarks marks = jpegMarks(row.jpeg);
    EXPECT_EQ(marks.scans, row.scans) << row.why;
    EXPECT_EQ(marks.coefficientBytes, row.bytes) << row.why;
    EXPECT_TRUE(marks.whole) << row.why;
  }
}

TEST(JpegMarks, CountTheFrameThatIsHeldAndNotALaterOne) {
  const QByteArray large = skeleton('\xC2', "\x11\x11\x11", {3});
  const QByteArray small = skeleton('\xC2', "\x11", {1});
  EXPECT_EQ(jpegMarks(large.chopped(2) + small.sliced(2)).coefficientBytes, 120'000);
}

TEST(JpegMarks, HoldUpUnderACutAnywhere) {
  const QByteArray whole = progressive(testImage(60, 40));
  ASSERT_TRUE(jpegMarks(whole).whole);
  for (qsizetype size = 0; size < whole.size(); ++size) {
    EXPECT_FALSE(jpegMarks(whole.first(size)).whole) << size;
  }
}

class DecodingBounds : public testing::Test {
 protected:
  static PictureHandle pictureOf(const std::string& key, const QByteArray& bytes) {
    Picture picture = vellix::pictureOf(key, bytes.toStdString());
    const auto size = pictureSize(picture);
    if (!size) return nullptr;
    picture.width = size->width();
    picture.height = size->height();
    return std::make_shared<const Picture>(std::move(picture));
  }
  static QSize decoded(const QByteArray& bytes, std::int64_t budgetBytes, int reduction = 1) {
    DecodingBudget budget(budgetBytes);
    std::optional<DecodingBudget::Share> share;
    return decodePicture(bytes, reduction, budget, share).size();
  }
  static QByteArray png(const QImage& image) {
    return QByteArray::fromStdString(encodedAs("png", image));
  }
  static QByteArray jpeg(const QImage& image) {
    return QByteArray::fromStdString(encodedAs("jpg", image));
  }
};

TEST_F(DecodingBounds, TakeAsManyScansAsEncodersWriteAndNoMore) {
  const QByteArray usual = progressive(testImage(300, 400));
  EXPECT_EQ(jpegMarks(usual).scans, 10);
  EXPECT_EQ(decoded(usual, kMega), QSize(300, 400));
  EXPECT_EQ(decoded(withScans(usual, 32), kMega), QSize(300, 400));
  EXPECT_TRUE(decoded(withScans(usual, 33), kMega).isEmpty());
  EXPECT_TRUE(decoded(withScans(usual, 119), kMega, 8).isEmpty());
}

TEST_F(DecodingBounds, RefuseWhatIsTooLongEncoded) {
  const QByteArray small = jpeg(testImage(30, 40));
  const auto padded = [&](std::int64_t size) {
    return small + QByteArray(static_cast<qsizetype>(size) - small.size(), 'x');
  };
  EXPECT_TRUE(pictureOf("most", padded(32 * kMega)));
  EXPECT_FALSE(pictureOf("more", padded(32 * kMega + 1)));

  QTemporaryDir folder;
  QFile file(folder.filePath("a"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(padded(32 * kMega + 1));
  file.close();
  Picture onDisk;
  onDisk.file = file.fileName().toStdString();
  EXPECT_FALSE(pictureSize(onDisk));
  EXPECT_FALSE(encodedBytes(onDisk));
  ASSERT_TRUE(file.resize(32 * kMega));
  EXPECT_TRUE(pictureSize(onDisk));
  EXPECT_TRUE(encodedBytes(onDisk));
}

// A picture that cannot be decoded smaller than it is.
TEST_F(DecodingBounds, RefuseMorePixelsThanTheBudgetHas) {
  struct Row {
    const char* why;
    QByteArray bytes;
    std::int64_t least;  // what it takes
  };
  const QImage colour = testImage(400, 200);
  const auto as = [&](QImage::Format format) { return png(colour.convertToFormat(format)); };
  const Row rows[] = {
      {"as we hold it", as(QImage::Format_RGB32), kSmall * 4},
      {"gray, and then as we hold it", as(QImage::Format_Grayscale8), kSmall * 5},
      {"16 bits a colour", as(QImage::Format_RGBA64), kSmall * 12},
      {"WebP", QByteArray::fromStdString(encodedAs("webp", colour)), kSmall * 8},
  };
  for (const auto& row : rows) {
    for (const int reduction : kReductions) {
      EXPECT_FALSE(decoded(row.bytes, row.least, reduction).isEmpty()) << row.why << reduction;
      EXPECT_TRUE(decoded(row.bytes, row.least - 1, reduction).isEmpty()) << row.why << reduction;
    }
  }
}

TEST_F(DecodingBounds, GiveFewerPixelsOfAJpegThanWereAsked) {
  const QByteArray plain = jpeg(testImage(800, 400));
  EXPECT_EQ(decoded(plain, kLarge * 4), QSize(800, 400));
  EXPECT_EQ(decoded(plain, kLarge * 4 - 1), QSize(400, 200));
  EXPECT_EQ(decoded(plain, kSmall), QSize(200, 100));
  EXPECT_EQ(decoded(plain, kEighth * 4, 4), QSize(100, 50));
  EXPECT_TRUE(decoded(plain, kEighth * 4 - 1).isEmpty());
  // The coefficients are held whole at every scale.
  const QByteArray twice = progressive(testImage(800, 400));
  const std::int64_t held = jpegMarks(twice).coefficientBytes;
  EXPECT_GE(held, kLarge * 3);
  EXPECT_EQ(decoded(twice, held + kLarge * 4), QSize(800, 400));
  EXPECT_EQ(decoded(twice, held + kEighth * 4), QSize(100, 50));
  EXPECT_TRUE(decoded(twice, held + kEighth * 4 - 1).isEmpty());
}

TEST_F(DecodingBounds, CountUntilThePixelsHaveBeenUsed) {
  DecodingBudget budget(kMega);
  {
    std::optional<DecodingBudget::Share> share;
    EXPECT_FALSE(decodePicture(jpeg(testImage(400, 200)), 2, budget, share).isNull());
    EXPECT_EQ(budget.taken(), kSmall);
  }
  EXPECT_EQ(budget.taken(), 0);
}

TEST_F(DecodingBounds, AViewIsGivenTheMostPixelsThatThereMayBe) {
  PixelCache cache(16 * kMega, kSmall * 4);
  const auto picture = pictureOf("a", jpeg(testImage(800, 400)));
  ASSERT_TRUE(picture);
  QObject view;
  std::optional<Pixels> got;
  cache.requestPixels(picture, QSize(800, 400), &view, [&](const Pixels& pixels) { got = pixels; });
  ASSERT_TRUE(waitUntil([&] { return got.has_value(); }));
  EXPECT_EQ(got->image.size(), QSize(400, 200));
  EXPECT_EQ(got->whole, QSize(800, 400));
  EXPECT_EQ(cache.cachedPixels(*picture, QSize(800, 400)).image.size(), QSize(400, 200));
  EXPECT_EQ(cache.bytesHeld(), kSmall * 4) << "once";
}

TEST_F(DecodingBounds, PicturesThatFitOnlyOneAtATimeAllCome) {
  PixelCache cache(16 * kMega, kSmall * 4);
  QtPictureDecoder decoder(cache);
  std::vector<Pending<PictureHandle>> all;
  all.reserve(8);
  for (int i = 0; i < 8; ++i) {
    all.push_back(decoder.decode(
        vellix::pictureOf(std::to_string(i), png(testImage(400, 200)).toStdString())));
  }
  for (const auto& each : all) EXPECT_TRUE(await(each).value_or(nullptr));
}

TEST_F(DecodingBounds, AreFarFromRealPages) {
  QImage page(2000, 3000, QImage::Format_RGB32);
  page.fill(Qt::white);
  for (const QByteArray& bytes : {jpeg(page), progressive(page), png(page)}) {
    EXPECT_EQ(decoded(bytes, 64 * kMega), page.size()) << "two at once";
  }
}

TEST(DecodingBudget, IsOneForAllThatDecodeAtOnce) {
  DecodingBudget budget(100);
  std::atomic<int> inside = 0;
  std::atomic<int> most = 0;
  std::vector<std::thread> threads;
  for (const int share : {60, 50, 40, 100, 30, 70, 1, 99}) {
    threads.emplace_back([&, share] {
      for (int i = 0; i < 200; ++i) {
        const DecodingBudget::Share held(budget, share);
        const int now = inside += share;
        int before = most;
        while (before < now && !most.compare_exchange_weak(before, now)) {
        }
        std::this_thread::yield();
        inside -= share;
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_LE(most, 100);
  EXPECT_GE(most, 100) << "one of them takes it all";
}

}  // namespace
}  // namespace vellix
