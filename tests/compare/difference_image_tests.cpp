// What an item that shows a difference paints, frame by frame.
#include "compare/DifferenceImage.hpp"

#include <gtest/gtest.h>

#include <QQuickWindow>

#include "pieces/scripted_source.hpp"

namespace vellix {
namespace {

const QColor kBehind(Qt::white);
constexpr QSize kRoom(100, 100);

QImage plain(const QColor& colour, QSize size = kRoom) {
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
  QImage frame() { return window.grabWindow(); }
  QColor seen(QPoint point = {50, 50}) {
    return frame().pixelColor(point * window.effectiveDevicePixelRatio());
  }
  // Both at hand, at the size of the device.
  void hold(const QColor& one, const QColor& other) {
    source.held["one"] = plain(one, kRoom * window.effectiveDevicePixelRatio());
    source.held["other"] = plain(other, kRoom * window.effectiveDevicePixelRatio());
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
  EXPECT_EQ(source.requests.size(), 2U);
}

TEST_F(DifferenceImageTest, ShowsTheDifferenceOfTwoAtHandInTheVeryNextFrame) {
  hold({200, 10, 50}, {50, 20, 50});
  ask();
  EXPECT_EQ(seen(), QColor(150, 10, 0));
  EXPECT_TRUE(source.requests.empty());
}

TEST_F(DifferenceImageTest, ShowsTheOneThatIsHereAlone) {
  hold({200, 10, 50}, {50, 20, 50});
  source.held.remove("other");
  ask();
  EXPECT_EQ(seen(), QColor(200, 10, 50));
  ASSERT_EQ(source.requests.size(), 1U);
  source.answer(0, plain({50, 20, 50}, kRoom * window.effectiveDevicePixelRatio()));
  EXPECT_EQ(seen(), QColor(150, 10, 0));
}

TEST_F(DifferenceImageTest, IsBlackForOnePictureUnderTwoKeys) {
  hold({200, 10, 50}, {200, 10, 50});
  ask();
  EXPECT_EQ(seen(), QColor(Qt::black));
}

TEST_F(DifferenceImageTest, MayGoWhileRequestsAreOut) {
  ask();
  frame();
  item.reset();
  source.answer(0, plain(Qt::red));
  EXPECT_EQ(seen(), kBehind);
}

}  // namespace
}  // namespace vellix
