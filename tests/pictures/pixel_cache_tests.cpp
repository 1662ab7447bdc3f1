#include "pictures/PixelCache.hpp"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <optional>

#include "pictures/QtPictureDecoder.hpp"
#include "pictures/pictures.hpp"
#include "platform/waiting.hpp"

namespace vellix {
namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 200;
constexpr std::int64_t kFull = std::int64_t{4} * kWidth * kHeight;

PictureHandle handle(const std::string& key, int width = kWidth, int height = kHeight) {
  Picture picture = pictureOf(key, encodedAs("jpg", testImage(width, height)));
  picture.width = width;
  picture.height = height;
  return std::make_shared<const Picture>(std::move(picture));
}

class PixelCacheTest : public testing::Test {
 protected:
  static QImage request(PixelCache& cache, const PictureHandle& picture, const PictureRoom& shown) {
    QObject context;
    std::optional<Pixels> got;
    cache.requestPixels(picture, shown, &context, [&got](const Pixels& pixels) { got = pixels; });
    EXPECT_FALSE(got.has_value());
    EXPECT_TRUE(waitUntil([&got] { return got.has_value(); }));
    return got.value_or(Pixels()).image;
  }
};

TEST_F(PixelCacheTest, MakesExactlyThePixelsShownAndDecodesOnce) {
  PixelCache cache;
  const auto picture = handle("a");
  EXPECT_TRUE(cache.cachedPixels(*picture, QSize(100, 50)).isNull());
  for (const QSize shown : {QSize(100, 50), QSize(90, 45), QSize(77, 39), QSize(61, 200)}) {
    const QImage image = request(cache, picture, shown);
    EXPECT_EQ(image.size(), exactSize({kWidth, kHeight}, shown));
    const Pixels atHand = cache.cachedPixels(*picture, shown);
    EXPECT_EQ(atHand.image.cacheKey(), image.cacheKey());
    EXPECT_EQ(atHand.whole, QSize(kWidth, kHeight));
    EXPECT_TRUE(isExact(atHand, shown));
  }
  EXPECT_EQ(cache.decodesStarted(), 1);
}

TEST_F(PixelCacheTest, NeverMakesMorePixelsThanThePictureHas) {
  PixelCache cache;
  EXPECT_EQ(request(cache, handle("a"), QSize(4000, 4000)).size(), QSize(kWidth, kHeight));
  EXPECT_EQ(cache.bytesHeld(), kFull);
}

TEST_F(PixelCacheTest, GivesTheBestAtHand) {
  PixelCache cache;
  const auto picture = handle("a");
  request(cache, picture, QSize(90, 45));
  request(cache, picture, QSize(88, 44));  // of 100 by 50
  const auto width = [&](QSize shown) { return cache.cachedPixels(*picture, shown).image.width(); };
  EXPECT_EQ(width({90, 45}), 90);
  EXPECT_EQ(width({89, 45}), 90) << "enough";
  EXPECT_EQ(width({95, 48}), 100);
  EXPECT_EQ(width({300, 150}), 100) << "the most there are";
  request(cache, picture, QSize(400, 200));
  EXPECT_EQ(width({300, 150}), 400);
  EXPECT_EQ(width({900, 900}), 400);
  EXPECT_EQ(width({20, 10}), 88) << "the fewest that are enough";
  EXPECT_TRUE(cache.cachedPixels(*handle("b"), QSize(90, 45)).isNull());
}

// However the pixels of each came about.
TEST_F(PixelCacheTest, EqualPicturesHaveEqualPixels) {
  PixelCache cache;
  for (const char* format : {"jpg", "png"}) {
    std::vector<PictureHandle> pictures;
    for (const char* key : {"one", "other", "ahead"}) {
      Picture picture =
          pictureOf(std::string(key) + format, encodedAs(format, testImage(800, 600)));
      picture.width = 800;
      picture.height = 600;
      pictures.push_back(std::make_shared<const Picture>(std::move(picture)));
    }
    for (const QSize before : {QSize(800, 600), QSize(300, 300)})
      request(cache, pictures[0], before);
    request(cache, pictures[1], QSize(100, 100));
    cache.notePage({{333, 250}, PictureFit::within, {333, 333}});
    await(QtPictureDecoder(cache).decode(*pictures[2]));
    for (const QSize shown : {QSize(333, 250), QSize(500, 375), QSize(140, 105), QSize(800, 600)}) {
      const QImage image = request(cache, pictures[0], shown);
      EXPECT_EQ(request(cache, pictures[1], shown), image) << format << shown.width();
      EXPECT_EQ(request(cache, pictures[2], shown), image) << format << shown.width();
    }
  }
}

TEST_F(PixelCacheTest, SmallTypeIsAveragedAndKeepsItsTone) {
  // Lines as fine as the pixels: what skips pixels shows stripes, or nothing at all.
  QImage lines(600, 600, QImage::Format_RGB32);
  for (int y = 0; y < 600; ++y) {
    for (int x = 0; x < 600; ++x) lines.setPixel(x, y, x % 2 ? qRgb(255, 255, 255) : qRgb(0, 0, 0));
  }
  Picture picture = pictureOf("lines", encodedAs("png", lines));
  picture.width = picture.height = 600;
  PixelCache cache;
  const QImage image = request(cache, std::make_shared<const Picture>(picture), QSize(211, 211));
  for (int x = 1; x < 210; ++x) EXPECT_NEAR(qGreen(image.pixel(x, 100)), 127, 48) << x;
}

TEST_F(PixelCacheTest, ExtremeShapesAreShownWhole) {
  PixelCache cache;
  for (const QSize whole : {QSize(100, 2000), QSize(2000, 100), QSize(1, 400), QSize(400, 1)}) {
    const std::string key = "shape" + std::to_string(whole.width());
    const QImage image =
        request(cache, handle(key, whole.width(), whole.height()), QSize(450, 675));
    EXPECT_EQ(image.size(), exactSize(whole, QSize(450, 675))) << key;
    EXPECT_FALSE(image.isNull());
  }
}

// The turn of the loop that asks is over long before the pixels are there.
TEST_F(PixelCacheTest, AHugePictureHoldsNothingUp) {
  PixelCache cache;
  const auto huge = handle("huge", 5000, 7000);
  QObject context;
  bool done = false;
  cache.requestPixels(huge, QSize(900, 900), &context, [&done](const Pixels&) { done = true; });
  EXPECT_FALSE(done);
  int turns = 0;
  EXPECT_TRUE(waitUntil([&] { return ++turns, done; }));
  EXPECT_GT(turns, 3) << "the loop went on meanwhile";
  EXPECT_EQ(cache.cachedPixels(*huge, QSize(900, 900)).image.size(), QSize(643, 900));
}

TEST_F(PixelCacheTest, EqualRequestsShareOneDecode) {
  PixelCache cache;
  const auto picture = handle("a");
  QObject context;
  int told = 0;
  for (int i = 0; i < 10; ++i) {
    cache.requestPixels(picture, QSize{200, 100}, &context, [&told](const Pixels& pixels) {
      EXPECT_FALSE(pixels.isNull());
      ++told;
    });
  }
  ASSERT_TRUE(waitUntil([&told] { return told == 10; }));
  EXPECT_EQ(cache.decodesStarted(), 1);
}

TEST_F(PixelCacheTest, AContextThatIsGoneIsNotCalled) {
  PixelCache cache;
  const auto picture = handle("a");
  auto gone = std::make_unique<QObject>();
  QObject stays;
  bool calledGone = false;
  bool calledStays = false;
  cache.requestPixels(picture, QSize(200, 100), gone.get(),
                      [&](const Pixels&) { calledGone = true; });
  cache.requestPixels(picture, QSize(200, 100), &stays, [&](const Pixels&) { calledStays = true; });
  gone.reset();
  ASSERT_TRUE(waitUntil([&calledStays] { return calledStays; }));
  EXPECT_FALSE(calledGone);

  gone = std::make_unique<QObject>();
  calledStays = false;
  cache.requestPixels(picture, QSize(200, 100), gone.get(),
                      [&](const Pixels&) { calledGone = true; });
  cache.requestPixels(picture, QSize(200, 100), &stays, [&](const Pixels&) { calledStays = true; });
  gone.reset();
  ASSERT_TRUE(waitUntil([&calledStays] { return calledStays; }));
  EXPECT_FALSE(calledGone);
}

// Someone leafs through thirty pages: only the last of them is still to be shown.
TEST_F(PixelCacheTest, MakesNothingForWhoHasGoneOn) {
  PixelCache cache;
  QObject context;
  int told = 0;
  int made = 0;
  std::unique_ptr<QObject> reader;
  std::vector<PictureHandle> pages;
  for (int i = 0; i < 30; ++i) {
    pages.push_back(handle("page" + std::to_string(i), 800, 1200));
    reader = std::make_unique<QObject>();
    cache.requestPixels(
        pages.back(), QSize(200, 300), &context,
        [&](const Pixels& pixels) {
          ++told;
          made += !pixels.isNull();
        },
        reader.get());
  }
  ASSERT_TRUE(waitUntil([&] { return told == 30; }));
  EXPECT_LE(cache.decodesStarted(), 3) << "two were under way";
  EXPECT_LE(made, 3);
  EXPECT_GE(made, 1);
  // Who comes back begins anew.
  EXPECT_FALSE(request(cache, pages[10], QSize(200, 300)).isNull());
}

TEST_F(PixelCacheTest, ServesTheViewThatAskedLastBeforeWhatCameBefore) {
  PixelCache cache;
  QObject context;
  std::vector<int> order;
  for (int i = 0; i < 12; ++i) {
    cache.decodeWhole(handle("ahead" + std::to_string(i), 800, 1200),
                      [&order](const Pixels&) { order.push_back(0); });
  }
  // So many that a thread which is held up for a while still ends its first before the other its
  // last.
  constexpr int kViews = 12;
  for (int view = 1; view <= kViews; ++view) {
    cache.requestPixels(handle("view" + std::to_string(view), 800, 1200), QSize(200, 300), &context,
                        [&order, view](const Pixels&) { order.push_back(view); });
  }
  ASSERT_TRUE(waitUntil([&order] { return order.size() == 12 + kViews; }));
  const auto place = [&order](int what) { return std::ranges::find(order, what) - order.begin(); };
  EXPECT_LT(place(kViews), place(1)) << "the last first";
  EXPECT_LE(place(1), kViews + 4) << "two were under way";
}

// An edge near the right border lies in the same place whatever the pixels of the file.
TEST_F(PixelCacheTest, EqualPagesOfOtherPixelSizesAndFormatsRegister) {
  PixelCache cache;
  const auto edge = [&](QSize size, const char* format) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    const int from = qRound(size.width() * 0.95);
    for (int y = 0; y < size.height(); ++y) {
      for (int x = from; x < size.width(); ++x) image.setPixel(x, y, qRgb(0, 0, 0));
    }
    Picture picture = pictureOf(format + std::to_string(size.width()), encodedAs(format, image));
    picture.width = size.width();
    picture.height = size.height();
    const QImage shown = request(cache, std::make_shared<const Picture>(picture), QSize(200, 300));
    double white = 0;
    for (int x = 0; x < shown.width(); ++x) white += qGreen(shown.pixel(x, 150)) / 255.0;
    return white - 0.95 * shown.width() + (from * 1.0 / size.width() - 0.95) * -shown.width();
  };
  for (const char* format : {"jpg", "png"}) {
    for (const QSize size : {QSize(2000, 3000), QSize(2007, 3011), QSize(1000, 1500)}) {
      EXPECT_NEAR(edge(size, format), 0, 0.3) << format << size.width();
    }
  }
}

