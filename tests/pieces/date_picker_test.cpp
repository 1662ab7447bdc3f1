// A date with hour and minute, picked part by part.
#include "pieces/date_picker.hpp"

#include <gtest/gtest.h>

#include "support/fakes.hpp"

namespace vellix {
namespace {

// Tuesday, 14 November 2023, so many days on, at the time of day; in UTC.
Moment at(int day, int hour, int minute, int second = 0) {
  return momentOf((1'699'920'000 + day * 86'400.0 + hour * 3'600.0 + minute * 60.0 + second) *
                  1'000);
}

// From Tuesday, 10:20:30, on for 48 hours.
const MomentRange kRange{at(0, 10, 20, 30), at(2, 10, 20, 30)};

std::string told(Moment moment) {
  const FakeCalendar calendar;
  return calendar.shortWeekday(moment) + " " + calendar.shortTime(moment);
}

struct Step {
  const char* name;
  Moment pick;
  const char* part;
  int by;
  Moment then;
};

class Steps : public testing::TestWithParam<Step> {};

TEST_P(Steps, StayInTheRange) {
  const FakeCalendar calendar;
  const auto& each = GetParam();
  const Moment then = stepped(each.pick, each.part, each.by, kRange, calendar);
  EXPECT_EQ(then, each.then) << told(then);
}

INSTANTIATE_TEST_SUITE_P(
    All, Steps,
    testing::Values(Step{"ADayOn", at(0, 12, 0), "day", 1, at(1, 12, 0)},
                    Step{"ADayBack", at(1, 12, 0), "day", -1, at(0, 12, 0)},
                    Step{"ADayOnToTheLatest", at(1, 12, 0), "day", 1, kRange.latest},
                    Step{"ADayBackToTheEarliest", at(1, 9, 0), "day", -1, kRange.earliest},
                    Step{"BeyondTheLastDay", at(2, 9, 0), "day", 1, kRange.latest},
                    Step{"BeyondTheFirstDay", at(0, 11, 0), "day", -1, kRange.earliest},
                    Step{"AnHourOn", at(0, 11, 5), "hour", 1, at(0, 12, 5)},
                    Step{"AnHourOnOverMidnight", at(0, 23, 5), "hour", 1, at(1, 0, 5)},
                    Step{"AnHourBackOverMidnight", at(1, 0, 5), "hour", -1, at(0, 23, 5)},
                    Step{"AnHourBackToTheEarliest", at(0, 11, 5), "hour", -1, kRange.earliest},
                    Step{"AMinuteOn", at(0, 23, 59), "minute", 1, at(1, 0, 0)},
                    Step{"AMinuteBack", at(0, 12, 0), "minute", -1, at(0, 11, 59)},
                    Step{"SecondsAreCutOff", at(0, 12, 0, 42), "minute", 1, at(0, 12, 1)},
                    Step{"AQuarterOn", at(0, 12, 7), "quarter", 1, at(0, 12, 15)},
                    Step{"AWholeQuarterOn", at(0, 12, 15), "quarter", 1, at(0, 12, 30)},
                    Step{"AQuarterBack", at(0, 12, 7), "quarter", -1, at(0, 12, 0)},
                    Step{"AWholeQuarterBack", at(0, 12, 0), "quarter", -1, at(0, 11, 45)},
                    Step{"ToTheAfternoon", at(1, 9, 0), "half", 1, at(1, 21, 0)},
                    Step{"ToTheMorning", at(1, 21, 0), "half", -1, at(1, 9, 0)},
                    Step{"ToWhatTheRangeHasOfTheMorning", at(0, 12, 5), "half", 1,
                         at(0, 10, 20, 30)},
                    Step{"NoAfternoonOnTheLastDay", at(2, 9, 0), "half", 1, at(2, 9, 0)},
                    Step{"FromBeforeTheRange", at(-3, 9, 0), "hour", 1, at(0, 11, 20)},
                    Step{"FromBehindTheRange", at(9, 9, 0), "minute", -1, at(2, 10, 19)},
                    Step{"OfAnUnknownPart", at(1, 9, 0), "year", 1, at(1, 9, 0)}),
    [](const auto& each) { return each.param.name; });

struct Typing {
  const char* name;
  const char* part;
  int number;
  Moment then;
  bool to24 = false;
};

class Typings : public testing::TestWithParam<Typing> {};

// Into Wednesday, 3:40 PM.
TEST_P(Typings, GoThereIfTheyCan) {
  const auto& each = GetParam();
  FakeCalendar calendar;
  calendar.to24 = each.to24;
  const Moment then = typed(at(1, 15, 40), each.part, each.number, kRange, calendar);
  EXPECT_EQ(then, each.then) << told(then);
}

INSTANTIATE_TEST_SUITE_P(All, Typings,
                         testing::Values(Typing{"AnHourOfTheAfternoon", "hour", 4, at(1, 16, 40)},
                                         Typing{"TwelveInTheAfternoonIsNoon", "hour", 12,
                                                at(1, 12, 40)},
                                         Typing{"NoSuchHour", "hour", 13, at(1, 15, 40)},
                                         Typing{"NoHourAtAll", "hour", 0, at(1, 15, 40)},
                                         Typing{"AnHourTo24", "hour", 4, at(1, 4, 40), true},
                                         Typing{"MidnightTo24", "hour", 0, at(1, 0, 40), true},
                                         Typing{"NoSuchHourTo24", "hour", 24, at(1, 15, 40), true},
                                         Typing{"AMinute", "minute", 5, at(1, 15, 5)},
                                         Typing{"NoSuchMinute", "minute", 60, at(1, 15, 40)},
                                         Typing{"NoMinuteAtAll", "minute", -1, at(1, 15, 40)},
                                         Typing{"ADay", "day", 19'675, at(0, 15, 40)},
                                         Typing{"ADayOutOfTheRange", "day", 0, kRange.earliest},
                                         Typing{"TheMorning", "half", 0, at(1, 3, 40)},
                                         Typing{"TheSameHalf", "half", 1, at(1, 15, 40)},
                                         Typing{"NoHalfTo24", "half", 0, at(1, 15, 40), true},
                                         Typing{"AnUnknownPart", "year", 7, at(1, 15, 40)}),
                         [](const auto& each) { return each.param.name; });

TEST(DatePicker, MidnightIsTwelveInTheMorning) {
  const FakeCalendar calendar;
  EXPECT_EQ(typed(at(1, 3, 40), "hour", 12, kRange, calendar), at(1, 0, 40));
  const auto view = datePicker(at(1, 0, 40), kRange, calendar);
  EXPECT_EQ(view.hour, "12");
  EXPECT_EQ(view.half, "AM");
}

TEST(DatePicker, TellsItsParts) {
  FakeCalendar calendar;
  DatePickerView expected{.day = "Wed, Nov 15",
                          .hour = "3",
                          .minute = "05",
                          .half = "PM",
                          .dayNumber = 19'676,
                          .hourNumber = 3,
                          .minuteNumber = 5,
                          .afternoon = true,
                          .firstDay = 19'675,
                          .lastDay = 19'677,
                          .earlier = true,
                          .later = true,
                          .otherHalf = true};
  EXPECT_EQ(datePicker(at(1, 15, 5), kRange, calendar), expected);
  calendar.to24 = true;
  expected.hour = "15";
  expected.hourNumber = 15;
  expected.half = "";
  EXPECT_EQ(datePicker(at(1, 15, 5), kRange, calendar), expected);
  EXPECT_EQ(datePicker(at(1, 9, 5), kRange, calendar).hour, "09");
}

TEST(DatePicker, IsHeldToTheRange) {
  const FakeCalendar calendar;
  const auto first = datePicker(at(-5, 0, 0), kRange, calendar);
  EXPECT_EQ(first.day + " " + first.hour + first.minute, "Tue, Nov 14 1020");
  EXPECT_FALSE(first.earlier);
  EXPECT_TRUE(first.later);
  EXPECT_EQ(first.dayNumber, first.firstDay);
  const auto last = datePicker(at(50, 0, 0), kRange, calendar);
  EXPECT_EQ(last.day + " " + last.hour + last.minute, "Thu, Nov 16 1020");
  EXPECT_TRUE(last.earlier);
  EXPECT_FALSE(last.later);
  EXPECT_EQ(last.dayNumber, last.lastDay);
  EXPECT_FALSE(last.otherHalf);
}

TEST(DatePicker, HasNowhereToGoInARangeOfSeconds) {
  const FakeCalendar calendar;
  const MomentRange range{at(0, 10, 20, 5), at(0, 10, 20, 50)};
  const auto view = datePicker(at(0, 10, 20, 30), range, calendar);
  EXPECT_FALSE(view.earlier || view.later || view.otherHalf);
  EXPECT_EQ(stepped(at(0, 10, 20, 30), "hour", 1, range, calendar), range.latest);
  EXPECT_EQ(stepped(at(0, 10, 20, 30), "hour", -1, range, calendar), range.earliest);
}

TEST(DatePicker, TellsTheDayWhereTheReaderIs) {
  FakeCalendar calendar;
  calendar.zone = std::chrono::hours{13};
  EXPECT_EQ(datePicker(at(0, 11, 0), kRange, calendar).day, "Wed, Nov 15");
  calendar.zone = -std::chrono::hours{11};
  EXPECT_EQ(datePicker(at(0, 10, 59), kRange, calendar).day, "Mon, Nov 13");
}

}  // namespace
}  // namespace vellix
