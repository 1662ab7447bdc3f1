// A person's reviewing in six figures.
#include "profile/person_figures.hpp"

#include <gmock/gmock.h>

#include "profile/profile_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

struct DaysCase {
  const char* name;
  std::optional<double> hours;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(DaysCase, (), (name, hours, text))

class Days : public testing::TestWithParam<DaysCase> {};

TEST_P(Days, AreToldToOneDecimalPlace) { EXPECT_EQ(daysText(GetParam().hours), GetParam().text); }

INSTANTIATE_TEST_SUITE_P(
    All, Days,
    testing::Values(
        DaysCase{"None", std::nullopt, "—"}, DaysCase{"Nothing", 0, "< 0.1 days"},
        DaysCase{"OneHour", 1, "< 0.1 days"}, DaysCase{"BelowTheHalf", 1.19, "< 0.1 days"},
        DaysCase{"AboveTheHalf", 1.21, "0.1 days"}, DaysCase{"TwoHours", 2, "0.1 days"},
        DaysCase{"Made", 6.4, "0.3 days"}, DaysCase{"JustBelowADay", 22.7, "0.9 days"},
        DaysCase{"RoundedUpToADay", 22.9, "1 day"}, DaysCase{"ADay", 24, "1 day"},
        DaysCase{"RoundedDownToADay", 25.1, "1 day"}, DaysCase{"JustAboveADay", 25.3, "1.1 days"},
        DaysCase{"TwoDays", 48, "2 days"}, DaysCase{"RoundedToTwoDays", 48.9, "2 days"},
        DaysCase{"TwoAndAHalf", 60, "2.5 days"}, DaysCase{"TenDays", 240, "10 days"},
        DaysCase{"AHundredDays", 2'400, "100 days"}, DaysCase{"Backwards", -24, "—"},
        DaysCase{"FarBackwards", -1e308, "—"}, DaysCase{"ALittleBackwards", -1, "< 0.1 days"},
        DaysCase{"NoNumber", kNaN, "—"}, DaysCase{"Endless", kEndless, "—"},
        DaysCase{"EndlesslyBackwards", -kEndless, "—"},
        DaysCase{"BeyondAnySpan", 1e308, "10000000000000 days"}),
    [](const auto& each) { return each.param.name; });

enum Tile : std::size_t { kReviewed, kOnTime, kTypical, kIssues, kStreak, kNotes };

struct TileCase {
  const char* name;
  PersonStats stats;
  Tile tile;
  const char* value;
  const char* note;
  const char* spoken;
};
BOOST_DESCRIBE_STRUCT(TileCase, (), (name, stats, value, note, spoken))

class Tiles : public testing::TestWithParam<TileCase> {};

TEST_P(Tiles, TellTheirFigure) {
  const auto tile = personFigures(GetParam().stats).at(GetParam().tile);
  EXPECT_EQ(tile.value, GetParam().value);
  EXPECT_EQ(tile.note, GetParam().note);
  EXPECT_EQ(tile.spoken, GetParam().spoken);
}

INSTANTIATE_TEST_SUITE_P(
    Reviewed, Tiles,
    testing::Values(TileCase{"NoneThisWeek",
                             {.reviewed = 39},
                             kReviewed,
                             "39",
                             "None yet this week",
                             "Tickets reviewed: 39, None yet this week"},
                    TileCase{"OneThisWeek",
                             {.reviewed = 39, .reviewed_week = 1},
                             kReviewed,
                             "39",
                             "+1 this week",
                             "Tickets reviewed: 39, +1 this week"},
                    TileCase{"Many",
                             {.reviewed = kMost, .reviewed_week = 12},
                             kReviewed,
                             "9223372036854775807",
                             "+12 this week",
                             "Tickets reviewed: 9223372036854775807, +12 this week"},
                    TileCase{"BelowNone",
                             {.reviewed = -3, .reviewed_week = kLeast},
                             kReviewed,
                             "0",
                             "None yet this week",
                             "Tickets reviewed: 0, None yet this week"}),
    [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(
    OnTime, Tiles,
    testing::Values(TileCase{"Rate",
                             {.reviewed = 39, .on_time = 35, .on_time_rate = 89},
                             kOnTime,
                             "89%",
                             "35 of 39 inside the window",
                             "On time: 89%, 35 of 39 inside the window"},
                    TileCase{"RateOfNone",
                             {.reviewed = 4, .on_time_rate = 0},
                             kOnTime,
                             "0%",
                             "0 of 4 inside the window",
                             "On time: 0%, 0 of 4 inside the window"},
                    TileCase{"NoRate",
                             {},
                             kOnTime,
                             "—",
                             "0 of 0 inside the window",
                             "On time: not known yet, 0 of 0 inside the window"},
                    TileCase{"BelowNone",
                             {.reviewed = -9, .on_time = -7, .on_time_rate = 250},
                             kOnTime,
                             "250%",
                             "0 of 0 inside the window",
                             "On time: 250%, 0 of 0 inside the window"}),
    [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Typical, Tiles,
    testing::Values(TileCase{"Told",
                             {.avg_hours = 60},
                             kTypical,
                             "2.5 days",
                             "From the file coming in to reviewed",
                             "Typical review: 2.5 days, From the file coming in to reviewed"},
                    TileCase{"Untold",
                             {},
                             kTypical,
                             "—",
                             "From the file coming in to reviewed",
                             "Typical review: not known yet, From the file coming in to reviewed"}),
    [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(Issues, Tiles,
                         testing::Values(TileCase{"Told",
                                                  {.issues = 27, .fine = 61},
                                                  kIssues,
                                                  "27",
                                                  "61 checked and cleared",
                                                  "Issues caught: 27, 61 checked and cleared"},
                                         TileCase{"BelowNone",
                                                  {.issues = -1, .fine = -1},
                                                  kIssues,
                                                  "0",
                                                  "0 checked and cleared",
                                                  "Issues caught: 0, 0 checked and cleared"}),
                         [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(Streak, Tiles,
                         testing::Values(TileCase{"None",
                                                  {},
                                                  kStreak,
                                                  "0",
                                                  "Review today to start one",
                                                  "Day streak: 0, Review today to start one"},
                                         TileCase{"One",
                                                  {.streak = 1},
                                                  kStreak,
                                                  "1",
                                                  "Reviewed every day in a row",
                                                  "Day streak: 1, Reviewed every day in a row"},
                                         TileCase{"BelowNone",
                                                  {.streak = -2},
                                                  kStreak,
                                                  "0",
                                                  "Review today to start one",
                                                  "Day streak: 0, Review today to start one"}),
                         [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(Notes, Tiles,
                         testing::Values(TileCase{"NoneOverdue",
                                                  {.notes = 22, .open = 5},
                                                  kNotes,
                                                  "22",
                                                  "5 open now",
                                                  "Notes written: 22, 5 open now"},
                                         TileCase{"OneOverdue",
                                                  {.notes = 22, .open = 5, .overdue = 1},
                                                  kNotes,
                                                  "22",
                                                  "5 open now, 1 overdue",
                                                  "Notes written: 22, 5 open now, 1 overdue"},
                                         TileCase{"BelowNone",
                                                  {.notes = -1, .open = -1, .overdue = -1},
                                                  kNotes,
                                                  "0",
                                                  "0 open now",
                                                  "Notes written: 0, 0 open now"}),
                         [](const auto& each) { return each.param.name; });

TEST(PersonFigures, AreSixInTheSameOrder) {
  std::vector<std::string> titles;
  for (const auto& tile : personFigures({})) titles.push_back(tile.title);
  EXPECT_THAT(titles, ElementsAre("Tickets reviewed", "On time", "Typical review", "Issues caught",
                                  "Day streak", "Notes written"));
}

}  // namespace
}  // namespace vellix