TEST_F(PixelCacheTest, KeepsItsBudgetAndDropsTheLeastRecentlyUsed) {
  PixelCache cache(kFull * 3);
  const auto a = handle("a");
  const auto b = handle("b");
  const auto c = handle("c");
  for (const auto& one : {a, b, c}) request(cache, one, QSize(kWidth, kHeight));
  EXPECT_EQ(cache.bytesHeld(), kFull * 3);
  EXPECT_FALSE(cache.cachedPixels(*a, QSize(kWidth, kHeight)).isNull());
  request(cache, handle("d"), QSize(kWidth, kHeight));
  EXPECT_EQ(cache.bytesHeld(), kFull * 3);
  EXPECT_FALSE(cache.cachedPixels(*a, QSize(kWidth, kHeight)).isNull());
  EXPECT_TRUE(cache.cachedPixels(*b, QSize(kWidth, kHeight)).isNull());
  for (int i = 0; i < 20; ++i) {
    request(cache, handle("many" + std::to_string(i)), QSize(kWidth, kHeight));
    EXPECT_LE(cache.bytesHeld(), kFull * 3);
  }
}

TEST_F(PixelCacheTest, OneThatIsLargerThanTheBudgetIsGivenButNotKept) {
  PixelCache cache(kFull - 1);
  const auto small = handle("small", 20, 20);
  request(cache, small, QSize(20, 20));
  EXPECT_FALSE(request(cache, handle("a"), QSize(kWidth, kHeight)).isNull());
  EXPECT_FALSE(cache.cachedPixels(*small, QSize(20, 20)).isNull());
  EXPECT_EQ(cache.bytesHeld(), 20 * 20 * 4);
}

