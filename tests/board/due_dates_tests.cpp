// A due date in words, and the chip that shows it.
#include "board/due_dates.hpp"

#include <gtest/gtest.h>

#include "support/desk.hpp"

namespace vellix {
namespace {

constexpr double kMinute = 60;
constexpr double kHour = 3'600;
constexpr double kDay = 86'400;

// Tuesday, 14 November 2023, at the time of day.
Moment tuesdayAt(int hour, int minute = 0) {
  return momentOf((1'699'920'000 + hour * kHour + minute * kMinute) * 1'000);
}

Moment after(Moment moment, double seconds) { return moment + Milliseconds{seconds * 1'000}; }

struct Words {
  const char* name;
  Moment now;
  double ahead;  // seconds
  const char* text;
  const char* shortText;
  const char* tinyText;
};
BOOST_DESCRIBE_STRUCT(Words, (), (name, now, ahead, text, shortText, tinyText))

class DueWords : public testing::TestWithParam<Words> {};

TEST_P(DueWords, ReadAsTold) {
  const FakeCalendar calendar;
  const auto& each = GetParam();
  const Moment date = after(each.now, each.ahead);
  EXPECT_EQ(dueText(date, each.now, calendar), each.text);
  EXPECT_EQ(dueTextShort(date, each.now, calendar), each.shortText);
  EXPECT_EQ(dueTextTiny(date, each.now, calendar), each.tinyText);
}

std::string nameOf(const testing::TestParamInfo<Words>& each) { return each.param.name; }

INSTANTIATE_TEST_SUITE_P(
    Late, DueWords,
    testing::Values(
        Words{"AMillisecond", tuesdayAt(10), -0.001, "Overdue 1 min", "Late 1 min", "Late 1 min"},
        Words{"HalfAMinute", tuesdayAt(10), -30, "Overdue 1 min", "Late 1 min", "Late 1 min"},
        Words{"CutTowardZero", tuesdayAt(10), -119, "Overdue 1 min", "Late 1 min", "Late 1 min"},
        Words{"TwoMinutes", tuesdayAt(10), -120, "Overdue 2 min", "Late 2 min", "Late 2 min"},
        Words{"JustUnderAnHour", tuesdayAt(10), -3'599, "Overdue 59 min", "Late 59 min",
              "Late 59 min"},
        Words{"AnHour", tuesdayAt(10), -3'600, "Overdue 1 hr", "Late 1 hr", "Late 1 hr"},
        Words{"JustUnderTwoHours", tuesdayAt(10), -7'199, "Overdue 1 hr", "Late 1 hr", "Late 1 hr"},
        Words{"ADay", tuesdayAt(10), -kDay, "Overdue 24 hr", "Late 24 hr", "Late 24 hr"},
        Words{"AlmostTwoDays", tuesdayAt(10), -47.9 * kHour, "Overdue 47 hr", "Late 47 hr",
              "Late 47 hr"},
        Words{"TwoDays", tuesdayAt(10), -48 * kHour, "Overdue 2 days", "Late 2 days",
              "Late 2 days"},
        Words{"AlmostThreeDays", tuesdayAt(10), -3 * kDay + 1, "Overdue 2 days", "Late 2 days",
              "Late 2 days"},
        Words{"AYear", tuesdayAt(10), -365 * kDay, "Overdue 365 days", "Late 365 days",
              "Late 365 days"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Ahead, DueWords,
    testing::Values(
        Words{"Now", tuesdayAt(10), 0, "Due in 1 min", "In 1 min", "In 1 min"},
        Words{"UnderAMinute", tuesdayAt(10), 59, "Due in 1 min", "In 1 min", "In 1 min"},
        Words{"CutTowardZero", tuesdayAt(10), 179, "Due in 2 min", "In 2 min", "In 2 min"},
        Words{"JustUnderAnHour", tuesdayAt(10), 3'599, "Due in 59 min", "In 59 min", "In 59 min"},
        Words{"AnHour", tuesdayAt(10), 3'600, "Due today 11:00 AM", "Today 11:00 AM", "11:00 AM"},
        Words{"LastMinuteOfToday", tuesdayAt(10), 13 * kHour + 59 * kMinute, "Due today 11:59 PM",
              "Today 11:59 PM", "11:59 PM"},
        Words{"Midnight", tuesdayAt(10), 14 * kHour, "Due tomorrow 12:00 AM", "Tomorrow 12:00 AM",
              "Tomorrow"},
        Words{"LastMinuteOfTomorrow", tuesdayAt(10), 38 * kHour - kMinute, "Due tomorrow 11:59 PM",
              "Tomorrow 11:59 PM", "Tomorrow"},
        Words{"TheDayAfter", tuesdayAt(10), 38 * kHour, "Due Thu 12:00 AM", "Thu 12:00 AM", "Thu"},
        Words{"AWeek", tuesdayAt(10), 7 * kDay, "Due Tue 10:00 AM", "Tue 10:00 AM", "Tue"},
        Words{"MinutesComeBeforeTomorrow", tuesdayAt(23, 40), 50 * kMinute, "Due in 50 min",
              "In 50 min", "In 50 min"},
        // Less than a day away and yet tomorrow: days are told by the calendar.
        Words{"TomorrowInTwoHours", tuesdayAt(23), 2 * kHour, "Due tomorrow 1:00 AM",
              "Tomorrow 1:00 AM", "Tomorrow"}),
    nameOf);

TEST(DueWords, HoldDatesThatNoCalendarKnows) {
  const FakeCalendar calendar;
  EXPECT_EQ(dueText(momentOf(-1e300), tuesdayAt(10), calendar).substr(0, 8), "Overdue ");
  EXPECT_EQ(dueTextTiny(momentOf(-1e300), tuesdayAt(10), calendar).substr(0, 5), "Late ");
}

struct Steady {
  const char* name;
  double ahead;  // seconds
  double steady;
};
BOOST_DESCRIBE_STRUCT(Steady, (), (name, ahead, steady))

class SteadyDueWords : public testing::TestWithParam<Steady> {};

TEST_P(SteadyDueWords, StayUntilTheirTime) {
  const auto& each = GetParam();
  const Moment now = tuesdayAt(10);
  EXPECT_NEAR(dueSteadyFor(after(now, each.ahead), now), each.steady, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(All, SteadyDueWords,
                         testing::Values(Steady{"UntilTheNextDay", -2.25 * kDay, 0.75 * kDay},
                                         Steady{"UntilTheNextHour", -1.75 * kHour, 0.25 * kHour},
                                         Steady{"UntilTheNextMinute", -90, 30},
                                         Steady{"AnHourLate", -kHour, kHour},
                                         Steady{"UntilLate", 20, 20}, Steady{"AtTheMoment", 0, 0},
                                         Steady{"UntilAMinuteLess", 30 * kMinute + 5, 5},
                                         Steady{"UntilMinutesCount", 1.5 * kHour, 0.5 * kHour},
                                         Steady{"UntilNear", 7 * kHour, kHour}),
                         [](const auto& each) { return std::string{each.param.name}; });

TEST(SteadyDueWords, SayTheSameAllTheWhile) {
  const FakeCalendar calendar;
  FileItem file = ticketOf("t1");
  int steady = 0;
  for (double ahead = -3 * kDay; ahead < 3 * kDay; ahead += 397) {
    for (const double passed : {1.0, 29.0, 59.0, 601.0, 3'599.0, 11'000.0}) {
      const Moment now = tuesdayAt(10);
      const Moment later = after(now, passed);
      const Moment date = after(now, ahead);
      file.due = wireOf(date);
      if (passed >= dueSteadyFor(date, now)) continue;
      ++steady;
      EXPECT_EQ(dueChip(file, now, calendar), dueChip(file, later, calendar)) << ahead;
      EXPECT_EQ(date < now, date < later) << ahead;
    }
  }
  EXPECT_GT(steady, 3'000);
}

struct Chip {
  const char* name;
  const char* status;
  std::optional<double> ahead;  // seconds to the due date
  std::optional<bool> urgent;
  const char* tone;  // empty when there is no chip
  const char* icon;
};
BOOST_DESCRIBE_STRUCT(Chip, (), (name, status, ahead, urgent, tone, icon))

class DueChips : public testing::TestWithParam<Chip> {};

TEST_P(DueChips, TakeToneAndIcon) {
  const FakeCalendar calendar;
  const Moment now = tuesdayAt(10);
  const auto& each = GetParam();
  FileItem file = ticketOf("t1", each.status);
  if (each.ahead) file.due = wireOf(after(now, *each.ahead));
  file.urgent = each.urgent;
  const auto chip = dueChip(file, now, calendar);
  EXPECT_EQ(chip ? chip->tone : "", each.tone);
  EXPECT_EQ(chip ? chip->icon : "", each.icon);
  if (!chip) return;
  const Moment date = momentOf(*file.due);
  EXPECT_EQ(chip->text, dueText(date, now, calendar));
  EXPECT_EQ(chip->shortText, dueTextShort(date, now, calendar));
  EXPECT_EQ(chip->tinyText, dueTextTiny(date, now, calendar));
}

INSTANTIATE_TEST_SUITE_P(
    All, DueChips,
    testing::Values(Chip{"NoneWithoutADate", "new", std::nullopt, true, "", ""},
                    Chip{"NoneWhenReviewed", "reviewed", -kHour, std::nullopt, "", ""},
                    Chip{"Late", "new", -1.0, std::nullopt, "red", "clock"},
                    Chip{"LateAndUrgent", "in_review", -1.0, true, "red", "clock"},
                    Chip{"AtTheMoment", "new", 0.0, std::nullopt, "orange", "clock"},
                    Chip{"Urgent", "new", 2 * kDay, true, "orange", "flame"},
                    Chip{"UrgentAndNear", "new", kHour, true, "orange", "flame"},
                    Chip{"NotUrgent", "new", 2 * kDay, false, "gray", "clock"},
                    Chip{"JustUnderSixHours", "new", 6 * kHour - 0.001, false, "orange", "clock"},
                    Chip{"SixHours", "new", 6 * kHour, std::nullopt, "gray", "clock"},
                    Chip{"AnyOtherStatus", "mystery", 2 * kDay, std::nullopt, "gray", "clock"}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
