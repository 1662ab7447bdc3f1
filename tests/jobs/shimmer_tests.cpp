// The light that runs over a line.
#include "jobs/shimmer.hpp"

#include <gtest/gtest.h>

#include "records/described.hpp"

namespace vellix {
namespace {

struct BandCase {
  const char* name;
  double phase;
  double width;
  double left;
};
BOOST_DESCRIBE_STRUCT(BandCase, (), (name, phase, width, left))

class ShimmerBands : public testing::TestWithParam<BandCase> {};

TEST_P(ShimmerBands, TravelAcrossTheLine) {
  const auto& [name, phase, width, left] = GetParam();
  EXPECT_EQ(shimmerBand(phase, width), (ShimmerBand{left, left + 160}));
}

INSTANTIATE_TEST_SUITE_P(
    All, ShimmerBands,
    testing::Values(BandCase{"InFront", -1, 240, -160}, BandCase{"AQuarter", -0.5, 240, -60},
                    BandCase{"InTheMiddle", 0, 240, 40}, BandCase{"Behind", 1, 240, 240},
                    BandCase{"OverAShortLine", 0, 40, -60}, BandCase{"OverNothing", 1, 0, 0},
                    BandCase{"TooEarly", -3, 240, -160}, BandCase{"TooLate", 3, 240, 240}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
