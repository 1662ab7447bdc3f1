// A person's reviews of each week, as bars.
#include "profile/weekly_chart.hpp"

#include <gmock/gmock.h>

#include "profile/profile_test.hpp"

namespace vellix {
namespace {

using testing::IsEmpty;

constexpr double kWeek = 604'800'000;
constexpr double kThirdOfNovember = 1'793'664'000'000;  // 2026, midnight

std::vector<WeekBarView> chartOf(const std::vector<Int>& counts) {
  std::vector<WeekCount> weeks;
  weeks.reserve(counts.size());
  for (const Int count : counts) {
    weeks.push_back(
        {.start = kThirdOfNovember + kWeek * static_cast<double>(weeks.size()), .count = count});
  }
  return weeklyChart(weeks, FakeCalendar{});
}

struct HeightsCase {
  const char* name;
  std::vector<Int> counts;
  std::vector<double> fractions;
};
BOOST_DESCRIBE_STRUCT(HeightsCase, (), (name, counts, fractions))

class WeekBars : public testing::TestWithParam<HeightsCase> {};

TEST_P(WeekBars, AreMeasuredByTheLargest) {
  std::vector<double> fractions;
  for (const auto& bar : chartOf(GetParam().counts)) fractions.push_back(bar.fraction);
  EXPECT_EQ(fractions, GetParam().fractions);
}

INSTANTIATE_TEST_SUITE_P(
    All, WeekBars,
    testing::Values(HeightsCase{"None", {}, {}}, HeightsCase{"One", {3}, {1}},
                    HeightsCase{"InTheListsOrder", {2, 8, 4}, {0.25, 1, 0.5}},
                    HeightsCase{"Alike", {5, 5}, {1, 1}}, HeightsCase{"OneEmpty", {0, 4}, {0, 1}},
                    HeightsCase{"AllEmpty", {0, 0}, {0, 0}},
                    HeightsCase{"BelowNone", {-4, 4, kLeast}, {0, 1, 0}},
                    HeightsCase{"AllBelowNone", {-4, -2}, {0, 0}},
                    HeightsCase{"Huge", {kMost, kMost, 1}, {1, 1, 1 / 9223372036854775807.0}}),
    [](const auto& each) { return each.param.name; });

TEST(WeeklyChart, TellsTheWeekAndItsCount) {
  const auto bars = chartOf({7, 0, -2, kMost});
  EXPECT_EQ(bars[0].caption, "7 reviewed · week of Nov 3");
  EXPECT_EQ(bars[0].spoken, "Nov 3: 7 reviewed");
  EXPECT_EQ(bars[1].caption, "0 reviewed · week of Nov 10");
  EXPECT_EQ(bars[2].caption, "0 reviewed · week of Nov 17");
  EXPECT_EQ(bars[2].spoken, "Nov 17: 0 reviewed");
  EXPECT_EQ(bars[3].spoken, "Nov 24: 9223372036854775807 reviewed");
}

TEST(WeeklyChart, KeepsWeeksThatAreToldAlikeApart) {
  const WeekCount week{.start = kThirdOfNovember, .count = 7};
  const auto bars = weeklyChart({week, week}, FakeCalendar{});
  ASSERT_EQ(bars.size(), 2U);
  EXPECT_NE(bars[0].key, bars[1].key);
}

// The bar under the pointer stays the same one while its count goes up.
TEST(WeeklyChart, KeepsItsBarsWhereCountsChange) {
  const auto before = chartOf({1, 2});
  const auto after = chartOf({1, 3});
  EXPECT_EQ(before[1].key, after[1].key);
  EXPECT_THAT(chartOf({}), IsEmpty());
}

TEST(WeeklyChart, TellsTheDayOfWhereThePersonIs) {
  FakeCalendar west;
  west.zone = std::chrono::hours{-8};
  EXPECT_EQ(weeklyChart({{.start = kThirdOfNovember, .count = 1}}, west)[0].spoken,
            "Nov 2: 1 reviewed");
}

}  // namespace
}  // namespace vellix
