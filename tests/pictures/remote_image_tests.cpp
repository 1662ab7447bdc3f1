// What a picture's place shows, frame by frame.
#include "remote_image_test.hpp"

#include <QSignalSpy>

namespace vellix {
namespace {

TEST_F(RemoteImageTest, ShowsThePlaceholderUntilThePictureComes) {
  item->setKey("a");
  EXPECT_EQ(seen(), kGround);
  EXPECT_FALSE(item->ready());
  ASSERT_EQ(source.requests.size(), 1U);
  EXPECT_EQ(source.requests[0].key, "a");
  EXPECT_EQ(source.requests[0].room.size, (QSizeF(kRoom) * scale()).toSize());
  EXPECT_EQ(seen(), kGround);
  QSignalSpy ready(item.get(), &RemoteImage::readyChanged);
  source.answer(0, plain(kRed));
  EXPECT_EQ(seen(), kRed);
  EXPECT_TRUE(item->ready());
  EXPECT_EQ(ready.count(), 1);
  EXPECT_EQ(source.requests.size(), 1U);
}

TEST_F(RemoteImageTest, ShowsThePictureWhereTheItemIs) {
  item->setPosition({40, 30});
  item->setSize({20, 20});
  ask("a");
  source.answer(0, plain(kRed));
  EXPECT_EQ(seen({10, 10}), kBehind);
  EXPECT_EQ(seen({50, 40}), kRed);
  item->setPosition({10, 60});
  EXPECT_EQ(seen({50, 40}), kBehind);
  EXPECT_EQ(seen({20, 70}), kRed);
}

TEST_F(RemoteImageTest, ShowsAnotherPlaceholderAtOnce) {
  frame();
  item->setPlaceholder(kGreen);
  EXPECT_EQ(seen(), kGreen);
}

TEST_F(RemoteImageTest, ShowsAPictureAtHandInTheVeryNextFrame) {
  source.held["a"] = plain(kRed);
  source.held["b"] = plain(kBlue);
  item->setKey("a");
  EXPECT_EQ(seen(), kRed);
  item->setKey("b");
  EXPECT_EQ(seen(), kBlue);
  EXPECT_TRUE(source.requests.empty());
}

TEST_F(RemoteImageTest, DropsTheOldPictureTogetherWithItsKey) {
  showRed();
  item->setKey("b");
  EXPECT_EQ(seen(), kGround) << "it would be taken for the new one";
  EXPECT_FALSE(item->ready());
  source.answer(0, plain(kBlue));
  EXPECT_EQ(seen(), kBlue);
}

TEST_F(RemoteImageTest, IsNeverUnreadyOnItsWayToAPictureAtHand) {
  showRed();
  source.held["b"] = plain(kBlue);
  QSignalSpy ready(item.get(), &RemoteImage::readyChanged);
  item->setKey("b");
  EXPECT_EQ(seen(), kBlue);
  EXPECT_EQ(ready.count(), 0);
}

TEST_F(RemoteImageTest, TellsTheKeyThatIsOnShow) {
  EXPECT_EQ(item->shown(), "");
  showRed();
  EXPECT_EQ(item->shown(), "red");
  source.held["b"] = plain(kBlue);
  item->setKey("b");
  EXPECT_EQ(item->shown(), "red") << "until the next frame the old one is what is seen";
  frame();
  EXPECT_EQ(item->shown(), "b");
  ask("c");
  EXPECT_EQ(item->shown(), "");
  source.answer(0, {});
  frame();
  EXPECT_EQ(item->shown(), "");
}

TEST_F(RemoteImageTest, ShowsWhatStandsInUntilThePictureIsHere) {
  source.held["small"] = {plain(kGreen, {10, 10}), {10, 10}};
  item->setStandIn("small");
  ask("a");
  EXPECT_EQ(seen(), kGreen);
  EXPECT_EQ(seen({3, 3}), kGreen) << "as large as the picture will be";
  EXPECT_FALSE(item->ready());
  EXPECT_EQ(item->shown(), "a");
  ASSERT_EQ(source.requests.size(), 1U);
  EXPECT_EQ(source.requests[0].key, "a") << "what stands in is not worth asking for";
  source.answer(0, plain(kRed));
  EXPECT_EQ(seen(), kRed);
  EXPECT_TRUE(item->ready());
}

TEST_F(RemoteImageTest, LetsNothingStandInForWhatCannotBeHad) {
  source.held["small"] = plain(kGreen);
  item->setStandIn("small");
  ask("a");
  source.answer(0, {});
  EXPECT_EQ(seen(), kGround);
  EXPECT_TRUE(item->missing());
  ask("");
  EXPECT_EQ(seen(), kGround);
}

TEST_F(RemoteImageTest, ShowsThePlaceholderWhenTheNewKeyFails) {
  showRed();
  QSignalSpy ready(item.get(), &RemoteImage::readyChanged);
  ask("b");
  source.answer(0, {});
  EXPECT_EQ(seen(), kGround);
  EXPECT_FALSE(item->ready());
  EXPECT_EQ(ready.count(), 1);
}

TEST_F(RemoteImageTest, AsksAgainForAKeyThatFailedWhenItIsGivenAnew) {
  ask("a");
  source.answer(0, {});
  frame();
  EXPECT_EQ(source.requests.size(), 1U) << "a failure by itself asks nobody";
  ask("b");
  ask("a");
  ASSERT_EQ(source.requests.size(), 3U);
  source.answer(2, plain(kRed));
  EXPECT_EQ(seen(), kRed);
}

TEST_F(RemoteImageTest, DropsALateAnswerOfAnEarlierKey) {
  ask("a");
  ask("b");
  source.answer(1, plain(kBlue));
  source.answer(0, plain(kRed));
  EXPECT_EQ(seen(), kBlue);
  ask("c");
  source.held["d"] = plain(kBlue);
  ask("d");
  source.answer(2, {});
  EXPECT_EQ(seen(), kBlue) << "nor does an earlier key's failure take the picture away";
}

TEST_F(RemoteImageTest, DropsTheAnswerOfAKeyThatWasTakenBack) {
  ask("a");
  ask("");
  source.answer(0, plain(kRed));
  EXPECT_EQ(seen(), kGround);
}

TEST_F(RemoteImageTest, AsksOnlyForTheLastOfSeveralKeysInOneFrame) {
  item->setKey("a");
  item->setKey("b");
  frame();
  ASSERT_EQ(source.requests.size(), 1U);
  EXPECT_EQ(source.requests[0].key, "b");
}

TEST_F(RemoteImageTest, AsksNobodyWithoutAKey) {
  item->setKey("");
  EXPECT_EQ(seen(), kGround);
  item->setSize({50, 50});
  frame();
  EXPECT_TRUE(source.requests.empty());
  EXPECT_EQ(source.looks, 0);
}

TEST_F(RemoteImageTest, ShowsThePlaceholderWhenTheKeyBecomesAbsent) {
  showRed();
  item->setKey("");
  EXPECT_EQ(seen(), kGround);
  EXPECT_FALSE(item->ready());
  EXPECT_TRUE(source.requests.empty());
  ask("b");
  EXPECT_EQ(seen(), kGround);
  source.answer(0, plain(kBlue));
  EXPECT_EQ(seen(), kBlue);
}

TEST_F(RemoteImageTest, AsksNobodyWhileItWaits) {
  item->setWaits(true);
  ask("a");
  ask("b");
  EXPECT_TRUE(source.requests.empty());
  EXPECT_EQ(source.looks, 0);
  EXPECT_EQ(seen(), kGround);
  item->setWaits(false);
  frame();
  ASSERT_EQ(source.requests.size(), 1U);
  EXPECT_EQ(source.requests[0].key, "b");
}

TEST_F(RemoteImageTest, GoesOnWithWhatIsOnShowWhileItWaits) {
  showRed();
  item->setWaits(true);
  EXPECT_EQ(seen(), kRed);
  ask("b");
  ASSERT_EQ(source.requests.size(), 1U);
  source.answer(0, plain(kBlue));
  EXPECT_EQ(seen(), kBlue);
  item->setKey("");
  EXPECT_EQ(seen(), kGround);
}

TEST_F(RemoteImageTest, AsksNobodyWhileItHasNoSizeOrNoWindow) {
  item->setSize({0, 100});
  ask("a");
  EXPECT_EQ(seen(), kBehind);
  EXPECT_TRUE(source.requests.empty());
  item->setSize(kRoom);
  frame();
  EXPECT_EQ(source.requests.size(), 1U);
}

TEST_F(RemoteImageTest, AsksNobodyWhenItShrinks) {
  showRed();
  item->setSize({40, 40});
  EXPECT_EQ(seen({20, 20}), kRed);
  EXPECT_EQ(seen({60, 60}), kBehind);
  EXPECT_TRUE(source.requests.empty());
}

TEST_F(RemoteImageTest, AsksNobodyWhenItMoves) {
  ask("a");
  const int looks = source.looks;
  item->setPosition({10, 10});
  EXPECT_EQ(seen({5, 5}), kBehind);
  EXPECT_EQ(source.requests.size(), 1U);
  EXPECT_EQ(source.looks, looks);
}

TEST_F(RemoteImageTest, AsksNobodyAgainForAKeyThatFailedBecauseTheSizeChanged) {
  ask("a");
  source.answer(0, {});
  for (int width = 90; width > 50; width -= 10) {
    item->setWidth(width);
    frame();
  }
  EXPECT_EQ(source.requests.size(), 1U);
  source.held["a"] = plain(kRed);
  item->setSize(kRoom);
  EXPECT_EQ(seen(), kRed) << "what came for another view is taken";
}

TEST_F(RemoteImageTest, AsksANewSourceForTheSameKey) {
  ask("a");
  ScriptedSource other;
  item->setPictures(&other);
  frame();
  ASSERT_EQ(other.requests.size(), 1U);
  source.answer(0, plain(kRed));
  EXPECT_EQ(seen(), kGround);
  other.answer(0, plain(kBlue));
  EXPECT_EQ(seen(), kBlue);
}

TEST_F(RemoteImageTest, LivesOnWithoutASource) {
  {
    ScriptedSource passing;
    passing.held["a"] = plain(kRed);
    item->setPictures(&passing);
    ask("a");
  }
  EXPECT_EQ(seen(), kRed);
  ask("b");
  item->setSize({60, 60});
  EXPECT_EQ(seen(), kRed) << "nobody knows of another";
  item->setPictures(nullptr);
  EXPECT_EQ(seen(), kRed);
}

TEST_F(RemoteImageTest, FitsAWidePictureCentredWithNothingAboveAndBelow) {
  source.held["a"] = thirds(Qt::Horizontal);
  ask("a");
  const QImage image = frame();
  EXPECT_EQ(image.pixelColor(16, 50), kRed);
  EXPECT_EQ(image.pixelColor(50, 50), kGreen);
  EXPECT_EQ(image.pixelColor(84, 50), kBlue);
  EXPECT_EQ(image.pixelColor(50, 36), kGreen);
  EXPECT_EQ(image.pixelColor(50, 64), kGreen);
  EXPECT_EQ(image.pixelColor(50, 30), kBehind);
  EXPECT_EQ(image.pixelColor(50, 70), kBehind);
}

TEST_F(RemoteImageTest, FitsATallPictureCentredWithNothingBeside) {
  source.held["a"] = thirds(Qt::Vertical);
  ask("a");
  const QImage image = frame();
  EXPECT_EQ(image.pixelColor(50, 16), kRed);
  EXPECT_EQ(image.pixelColor(50, 84), kBlue);
  EXPECT_EQ(image.pixelColor(36, 50), kGreen);
  EXPECT_EQ(image.pixelColor(64, 50), kGreen);
  EXPECT_EQ(image.pixelColor(30, 50), kBehind);
  EXPECT_EQ(image.pixelColor(70, 50), kBehind);
}

TEST_F(RemoteImageTest, FillsWithTheMiddleOfAPicture) {
  item->setFill(true);
  for (const auto along : {Qt::Horizontal, Qt::Vertical}) {
    const QString key = along == Qt::Horizontal ? "wide" : "tall";
    source.held[key] = thirds(along);
    ask(key);
    const QImage image = frame();
    for (const QPoint point : {QPoint(3, 3), QPoint(96, 3), QPoint(3, 96), QPoint(96, 96)}) {
      EXPECT_EQ(image.pixelColor(point), kGreen) << qPrintable(key) << point.x() << point.y();
    }
  }
}

TEST_F(RemoteImageTest, StretchesToItsOwnSizeWhateverTheShape) {
  item->setStretched(true);
  for (const auto along : {Qt::Horizontal, Qt::Vertical}) {
    const QString key = along == Qt::Horizontal ? "wide" : "tall";
    source.held[key] = thirds(along);
    ask(key);
    const QImage image = frame();
    const auto colours = [&](bool across) {
      const auto colour = [&](int at) {
        return image.pixelColor(across ? QPoint(at, 3) : QPoint(3, at));
      };
      return QList{colour(16), colour(50), colour(84)};
    };
    EXPECT_EQ(colours(along == Qt::Horizontal), (QList{kRed, kGreen, kBlue})) << qPrintable(key);
    EXPECT_EQ(item->painted(), QRectF(QPointF(), item->size()));
  }
}

TEST_F(RemoteImageTest, TellsWhereThePictureLies) {
  ask("a");
  EXPECT_EQ(item->painted(), QRectF(QPointF(), item->size())) << "it may come to lie anywhere";
  QSignalSpy told(item.get(), &RemoteImage::paintedChanged);
  source.answer(0, thirds(Qt::Vertical));
  frame();
  EXPECT_EQ(told.count(), 1);
  const QRectF painted = item->painted();
  EXPECT_NEAR(painted.x(), 33, 1);
  EXPECT_EQ(painted.y(), 0);
  EXPECT_NEAR(painted.width(), 33, 1);
  EXPECT_EQ(painted.height(), 100);
  item->setSize({50, 50});
  frame();
  EXPECT_NEAR(item->painted().x(), 16.5, 1);
  EXPECT_EQ(item->painted().height(), 50);
}

TEST_F(RemoteImageTest, ShowsSeeThroughPicturesOverWhatIsBehind) {
  QImage half(kRoom, QImage::Format_ARGB32_Premultiplied);
  half.fill(Qt::transparent);
  source.held["a"] = half;
  item->setKey("a");
  EXPECT_EQ(seen(), kBehind);
}

TEST_F(RemoteImageTest, ChangesBetweenFitAndFillAtOnceWithoutAsking) {
  source.held["a"] = thirds(Qt::Horizontal);
  ask("a");
  EXPECT_EQ(seen({50, 10}), kBehind);
  const auto before = source.requests.size();
  item->setFill(true);
  EXPECT_EQ(seen({50, 10}), kGreen);
  item->setFill(false);
  EXPECT_EQ(seen({50, 10}), kBehind);
  EXPECT_EQ(source.requests.size(), before);
}

TEST_F(RemoteImageTest, ShowsItsPictureInAnotherWindow) {
  showRed();
  QQuickWindow other;
  other.resize(kRoom);
  other.show();
  item->setParentItem(other.contentItem());
  EXPECT_EQ(nextFrame(other).pixelColor(50, 50), kRed);
  EXPECT_EQ(seen(), kBehind);
  item->setParentItem(nullptr);
  item->setKey("b");
  item->setParentItem(window.contentItem());
  EXPECT_EQ(seen(), kGround);
  EXPECT_EQ(source.requests.size(), 1U);
}

TEST_F(RemoteImageTest, MayGoWhileARequestIsOut) {
  ask("a");
  item.reset();
  EXPECT_EQ(seen(), kBehind);
  source.answer(0, plain(kRed));
  EXPECT_EQ(seen(), kBehind);
}

TEST_F(RemoteImageTest, DoesNotHoldThePicturesThatItShowedBefore) {
  int freed = 0;
  const auto countFreed = [](void* count) { ++*static_cast<int*>(count); };
  std::vector<uchar> bytes(400, 0xff);
  for (int i = 0; i < 20; ++i) {
    const QString key = QString::number(i);
    source.held[key] = QImage(bytes.data(), 10, 10, 40, QImage::Format_RGB32, countFreed, &freed);
    ask(key);
    source.held.clear();
  }
  EXPECT_EQ(freed, 19);
  item.reset();
  frame();
  EXPECT_EQ(freed, 20);
}

TEST_F(RemoteImageTest, CutsARoundPictureFromTheMiddle) {
  item->setRound(true);
  item->setPlaceholder(Qt::transparent);
  ask("thirds");
  EXPECT_EQ(seen(), kBehind);
  source.answer(0, thirds(Qt::Horizontal));
  EXPECT_EQ(seen(), kGreen);
  EXPECT_EQ(seen({50, 3}), kGreen) << "it fills the circle, cropped";
  EXPECT_EQ(seen({3, 50}), kGreen);
  for (const QPoint corner : {QPoint(5, 5), QPoint(94, 5), QPoint(5, 94), QPoint(94, 94)})
    EXPECT_EQ(seen(corner), kBehind);
}

TEST_F(RemoteImageTest, CutsAnewForAnotherSize) {
  item->setRound(true);
  showRed();
  item->setSize({50, 50});
  EXPECT_EQ(seen({25, 25}), kRed);
  EXPECT_EQ(seen({3, 3}), kBehind);
  EXPECT_EQ(seen({60, 25}), kBehind);
  item->setRound(false);
  EXPECT_EQ(seen({3, 3}), kRed);
}

}  // namespace
}  // namespace vellix
