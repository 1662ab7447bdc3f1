// The pace of blinking.
#include "compare/blink.hpp"

#include <gtest/gtest.h>

#include "support/virtual_time.hpp"

namespace vellix {
namespace {

class Blinks : public testing::Test {
 protected:
  VirtualTime time;
  int swaps = 0;
  Blink blink{time, [this] { ++swaps; }};
};

TEST_F(Blinks, SwapAfterEachWholePause) {
  blink.follow(true);
  time.advance(Milliseconds{699});
  EXPECT_EQ(swaps, 0);
  time.advance(Milliseconds{1});
  EXPECT_EQ(swaps, 1);
  time.advance(Milliseconds{1'400});
  EXPECT_EQ(swaps, 3);
}

TEST_F(Blinks, StopWithoutAnotherSwap) {
  blink.follow(true);
  time.advance(Milliseconds{1'000});
  blink.follow(false);
  time.advance(Milliseconds{10'000});
  EXPECT_EQ(swaps, 1);
  EXPECT_EQ(time.sleeping(), 0U) << "nothing ticks at rest";
}

TEST_F(Blinks, BeginWithAWholePauseAgain) {
  blink.follow(true);
  time.advance(Milliseconds{600});
  blink.follow(false);
  blink.follow(true);
  time.advance(Milliseconds{699});
  EXPECT_EQ(swaps, 0);
  time.advance(Milliseconds{1});
  EXPECT_EQ(swaps, 1);
}

TEST_F(Blinks, KeepTheirPaceWhenToldTheSameAgain) {
  blink.follow(true);
  time.advance(Milliseconds{600});
  blink.follow(true);
  time.advance(Milliseconds{100});
  EXPECT_EQ(swaps, 1);
}

TEST_F(Blinks, DoNotBeginByThemselves) {
  time.advance(Milliseconds{10'000});
  EXPECT_EQ(swaps, 0);
  EXPECT_EQ(time.sleeping(), 0U);
}

}  // namespace
}  // namespace vellix
