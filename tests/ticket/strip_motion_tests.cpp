// When the strip rushes, glides, and brings its page back.
#include "ticket/strip_motion.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vellix {
namespace {

using Span = StripMotion::Span;
constexpr double kHeight = 400;

struct Scroll {
  const char* name;
  double to;
  bool placing;
  bool rushes;
};
BOOST_DESCRIBE_STRUCT(Scroll, (), (name, to, placing, rushes))

class Scrolls : public testing::TestWithParam<Scroll> {};

TEST_P(Scrolls, RushFarFromWhereTheyHaveJustBeen) {
  StripMotion motion;
  motion.setPlacing(true);
  motion.scroll(1'000, kHeight);
  motion.setPlacing(GetParam().placing);
  motion.scroll(GetParam().to, kHeight);
  EXPECT_EQ(motion.rushing(), GetParam().rushes);
  motion.scroll(GetParam().to + 1, kHeight);
  EXPECT_EQ(motion.rushing(), GetParam().rushes) << "until it rests";
  motion.rest();
  EXPECT_FALSE(motion.rushing());
  motion.scroll(GetParam().to, kHeight);
  EXPECT_FALSE(motion.rushing());
}

INSTANTIATE_TEST_SUITE_P(All, Scrolls,
                         testing::Values(Scroll{"ByAPage", 1'120, false, false},
                                         Scroll{"ByHalf", 1'200, false, false},
                                         Scroll{"ByMore", 1'201, false, true},
                                         Scroll{"BackByHalf", 800, false, false},
                                         Scroll{"BackByMore", 799, false, true},
                                         Scroll{"PutFarAway", 9'000, true, false}),
                         [](const auto& each) { return each.param.name; });

struct Resize {
  const char* name;
  double before;
  std::optional<Span> current;
  bool gliding;
  bool brings;
};
BOOST_DESCRIBE_STRUCT(Resize, (), (name, before, gliding, brings))

class Resizes : public testing::TestWithParam<Resize> {};

TEST_P(Resizes, BringThePageBackThatWasInSight) {
  StripMotion motion;
  motion.resize(GetParam().before, 1'000, {}, false);
  EXPECT_EQ(motion.resize(kHeight, 1'000, GetParam().current, GetParam().gliding),
            GetParam().brings);
}

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

INSTANTIATE_TEST_SUITE_P(
    All, Resizes,
    testing::Values(Resize{"InSight", 500, Span{1'100, 1'200}, false, true},
                    Resize{"InSightBefore", 500, Span{1'420, 1'500}, false, true},
                    Resize{"FromEdgeToEdge", 500, Span{1'000, 1'500}, false, true},
                    Resize{"WithinAPixel", 500, Span{999.5, 1'500.5}, false, true},
                    Resize{"CutOffAbove", 500, Span{999, 1'100}, false, false},
                    Resize{"CutOffBelow", 500, Span{1'400, 1'501}, false, false},
                    Resize{"ScrolledAway", 500, Span{100, 200}, false, false},
                    Resize{"OnItsWay", 500, Span{1'100, 1'200}, true, false},
                    Resize{"NoPage", 500, std::nullopt, false, false},
                    Resize{"NoPlace", 500, Span{kNaN, kNaN}, false, false},
                    Resize{"First", 0, Span{100, 200}, false, true},
                    Resize{"FirstOfNone", 0, std::nullopt, false, true},
                    Resize{"FirstOnItsWay", 0, std::nullopt, true, false}),
    [](const auto& each) { return each.param.name; });

TEST(StripMotion, GlidesToWhatIsNear) {
  EXPECT_TRUE(glides(1'000, 1'000, kHeight, true));
  EXPECT_TRUE(glides(1'000, 1'400, kHeight, true));
  EXPECT_TRUE(glides(1'000, 600, kHeight, true));
  EXPECT_FALSE(glides(1'000, 1'401, kHeight, true));
  EXPECT_FALSE(glides(1'000, 599, kHeight, true));
  EXPECT_FALSE(glides(1'000, 1'100, kHeight, false)) << "not wanted";
  EXPECT_FALSE(glides(1'000, kNaN, kHeight, true)) << "no place";
}

}  // namespace
}  // namespace vellix