TEST_F(PixelCacheTest, WhatDoesNotDecodeIsToldAsNull) {
  PixelCache cache;
  Picture broken = *handle("a");
  broken.bytes.resize(broken.bytes.size() / 2);
  EXPECT_TRUE(request(cache, std::make_shared<const Picture>(broken), QSize(400, 200)).isNull());
  broken.bytes.clear();
  broken.file = "/nonexistent/file";
  EXPECT_TRUE(request(cache, std::make_shared<const Picture>(broken), QSize(400, 200)).isNull());
  EXPECT_EQ(cache.bytesHeld(), 0);
}

TEST_F(PixelCacheTest, OneThatIsShownAtOneSizeIsHeldAtThatSizeAlone) {
  PixelCache cache(kFull);
  request(cache, handle("a"), QSize(150, 75));
  EXPECT_EQ(cache.bytesHeld(), 4 * 150 * 75);
}

// Somebody zooms: the sizes that follow the second one need no decoding.
TEST_F(PixelCacheTest, AReductionOfWhatIsResizedServesOtherSizesUntilItIsDropped) {
  PixelCache cache(kFull);
  const auto picture = handle("a");
  request(cache, picture, QSize(150, 75));
  request(cache, picture, QSize(140, 70));
  EXPECT_EQ(cache.bytesHeld(), 4 * (200 * 100 + 150 * 75 + 140 * 70));
  EXPECT_EQ(cache.decodesStarted(), 2);
  request(cache, picture, QSize(130, 65));
  EXPECT_EQ(cache.decodesStarted(), 2);
}

