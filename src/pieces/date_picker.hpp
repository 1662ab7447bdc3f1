// A date with hour and minute, picked part by part and held to a range.
#pragma once

#include <boost/describe.hpp>
#include <string>
#include <string_view>

#include "platform/ports/calendar.hpp"

namespace vellix {

// Both ends belong to it; the earliest is not later than the latest.
struct MomentRange {
  Moment earliest;
  Moment latest;
};

// A pick, and what is being typed into one of its parts. The digits become the part's number, and
// the pick is held to the range, when the part is whole or is left.
struct DatePick {
  Moment at{};
  std::string part;  // none: nothing is being typed
  std::string digits;
  bool operator==(const DatePick&) const = default;
};

// The parts as they are shown, and as numbers: days as Calendar::dayOf() counts them, the hour as
// the clock tells it.
struct DatePickerView {
  std::string day;
  std::string hour;
  std::string minute;
  std::string half;  // of the day; empty where the hours go on to 24
  int dayNumber = 0;
  int hourNumber = 0;
  int minuteNumber = 0;
  bool afternoon = false;
  int firstDay = 0;  // of those to choose from
  int lastDay = 0;
  bool earlier = false;  // there is a minute to go to
  bool later = false;
  bool otherHalf = false;
  bool operator==(const DatePickerView&) const = default;
};
BOOST_DESCRIBE_STRUCT(DatePickerView, (),
                      (day, hour, minute, half, dayNumber, hourNumber, minuteNumber, afternoon,
                       firstDay, lastDay, earlier, later, otherHalf))

Moment minuteOf(Moment moment);  // its beginning
Moment heldTo(const MomentRange& range, Moment pick);

DatePickerView datePicker(const DatePick& pick, const MomentRange& range, const Calendar& calendar);

// All give the pick as it is then, in the range. A part is "day", "hour", "minute" or "half".
// With one more digit in the part. One that would make it more than it can be is its first.
DatePick withDigit(const DatePick& pick, std::string_view part, char digit,
                   const MomentRange& range, const Calendar& calendar);
// The part that was typed into is left.
DatePick settled(const DatePick& pick, const MomentRange& range, const Calendar& calendar);
// By so many steps of the part; of "quarter" to the next quarter of an hour.
DatePick stepped(const DatePick& pick, std::string_view part, int by, const MomentRange& range,
                 const Calendar& calendar);
// With another number for the part: 0 or 1 for a half. What the part cannot be changes nothing.
DatePick withNumber(const DatePick& pick, std::string_view part, int number,
                    const MomentRange& range, const Calendar& calendar);

}  // namespace vellix
