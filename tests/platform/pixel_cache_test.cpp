#include "platform/qt/PixelCache.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "platform/pictures.hpp"
#include "platform/qt/QtPictureDecoder.hpp"
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
  static QImage request(PixelCache& cache, const PictureHandle& picture, QSize shown) {
    QObject context;
    std::optional<QImage> got;
    cache.requestPixels(picture, shown, &context, [&got](const QImage& image) { got = image; });
    EXPECT_FALSE(got.has_value());
    EXPECT_TRUE(waitUntil([&got] { return got.has_value(); }));
    return got.value_or(QImage());
  }
};

TEST_F(PixelCacheTest, DecodesOnceAtTheReductionShown) {
  PixelCache cache;
  const auto picture = handle("a");
  EXPECT_TRUE(cache.cachedPixels(*picture, {100, 50}).isNull());
  EXPECT_EQ(request(cache, picture, {100, 50}).size(), QSize(100, 50));
  EXPECT_EQ(cache.bytesHeld(), kFull / 16);
  EXPECT_EQ(request(cache, picture, {100, 50}).size(), QSize(100, 50));
  EXPECT_EQ(cache.decodesStarted(), 1);
}

TEST_F(PixelCacheTest, GivesTheFewestPixelsThatAreEnough) {
  PixelCache cache;
  const auto picture = handle("a");
  request(cache, picture, {200, 100});
  EXPECT_EQ(cache.cachedPixels(*picture, {200, 100}).size(), QSize(200, 100));
  EXPECT_EQ(cache.cachedPixels(*picture, {10, 10}).size(), QSize(200, 100));
  EXPECT_TRUE(cache.cachedPixels(*picture, {201, 100}).isNull());
  request(cache, picture, {400, 200});
  EXPECT_EQ(cache.cachedPixels(*picture, {10, 10}).size(), QSize(200, 100));
  EXPECT_EQ(cache.cachedPixels(*picture, {201, 100}).size(), QSize(400, 200));
  EXPECT_EQ(cache.cachedPixels(*picture, {900, 900}).size(), QSize(400, 200));
}

TEST_F(PixelCacheTest, EqualRequestsShareOneDecode) {
  PixelCache cache;
  const auto picture = handle("a");
  QObject context;
  int told = 0;
  for (int i = 0; i < 10; ++i) {
    cache.requestPixels(picture, {200, 100}, &context, [&told](const QImage& image) {
      EXPECT_FALSE(image.isNull());
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
  cache.requestPixels(picture, {200, 100}, gone.get(), [&](const QImage&) { calledGone = true; });
  cache.requestPixels(picture, {200, 100}, &stays, [&](const QImage&) { calledStays = true; });
  gone.reset();
  ASSERT_TRUE(waitUntil([&calledStays] { return calledStays; }));
  EXPECT_FALSE(calledGone);

  gone = std::make_unique<QObject>();
  calledStays = false;
  cache.requestPixels(picture, {200, 100}, gone.get(), [&](const QImage&) { calledGone = true; });
  cache.requestPixels(picture, {200, 100}, &stays, [&](const QImage&) { calledStays = true; });
  gone.reset();
  ASSERT_TRUE(waitUntil([&calledStays] { return calledStays; }));
  EXPECT_FALSE(calledGone);
}

TEST_F(PixelCacheTest, KeepsItsBudgetAndDropsTheLeastRecentlyUsed) {
  PixelCache cache(kFull * 3);
  const auto a = handle("a");
  const auto b = handle("b");
  const auto c = handle("c");
  for (const auto& one : {a, b, c}) request(cache, one, {kWidth, kHeight});
  EXPECT_EQ(cache.bytesHeld(), kFull * 3);
  EXPECT_FALSE(cache.cachedPixels(*a, {kWidth, kHeight}).isNull());
  request(cache, handle("d"), {kWidth, kHeight});
  EXPECT_EQ(cache.bytesHeld(), kFull * 3);
  EXPECT_FALSE(cache.cachedPixels(*a, {kWidth, kHeight}).isNull());
  EXPECT_TRUE(cache.cachedPixels(*b, {kWidth, kHeight}).isNull());
  for (int i = 0; i < 20; ++i) {
    request(cache, handle("many" + std::to_string(i)), {kWidth, kHeight});
    EXPECT_LE(cache.bytesHeld(), kFull * 3);
  }
}

TEST_F(PixelCacheTest, OneThatIsLargerThanTheBudgetIsGivenButNotKept) {
  PixelCache cache(kFull - 1);
  const auto small = handle("small", 20, 20);
  request(cache, small, {20, 20});
  EXPECT_FALSE(request(cache, handle("a"), {kWidth, kHeight}).isNull());
  EXPECT_FALSE(cache.cachedPixels(*small, {20, 20}).isNull());
  EXPECT_EQ(cache.bytesHeld(), 20 * 20 * 4);
}

TEST_F(PixelCacheTest, WhatDoesNotDecodeIsToldAsNull) {
  PixelCache cache;
  Picture broken = *handle("a");
  broken.bytes.resize(broken.bytes.size() / 2);
  EXPECT_TRUE(request(cache, std::make_shared<const Picture>(broken), {400, 200}).isNull());
  broken.bytes.clear();
  broken.file = "/nonexistent/file";
  EXPECT_TRUE(request(cache, std::make_shared<const Picture>(broken), {400, 200}).isNull());
  EXPECT_EQ(cache.bytesHeld(), 0);
}

TEST_F(PixelCacheTest, APageDecodedAheadIsReadyAtTheSizeThatPagesAreShown) {
  PixelCache cache;
  QtPictureDecoder decoder(cache);
  const QSize shown(900, 1200);
  const auto open = handle("open", 2000, 3000);
  request(cache, open, shown);
  // A thumbnail says nothing about pages.
  request(cache, handle("thumb", 2000, 3000), {100, 150});

  const auto arrived = await(decoder.decode(*handle("next", 2000, 3000)));
  ASSERT_TRUE(arrived.has_value() && *arrived);
  EXPECT_EQ(cache.cachedPixels(**arrived, shown).size(), QSize(1000, 1500));

  const auto held = handle("held", 2000, 3000);
  cache.warm(held);
  EXPECT_TRUE(waitUntil([&] { return !cache.cachedPixels(*held, shown).isNull(); }));
  const auto before = cache.decodesStarted();
  cache.warm(held);
  EXPECT_EQ(cache.decodesStarted(), before);
}

TEST_F(PixelCacheTest, ItsEndDropsWhatIsUnderWay) {
  QObject context;
  bool called = false;
  {
    PixelCache cache;
    for (int i = 0; i < 6; ++i) {
      cache.requestPixels(handle(std::to_string(i), 2000, 1000), {2000, 1000}, &context,
                          [&called](const QImage&) { called = true; });
    }
  }
  QCoreApplication::processEvents();
  EXPECT_FALSE(called);
}

}  // namespace
}  // namespace vellix