// The open page has another shape than those that come, and each of them another.
TEST_F(PixelCacheTest, APageDecodedAheadIsExactInTheRoomThatPagesAreShownIn) {
  PixelCache cache;
  QtPictureDecoder decoder(cache);
  const QSizeF room(902.4, 1203.5);
  const auto shownAt = [&room](QSize whole) { return roomOnPage(whole, room); };
  cache.notePage(shownAt({2000, 3000}));
  cache.notePage(QSize(100, 150));  // a thumbnail says nothing about pages

  for (const QSize whole :
       {QSize(2000, 3000), QSize(2008, 3012), QSize(3000, 2000), QSize(60, 90), QSize(100, 2000)}) {
    const auto key = std::to_string(whole.width());
    const auto arrived = await(decoder.decode(*handle(key, whole.width(), whole.height())));
    ASSERT_TRUE(arrived.has_value() && *arrived);
    const Pixels atHand = cache.cachedPixels(**arrived, shownAt(whole));
    EXPECT_TRUE(isExact(atHand, shownAt(whole))) << key;
  }
}

// The program starts with a ticket at hand: its pages lie on the disk before any has a room.
TEST_F(PixelCacheTest, APageOnTheDiskIsDecodedAheadOnceThereIsARoomForPages) {
  const QTemporaryDir folder;
  Picture page = *handle("next");
  page.file = folder.filePath("next").toStdString();
  QFile file(folder.filePath("next"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(page.bytes.data(), static_cast<qint64>(page.bytes.size()));
  file.close();
  PixelCache cache;
  int told = 0;
  cache.decodeWhole(std::make_shared<const Picture>(page), [&](const Pixels&) { ++told; });
  QTest::qWait(0);
  EXPECT_EQ(cache.decodesStarted(), 0);
  cache.notePage({{100, 50}, PictureFit::within, {100, 100}});
  cache.notePage({{300, 150}, PictureFit::within, {300, 300}});
  ASSERT_TRUE(waitUntil([&told] { return told == 1; }));
  EXPECT_EQ(cache.decodesStarted(), 1);
  EXPECT_EQ(cache.bytesHeld(), 4 * 300 * 150);
}

TEST_F(PixelCacheTest, APageDecodedAheadTakesNoMoreThanItShows) {
  PixelCache cache;
  QtPictureDecoder decoder(cache);
  cache.notePage({{300, 150}, PictureFit::within, {300, 300}});
  await(decoder.decode(*handle("next")));
  EXPECT_EQ(cache.bytesHeld(), 4 * 300 * 150);
}

// As it lies on the disk.
PictureHandle inFolder(const QTemporaryDir& folder, const std::string& key) {
  Picture picture = *handle(key);
  const QString path = folder.filePath(QString::fromStdString(key));
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(picture.bytes.data(), static_cast<qint64>(picture.bytes.size()));
  picture.file = path.toStdString();
  return std::make_shared<const Picture>(std::move(picture));
}

// A start would else share its two threads among the open page and those beside it.
TEST_F(PixelCacheTest, APageIsDecodedAheadOnceNoViewWaits) {
  const QTemporaryDir folder;
  PixelCache cache;
  cache.notePage({{300, 150}, PictureFit::within, {300, 300}});
  QObject view;
  std::vector<std::string> told;
  cache.requestPixels(handle("open"), QSize(300, 150), &view,
                      [&](const Pixels&) { told.push_back("open"); });
  cache.decodeWhole(inFolder(folder, "next"), [&](const Pixels&) { told.push_back("next"); });
  EXPECT_EQ(cache.decodesStarted(), 1);
  ASSERT_TRUE(waitUntil([&told] { return told.size() == 2; }));
  EXPECT_EQ(told.front(), "open");
  EXPECT_EQ(cache.decodesStarted(), 2);
}

TEST_F(PixelCacheTest, WhatWasToBeAheadBeginsAtOnceWhenAViewAsksForIt) {
  PixelCache cache;
  QObject view;
  int told = 0;
  const auto tell = [&told](const Pixels&) { ++told; };
  cache.notePage({{300, 150}, PictureFit::within, {300, 300}});
  const QTemporaryDir folder;
  const PictureHandle next = inFolder(folder, "next");
  cache.requestPixels(handle("open"), QSize(300, 150), &view, tell);
  cache.decodeWhole(next, tell);
  ASSERT_EQ(cache.decodesStarted(), 1);
  cache.requestPixels(next, QSize(300, 150), &view, tell);
  EXPECT_EQ(cache.decodesStarted(), 2);
  EXPECT_TRUE(waitUntil([&told] { return told == 3; }));
  EXPECT_EQ(cache.decodesStarted(), 2);
}

TEST_F(PixelCacheTest, ItsEndDropsWhatIsUnderWay) {
  QObject context;
  bool called = false;
  {
    PixelCache cache;
    for (int i = 0; i < 6; ++i) {
      cache.requestPixels(handle(std::to_string(i), 2000, 1000), QSize(2000, 1000), &context,
                          [&called](const Pixels&) { called = true; });
    }
  }
  QCoreApplication::processEvents();
  EXPECT_FALSE(called);
}

}  // namespace
}  // namespace vellix
