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

DatePick pickAt(Moment moment) { return {.at = moment}; }

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
BOOST_DESCRIBE_STRUCT(Step, (), (name, pick, part, by, then))

class Steps : public testing::TestWithParam<Step> {};

TEST_P(Steps, StayInTheRange) {
  const FakeCalendar calendar;
  const auto& each = GetParam();
  const DatePick then = stepped(pickAt(each.pick), each.part, each.by, kRange, calendar);
  EXPECT_EQ(then, pickAt(each.then)) << told(then.at);
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

struct Number {
  const char* name;
  const char* part;
  int number;
  Moment then;
  bool to24 = false;
};
BOOST_DESCRIBE_STRUCT(Number, (), (name, part, number, then, to24))

class Numbers : public testing::TestWithParam<Number> {};

// Into Wednesday, 3:40 PM.
TEST_P(Numbers, GoThereIfTheyCan) {
  const auto& each = GetParam();
  FakeCalendar calendar;
  calendar.to24 = each.to24;
  const DatePick then = withNumber(pickAt(at(1, 15, 40)), each.part, each.number, kRange, calendar);
  EXPECT_EQ(then, pickAt(each.then)) << told(then.at);
}

INSTANTIATE_TEST_SUITE_P(All, Numbers,
                         testing::Values(Number{"AnHourOfTheAfternoon", "hour", 4, at(1, 16, 40)},
                                         Number{"TwelveInTheAfternoonIsNoon", "hour", 12,
                                                at(1, 12, 40)},
                                         Number{"NoSuchHour", "hour", 13, at(1, 15, 40)},
                                         Number{"NoHourAtAll", "hour", 0, at(1, 15, 40)},
                                         Number{"AnHourTo24", "hour", 4, at(1, 4, 40), true},
                                         Number{"MidnightTo24", "hour", 0, at(1, 0, 40), true},
                                         Number{"NoSuchHourTo24", "hour", 24, at(1, 15, 40), true},
                                         Number{"AMinute", "minute", 5, at(1, 15, 5)},
                                         Number{"NoSuchMinute", "minute", 60, at(1, 15, 40)},
                                         Number{"NoMinuteAtAll", "minute", -1, at(1, 15, 40)},
                                         Number{"ADay", "day", 19'675, at(0, 15, 40)},
                                         Number{"ADayOutOfTheRange", "day", 0, kRange.earliest},
                                         Number{"TheMorning", "half", 0, at(1, 3, 40)},
                                         Number{"TheSameHalf", "half", 1, at(1, 15, 40)},
                                         Number{"NoHalfTo24", "half", 0, at(1, 15, 40), true},
                                         Number{"AnUnknownPart", "year", 7, at(1, 15, 40)}),
                         [](const auto& each) { return each.param.name; });

// What is typed: digits; "^" and "v" step the part, "|" leaves it, "m" and "h" go to another.
struct Typing {
  const char* name;
  const char* keys;
  Moment then;
  const char* shown;  // the hour and the minute
  bool to24 = true;
  Moment from = at(0, 16, 0);
};
BOOST_DESCRIBE_STRUCT(Typing, (), (name, keys, then, shown, to24, from))

class Typings : public testing::TestWithParam<Typing> {};

// From Tuesday, 4:00 PM, into the hour, at 2:13 PM.
TEST_P(Typings, AreHeldToTheRangeOnceTheyAreWhole) {
  const auto& each = GetParam();
  FakeCalendar calendar;
  calendar.to24 = each.to24;
  const MomentRange range{at(0, 14, 13), at(2, 10, 20)};
  DatePick pick = pickAt(each.from);
  std::string part = "hour";
  for (const char* key = each.keys; *key; ++key) {
    if (*key == '|' || *key == 'm' || *key == 'h') {
      pick = settled(pick, range, calendar);
      if (*key != '|') part = *key == 'm' ? "minute" : "hour";
    } else if (*key == '^' || *key == 'v') {
      pick = stepped(pick, part, *key == '^' ? 1 : -1, range, calendar);
    } else {
      pick = withDigit(pick, part, *key, range, calendar);
    }
  }
  EXPECT_EQ(pick.at, each.then) << told(pick.at);
  const auto view = datePicker(pick, range, calendar);
  EXPECT_EQ(view.hour + ":" + view.minute, each.shown);
}

INSTANTIATE_TEST_SUITE_P(
    All, Typings,
    testing::Values(
        Typing{"TwoDigitsKeepTheMinutes", "17", at(0, 17, 0), "17:00"},
        Typing{"TheFirstOfTwoWaits", "1", at(0, 16, 0), "1:00"},
        Typing{"TheFirstOfTwoLeft", "1|", at(0, 14, 13), "14:13"},
        Typing{"TheFirstOfTwoLeftWhereItCanBe", "1|", at(1, 1, 30), "01:30", true, at(1, 9, 30)},
        Typing{"OneThatCannotBecomeLonger", "9", at(1, 9, 30), "09:30", true, at(1, 16, 30)},
        Typing{"OneThatHasPassed", "9", at(0, 14, 13), "14:13"},
        Typing{"TwoThatHavePassed", "14", at(0, 14, 13), "14:13"},
        Typing{"TwoThatHaveNot", "14", at(0, 14, 45), "14:45", true, at(0, 16, 45)},
        Typing{"TwoBehindTheLatest", "11", at(2, 10, 20), "10:20", true, at(2, 9, 0)},
        Typing{"ANoughtFirst", "09", at(1, 9, 30), "09:30", true, at(1, 16, 30)},
        Typing{"NoughtsAreMidnight", "00", at(1, 0, 30), "00:30", true, at(1, 16, 30)},
        Typing{"ANoughtIsOneOfTheTwo", "01", at(1, 1, 30), "01:30", true, at(1, 16, 30)},
        Typing{"AThirdBeginsAnew", "181", at(0, 18, 0), "1:00"},
        Typing{"AThirdAndAFourth", "1719", at(0, 19, 0), "19:00"},
        Typing{"MoreThanTheHourCanBe", "29", at(1, 9, 30), "09:30", true, at(1, 16, 30)},
        Typing{"TheMinutesThen", "17m45", at(0, 17, 45), "17:45"},
        Typing{"AnEarlyHourAndItsMinutes", "14m50", at(0, 14, 50), "14:50"},
        Typing{"MinutesThatHavePassed", "14m05", at(0, 14, 13), "14:13"},
        Typing{"AMinuteWaits", "m3", at(0, 16, 0), "16:3"},
        Typing{"AMinuteLeft", "m3|", at(0, 16, 3), "16:03"},
        Typing{"AMinuteThatCannotBecomeLonger", "m7", at(0, 16, 7), "16:07"},
        Typing{"TheHourIsLeftForTheMinutes", "1m45", at(1, 1, 45), "01:45", true, at(1, 9, 30)},
        Typing{"AnArrowBetween", "1^", at(1, 2, 30), "02:30", true, at(1, 9, 30)},
        Typing{"NothingToLeave", "|", at(0, 16, 0), "16:00"},
        Typing{"ALetter", "x", at(0, 16, 0), "16:00"},
        Typing{"TwelveHours", "5", at(0, 17, 0), "5:00", false},
        Typing{"TwelveHoursWaitForAnother", "1", at(0, 16, 0), "1:00", false},
        Typing{"TwelveIsNoon", "12", at(1, 12, 30), "12:30", false, at(1, 16, 30)},
        Typing{"OneInTheAfternoon", "1|", at(1, 13, 30), "1:30", false, at(1, 16, 30)},
        Typing{"MoreThanTwelve", "17", at(0, 19, 0), "7:00", false},
        Typing{"NoSuchHour", "00", at(0, 16, 0), "4:00", false},
        Typing{"ANoughtFirstOfTwelve", "06", at(0, 18, 0), "6:00", false}),
    [](const auto& each) { return each.param.name; });

TEST(DatePicker, TakesNoDigitsIntoItsOtherParts) {
  const FakeCalendar calendar;
  for (const char* part : {"day", "half", "year", ""}) {
    EXPECT_EQ(withDigit(pickAt(at(1, 9, 0)), part, '1', kRange, calendar), pickAt(at(1, 9, 0)));
  }
}

TEST(DatePicker, MidnightIsTwelveInTheMorning) {
  const FakeCalendar calendar;
  EXPECT_EQ(withNumber(pickAt(at(1, 3, 40)), "hour", 12, kRange, calendar).at, at(1, 0, 40));
  const auto view = datePicker(pickAt(at(1, 0, 40)), kRange, calendar);
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
  EXPECT_EQ(datePicker(pickAt(at(1, 15, 5)), kRange, calendar), expected);
  calendar.to24 = true;
  expected.hour = "15";
  expected.hourNumber = 15;
  expected.half = "";
  EXPECT_EQ(datePicker(pickAt(at(1, 15, 5)), kRange, calendar), expected);
  EXPECT_EQ(datePicker(pickAt(at(1, 9, 5)), kRange, calendar).hour, "09");
}

TEST(DatePicker, IsHeldToTheRange) {
  const FakeCalendar calendar;
  const auto first = datePicker(pickAt(at(-5, 0, 0)), kRange, calendar);
  EXPECT_EQ(first.day + " " + first.hour + first.minute, "Tue, Nov 14 1020");
  EXPECT_FALSE(first.earlier);
  EXPECT_TRUE(first.later);
  EXPECT_EQ(first.dayNumber, first.firstDay);
  const auto last = datePicker(pickAt(at(50, 0, 0)), kRange, calendar);
  EXPECT_EQ(last.day + " " + last.hour + last.minute, "Thu, Nov 16 1020");
  EXPECT_TRUE(last.earlier);
  EXPECT_FALSE(last.later);
  EXPECT_EQ(last.dayNumber, last.lastDay);
  EXPECT_FALSE(last.otherHalf);
}

TEST(DatePicker, HasNowhereToGoInARangeOfSeconds) {
  const FakeCalendar calendar;
  const MomentRange range{at(0, 10, 20, 5), at(0, 10, 20, 50)};
  const auto view = datePicker(pickAt(at(0, 10, 20, 30)), range, calendar);
  EXPECT_FALSE(view.earlier || view.later || view.otherHalf);
  const DatePick pick = pickAt(at(0, 10, 20, 30));
  EXPECT_EQ(stepped(pick, "hour", 1, range, calendar).at, range.latest);
  EXPECT_EQ(stepped(pick, "hour", -1, range, calendar).at, range.earliest);
}

TEST(DatePicker, TellsTheDayWhereTheReaderIs) {
  FakeCalendar calendar;
  calendar.zone = std::chrono::hours{13};
  EXPECT_EQ(datePicker(pickAt(at(0, 11, 0)), kRange, calendar).day, "Wed, Nov 15");
  calendar.zone = -std::chrono::hours{11};
  EXPECT_EQ(datePicker(pickAt(at(0, 10, 59)), kRange, calendar).day, "Mon, Nov 13");
}

}  // namespace
}  // namespace vellix
