// How much of a person's reviewing was in time, as a ring.
#include "profile/on_time_ring.hpp"

#include "profile/profile_test.hpp"

namespace vellix {
namespace {

struct RingCase {
  const char* name;
  std::optional<Int> rate;
  double fraction;
  const char* value;
  const char* spoken;
};
BOOST_DESCRIBE_STRUCT(RingCase, (), (name, rate, fraction, value, spoken))

class OnTimeRings : public testing::TestWithParam<RingCase> {};

TEST_P(OnTimeRings, TellTheRate) {
  const auto ring = onTimeRing(GetParam().rate);
  EXPECT_DOUBLE_EQ(ring.fraction, GetParam().fraction);
  EXPECT_EQ(ring.value, GetParam().value);
  EXPECT_EQ(ring.spoken, GetParam().spoken);
  EXPECT_EQ(ring.label, "On time");
  EXPECT_EQ(ring.note, "Reviewed within 48 hours of coming in, or the same day when urgent.");
}

INSTANTIATE_TEST_SUITE_P(
    All, OnTimeRings,
    testing::Values(RingCase{"Untold", std::nullopt, 0, "—", "On time: not known yet"},
                    RingCase{"None", 0, 0, "0%", "On time: 0%"},
                    RingCase{"Most", 89, 0.89, "89%", "On time: 89%"},
                    RingCase{"All", 100, 1, "100%", "On time: 100%"},
                    RingCase{"BeyondAll", 101, 1, "101%", "On time: 101%"},
                    RingCase{"BelowNone", -5, 0, "-5%", "On time: -5%"},
                    RingCase{"Huge", kMost, 1, "9223372036854775807%",
                             "On time: 9223372036854775807%"},
                    RingCase{"HugeBelowNone", kLeast, 0, "-9223372036854775808%",
                             "On time: -9223372036854775808%"}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
