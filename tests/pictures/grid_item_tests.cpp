// When an item is painted anew for the grid of the device's pixels, and where it finds that.
#include "pictures/GridItem.hpp"

#include <gtest/gtest.h>

#include <QQuickWindow>
#include <cmath>

#include "support/next_frame.hpp"

namespace vellix {
namespace {

// An item that paints nothing, and tells what it is asked to.
class SeenItem : public GridItem {
 public:
  int paints = 0;
  int sizes = 0;
  int frames = 0;
  QPointF onGrid(QPointF at) const { return GridItem::onGrid(at); }

 protected:
  void resized() override { ++sizes; }
  void framed() override { ++frames; }
  QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData*) override {
    ++paints;
    return old;
  }
};

class GridItems : public testing::Test {
 protected:
  QQuickWindow window;
  QQuickItem holder;
  SeenItem item;

  GridItems() {
    window.resize(200, 200);
    holder.setParentItem(window.contentItem());
    item.setParentItem(&holder);
    item.setSize({20, 20});
    window.show();
    nextFrame(window);
  }
  void TearDown() override {
    item.setParentItem(nullptr);
    holder.setParentItem(nullptr);
  }
  // How often it is painted in the next frame.
  int paints() {
    const int before = item.paints;
    nextFrame(window);
    return item.paints - before;
  }
  bool isOnGrid(QPointF at) const {
    const QPointF there = item.mapToScene(item.onGrid(at)) * window.effectiveDevicePixelRatio();
    const auto whole = [](qreal by) { return std::abs(by - std::round(by)) < 1e-6; };
    return whole(there.x()) && whole(there.y());
  }
};

TEST_F(GridItems, ArePaintedAnewWhereAParentPutsThemBetweenThePixels) {
  for (const qreal at : {0.3, 2.6, 7.1, 100.45}) {
    holder.setPosition({at, -at / 7});
    EXPECT_EQ(paints(), 1) << at;
    EXPECT_TRUE(isOnGrid({}) && isOnGrid({3.4, 7.7})) << at;
    EXPECT_EQ(paints(), 0) << at;
  }
}

TEST_F(GridItems, AreNotPaintedAnewForAMoveByWholePixels) {
  for (const qreal at : {4.0, -8.0, 120.0}) {
    holder.setPosition({at, at});
    EXPECT_EQ(paints(), 0) << at;
    EXPECT_TRUE(isOnGrid({3.4, 7.7})) << at;
  }
}

TEST_F(GridItems, KeepTheirGridWhileTheyAreTurnedOrScaled) {
  const QPointF before = item.onGrid({3.4, 7.7});
  for (const qreal by : {0.9, 1.013, 1.2}) {
    holder.setScale(by);
    EXPECT_EQ(paints(), 0) << by;
    item.setRotation(by * 10);
    EXPECT_EQ(paints(), 0) << by;
    EXPECT_EQ(item.onGrid({3.4, 7.7}), before);
  }
  holder.setScale(1);
  item.setRotation(0);
  holder.setPosition({0.3, 0.3});
  EXPECT_EQ(paints(), 1) << "and look for it again then";
}

TEST_F(GridItems, FindTheirGridAgainOnceTheyAreInSight) {
  item.setVisible(false);
  holder.setPosition({0.3, 0.3});
  EXPECT_EQ(paints(), 0);
  item.setVisible(true);
  nextFrame(window);
  EXPECT_TRUE(isOnGrid({}));
}

TEST_F(GridItems, TellOfAnotherSizeAndAnotherWindow) {
  const int before = item.sizes;
  item.setSize({20, 21});
  EXPECT_EQ(item.sizes, before + 1);
  EXPECT_EQ(paints(), 1);
  item.setPosition({4, 4});
  EXPECT_EQ(item.sizes, before + 1) << "that is the same size";
  EXPECT_EQ(paints(), 0);
  QQuickWindow other;
  item.setParentItem(other.contentItem());
  EXPECT_GT(item.sizes, before + 1);
  const int frames = item.frames;
  nextFrame(window);
  EXPECT_EQ(item.frames, frames) << "the frames of the window that it has left";
  other.resize(50, 50);
  other.show();
  nextFrame(other);
  EXPECT_GT(item.frames, frames);
  item.setParentItem(&holder);
}

}  // namespace
}  // namespace vellix
