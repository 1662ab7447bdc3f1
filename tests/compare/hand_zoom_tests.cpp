// What a hand does to the zoom.
#include "compare/hand_zoom.hpp"

#include <cmath>
#include <limits>

#include "store/store_test.hpp"

namespace vellix {
namespace {

class HandZooms : public StoreTest {
 protected:
  HandZoom hand{store()};
};

TEST_F(HandZooms, CountAPinchFromWhereItBegan) {
  store().zoomTo(1.5);
  hand.pinch(1.2);
  EXPECT_DOUBLE_EQ(store().zoom(), 1.8);
  hand.pinch(1.4);
  EXPECT_DOUBLE_EQ(store().zoom(), 2.1) << "not 1.8 x 1.4";
  hand.pinch(0.1);
  EXPECT_EQ(store().zoom(), 1);
  hand.pinch(100);
  EXPECT_EQ(store().zoom(), 4);
  hand.endPinch();
  hand.pinch(0.5);
  EXPECT_EQ(store().zoom(), 2);
}

TEST_F(HandZooms, TakeNoTremorForAPinch) {
  hand.pinch(1.009);
  EXPECT_EQ(store().zoom(), 1);
  hand.pinch(1.011);
  EXPECT_DOUBLE_EQ(store().zoom(), 1.011);
  hand.pinch(1.005);
  EXPECT_DOUBLE_EQ(store().zoom(), 1.005) << "one that has begun goes on";
}

TEST_F(HandZooms, PinchByNothingThatIsNoMagnification) {
  store().zoomTo(2);
  for (const double none : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
    hand.pinch(none);
    EXPECT_EQ(store().zoom(), 2) << none;
  }
}

TEST_F(HandZooms, StepByTheNotchesOfAWheel) {
  hand.wheel(2);
  EXPECT_DOUBLE_EQ(store().zoom(), 1.5625);
  hand.wheel(-1);
  EXPECT_DOUBLE_EQ(store().zoom(), 1.25);
}

TEST_F(HandZooms, HoldUntilSomethingElseZooms) {
  EXPECT_FALSE(hand.holds());
  hand.wheel(1);
  EXPECT_TRUE(hand.holds());
  store().zoomTo(3);
  EXPECT_FALSE(hand.holds());
  store().zoomTo(1.25);
  EXPECT_FALSE(hand.holds()) << "though it is the same zoom";
}

}  // namespace
}  // namespace vellix
