// What an item that shows a difference paints, frame by frame.
#include "compare/DifferenceImage.hpp"

#include <gtest/gtest.h>

#include <QQuickWindow>
#include <QtMath>

#include "pictures/PixelCache.hpp"
#include "pictures/pictures.hpp"
#include "pictures/rest.hpp"
#include "pictures/scripted_source.hpp"
#include "platform/waiting.hpp"
#include "support/next_frame.hpp"

namespace vellix {
namespace {

const QColor kBehind(Qt::white);
const QColor kOne(200, 10, 50);
const QColor kOther(50, 20, 50);
const QColor kBetween(150, 10, 0);
constexpr QSize kRoom(100, 100);
constexpr QSize kPage(3000, 3000);

QImage plain(const QColor& colour, QSize size) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(colour);
  return image;
}

class DifferenceImageTest : public testing::Test {
 protected:
  QQuickWindow window;
  ScriptedSource source;
  std::unique_ptr<DifferenceImage> item = std::make_unique<DifferenceImage>();

  DifferenceImageTest() {
    window.setColor(kBehind);
    window.resize(kRoom);
    item->setPictures(&source);
    item->setSize(kRoom);
    item->setParentItem(window.contentItem());
    window.show();
  }
  QSize device(QSize logical) const {
    return (QSizeF(logical) * window.effectiveDevicePixelRatio()).toSize();
  }
  // The very next frame.
  QImage frame() { return nextFrame(window); }
  QColor seen(QPoint point = {50, 50}) {
    return frame().pixelColor((QPointF(point) * window.effectiveDevicePixelRatio()).toPoint());
  }
  // Of a large page: exactly what a place of this size shows.
  Pixels exact(const QColor& colour, QSize logical = kRoom) {
    return {plain(colour, device(logical)), kPage};
  }
  static Pixels fewer(const QColor& colour) { return {plain(colour, {30, 30}), kPage}; }
  void hold(const Pixels& one, const Pixels& other) {
    source.held["one"] = one;
    source.held["other"] = other;
  }
  void ask() {
    item->setKey("one");
    item->setUnder("other");
  }
};

TEST_F(DifferenceImageTest, ShowsNothingWithoutPictures) {
  EXPECT_EQ(seen(), kBehind);
  ask();
  EXPECT_EQ(seen(), kBehind);
  ASSERT_EQ(source.requests.size(), 2U);
  EXPECT_EQ(source.requests[0].room, PictureRoom(device(kRoom)));
  source.answer(0, {});
  source.answer(1, {});
  EXPECT_EQ(seen(), kBehind);
}

TEST_F(DifferenceImageTest, ShowsTheDifferenceOfTwoAtHandInTheVeryNextFrame) {
  hold(exact(kOne), exact(kOther));
  ask();
  EXPECT_EQ(seen(), kBetween);
  EXPECT_TRUE(source.requests.empty());
}

TEST_F(DifferenceImageTest, ShowsTheNextPageAloneUntilTheOtherIsHere) {
  hold(exact(kOne), exact(kOther));
  ask();
  ASSERT_EQ(seen(), kBetween);
  source.held["next"] = exact(Qt::white);
  item->setKey("next");
  item->setUnder("beside");
  EXPECT_EQ(seen(), QColor(Qt::white)) << "the last difference is not the next page's";
  ASSERT_EQ(source.requests.size(), 1U);
  source.answer(0, exact(Qt::white));
  EXPECT_EQ(seen(), QColor(Qt::black));
}

TEST_F(DifferenceImageTest, ShowsTheNextAloneWhereTheOtherCannotBeHad) {
  hold(exact(kOne), exact(kOther));
  ask();
  ASSERT_EQ(seen(), kBetween);
  source.held["next"] = exact(Qt::white);
  item->setKey("next");
  item->setUnder("beside");
  frame();
  source.answer(0, {});
  EXPECT_EQ(seen(), QColor(Qt::white));
}

TEST_F(DifferenceImageTest, ShowsTheOneThatIsHereAlone) {
  hold(exact(kOne), {});
  ask();
  EXPECT_EQ(seen(), kOne);
  ASSERT_EQ(source.requests.size(), 1U);
  source.answer(0, exact(kOther));
  EXPECT_EQ(seen(), kBetween);
}

TEST_F(DifferenceImageTest, StaysWithTheOneWhenTheOtherCannotBeHad) {
  hold(exact(kOne), {});
  ask();
  frame();
  source.answer(0, {});
  EXPECT_EQ(seen(), kOne);
}

TEST_F(DifferenceImageTest, TellsThatTheOtherIsMissingUntilAnotherTryBringsIt) {
  hold(exact(kOne), {});
  ask();
  frame();
  EXPECT_FALSE(item->missing());
  source.answer(0, {});
  frame();
  EXPECT_TRUE(item->missing());
  emit source.worthAnotherTry();
  frame();
  ASSERT_EQ(source.requests.size(), 2U);
  EXPECT_EQ(source.requests[1].key, "other");
  source.answer(1, exact(kOther));
  EXPECT_EQ(seen(), kBetween);
  EXPECT_FALSE(item->missing());
}

TEST_F(DifferenceImageTest, AsksNobodyAgainOutOfSight) {
  ask();
  frame();
  source.answer(0, {});
  source.answer(1, {});
  item->setVisible(false);
  frame();
  emit source.worthAnotherTry();
  frame();
  EXPECT_EQ(source.requests.size(), 2U);
  item->setVisible(true);
  frame();
  EXPECT_EQ(source.requests.size(), 4U);
}

TEST_F(DifferenceImageTest, ShowsTheOneAloneWhenThereIsNoOther) {
  hold(exact(kOne), exact(kOther));
  ask();
  frame();
  item->setUnder("");
  EXPECT_EQ(seen(), kOne);
}

TEST_F(DifferenceImageTest, ShowsNothingOfThePageBeforeUntilTheNextIsHere) {
  hold(exact(kOne), exact(kOther));
  ask();
  frame();
  item->setKey("next");
  item->setUnder("next-other");
  EXPECT_EQ(seen(), kBehind);
  source.answer(0, exact(Qt::red));
  source.answer(1, exact(Qt::red));
  EXPECT_EQ(seen(), QColor(Qt::black));
}

TEST_F(DifferenceImageTest, StepsToPagesAtHandWithoutAGap) {
  hold(exact(kOne), exact(kOther));
  ask();
  frame();
  source.held["next"] = exact(Qt::white);
  source.held["next-other"] = exact(kOther);
  item->setKey("next");
  item->setUnder("next-other");
  EXPECT_EQ(seen(), QColor(205, 235, 205));
}

TEST_F(DifferenceImageTest, ShowsNothingWhenTheNextPageCannotBeHad) {
  hold(exact(kOne), exact(kOther));
  ask();
  frame();
  item->setKey("next");
  item->setUnder("next-other");
  frame();
  source.answer(0, {});
  source.answer(1, {});
  EXPECT_EQ(seen(), kBehind);
}

// Two that were scaled in different ways differ though they are equal.
TEST_F(DifferenceImageTest, ComparesNothingThatIsNotExact) {
  hold(exact(kOne), fewer(kOne));
  ask();
  EXPECT_EQ(seen(), kBehind);
  ASSERT_EQ(source.requests.size(), 1U);
  source.answer(0, exact(kOne));
  EXPECT_EQ(seen(), QColor(Qt::black));
}

TEST_F(DifferenceImageTest, ComparesWhatThereIsWhenBetterCannotBeHad) {
  hold(exact(kOne), fewer(kOther));
  ask();
  frame();
  source.answer(0, {});
  EXPECT_TRUE(waitUntil([this] { return seen() == kBetween; }));
}

TEST_F(DifferenceImageTest, IsScaledWhileItsSizeChangesAndThenSharp) {
  hold(exact(kOne, {50, 50}), exact(kOther, {50, 50}));
  item->setSize({50, 50});
  ask();
  EXPECT_EQ(seen({20, 20}), kBetween);
  for (const qreal side : {60.0, 70.0, 80.0}) {
    item->setSize({side, side});
    EXPECT_EQ(seen(QPoint(1, 1) * (side - 3)), kBetween);
  }
  EXPECT_TRUE(source.requests.empty());
  EXPECT_TRUE(rest(item.get()));
  ASSERT_EQ(source.requests.size(), 2U);
  source.answer(0, exact(Qt::white, {80, 80}));
  EXPECT_EQ(seen({70, 70}), kBetween);
  source.answer(1, exact(Qt::white, {80, 80}));
  EXPECT_EQ(seen({70, 70}), QColor(Qt::black));
  EXPECT_FALSE(rest(item.get())) << "nothing ticks at rest";
}

TEST_F(DifferenceImageTest, IsMadeBesideTheMainThreadWhenLarge) {
  const QSize large(3000, 2000);
  item->setSize(large);
  hold({plain(kOne, device(large)), device(large)}, {plain(kOther, device(large)), device(large)});
  ask();
  EXPECT_EQ(seen(), QColor(Qt::black)) << "a bright page would flash";
  EXPECT_TRUE(waitUntil([this] { return seen() == kBetween; }));
  // One that is under way for an earlier page is not shown.
  source.held["next"] = {plain(kOther, device(large)), device(large)};
  item->setUnder("one");
  frame();
  item->setKey("next");
  item->setUnder("next");
  frame();
  EXPECT_TRUE(waitUntil([this] { return seen() == QColor(Qt::black); }));
}

TEST_F(DifferenceImageTest, LaysPagesOfOtherSizesOverOneAnother) {
  const QSize two(3000, 3010);
  hold(exact(kOne), {plain(kOther, exactSize(two, device(kRoom))), two});
  ask();
  EXPECT_EQ(seen({50, 1}), kBetween);
  EXPECT_EQ(seen({98, 98}), kBetween);
}

// Corner on corner: a place on the one, in fractions, is that place on the other.
TEST_F(DifferenceImageTest, LaysAPageOfAnotherShapeExactlyOverTheFirst) {
  const PictureRoom room(device(kRoom), PictureFit::exactly);
  for (const QSize shape : {QSize(1500, 3000), QSize(3000, 1500)}) {
    hold(exact(kOne), {plain(kOther, exactSize(shape, room)), shape});
    item->setUnder("");
    frame();
    ask();
    for (const QPoint corner : {QPoint(2, 2), QPoint(97, 2), QPoint(2, 97), QPoint(97, 97)}) {
      EXPECT_EQ(seen(corner), kBetween) << shape.width() << ' ' << corner.x() << ' ' << corner.y();
    }
    EXPECT_TRUE(source.requests.empty()) << "it has all the pixels that it shows";
  }
}

TEST_F(DifferenceImageTest, LaysTheSecondWhereTheFirstIsEvenWhenThatFillsAPartOfTheItem) {
  const QSize half(1500, 3000);
  hold({plain(kOne, exactSize(half, device(kRoom))), half},
       {plain(kOther, exactSize(kPage, {exactSize(half, device(kRoom)), PictureFit::exactly})),
        kPage});
  ask();
  EXPECT_EQ(seen({10, 50}), QColor(Qt::black));
  EXPECT_EQ(seen({30, 50}), kBetween);
  EXPECT_EQ(seen({70, 50}), kBetween);
  EXPECT_EQ(seen({90, 50}), QColor(Qt::black));
}

TEST_F(DifferenceImageTest, MayGoWhileRequestsAreOut) {
  ask();
  frame();
  item.reset();
  source.answer(0, exact(kOne));
  EXPECT_EQ(seen(), kBehind);
}

TEST_F(DifferenceImageTest, MayGoWhileItIsMade) {
  const QSize large(3000, 2000);
  item->setSize(large);
  hold({plain(kOne, device(large)), device(large)}, {plain(kOther, device(large)), device(large)});
  ask();
  frame();
  item.reset();
  EXPECT_EQ(seen(), kBehind);
}

// Real pictures, decoded and scaled.
class CachedPages : public PictureSource {
 public:
  Pixels atHand(const QString& key, const PictureRoom& room) override {
    return cache.cachedPixels(*pages.value(key), room);
  }
  void bring(const QString& key, const PictureRoom& room, QObject* context,
             std::function<void(Pixels)> done) override {
    cache.requestPixels(pages.value(key), room, context, std::move(done));
  }
  void add(const QString& key, const QImage& image) {
    Picture picture = pictureOf(key.toStdString(), encodedAs("jpg", image));
    picture.width = image.width();
    picture.height = image.height();
    pages[key] = std::make_shared<const Picture>(std::move(picture));
  }

  QMap<QString, PictureHandle> pages;
  PixelCache cache;
};

class DifferenceOfPages : public DifferenceImageTest {
 protected:
  CachedPages pages;

  void TearDown() override { item.reset(); }

  // The brightest channel of what is on show once nothing is on its way any more.
  int brightest(qreal zoom) {
    item->setSize(QSizeF(66, 88) * zoom);
    frame();
    rest(item.get());
    const auto ready = [&](const QString& key) {
      const PictureRoom room((item->size() * window.effectiveDevicePixelRatio()).toSize());
      return isExact(pages.atHand(key, room), room);
    };
    EXPECT_TRUE(waitUntil([&] { return ready("one") && ready("other"); }));
    QCoreApplication::processEvents();
    const QSizeF seen = QSizeF(kRoom).boundedTo(item->size()) * window.effectiveDevicePixelRatio();
    const QSize inside(qFloor(seen.width()), qFloor(seen.height()));
    const QImage image = frame().convertToFormat(QImage::Format_RGB32);
    int most = 0;
    for (int y = 0; y < inside.height(); ++y) {
      for (int x = 0; x < inside.width(); ++x) {
        const QRgb pixel = image.pixel(x, y);
        most = std::max({most, qRed(pixel), qGreen(pixel), qBlue(pixel)});
      }
    }
    return most;
  }
};

TEST_F(DifferenceOfPages, ThatAreTheSameIsBlackToThePixelAtEveryZoom) {
  pages.add("one", testImage(600, 800));
  pages.add("other", testImage(600, 800));
  item->setPictures(&pages);
  ask();
  // One was seen at other sizes before.
  QObject nobody;
  for (const QSize size : {QSize(600, 800), QSize(300, 400)}) {
    pages.bring("one", size, &nobody, [](const Pixels&) {});
  }
  for (const qreal zoom : {1.0, 1.25, 1.5, 2.0, 3.25, 4.0, 12.0}) {
    EXPECT_EQ(brightest(zoom), 0) << zoom;
  }
}

TEST_F(DifferenceOfPages, ThatAreTheSameInOtherSizesIsNearlyBlack) {
  const auto page = [](QSize size) {
    QImage image = plain(Qt::white, size);
    for (int y = 0; y < size.height(); ++y) {
      for (int x = 0; x < size.width(); ++x) {
        const int tone = 128 + 127 * x / size.width() * y / size.height();
        image.setPixel(x, y, qRgb(tone, tone, tone));
      }
    }
    return image;
  };
  pages.add("one", page({600, 800}));
  pages.add("other", page({901, 1203}));
  item->setPictures(&pages);
  ask();
  EXPECT_LE(brightest(1), 6);
}

}  // namespace
}  // namespace vellix
