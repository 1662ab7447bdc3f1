#include "pieces/date_picker.hpp"

#include <algorithm>
#include <cmath>

namespace vellix {
namespace {

constexpr int kNoon = 12;
constexpr int kQuarter = 15;

Moment laterBy(Moment moment, int minutes) {
  return minuteOf(moment) + std::chrono::minutes{minutes};
}

std::string twoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

bool hasHalves(const Calendar& calendar) { return !calendar.halfOfDay(false).empty(); }

int onClock(int hour) { return hour % kNoon == 0 ? kNoon : hour % kNoon; }

// Of the parts that digits are typed into; none has more than two.
int mostOf(std::string_view part, const Calendar& calendar) {
  if (part == "minute") return 59;
  if (part != "hour") return 0;
  return hasHalves(calendar) ? kNoon : 2 * kNoon - 1;
}

int numberOf(const std::string& digits) {
  int number = 0;
  for (const char digit : digits) number = 10 * number + (digit - '0');
  return number;
}

// Stays in its half where the range has nothing of the other.
Moment inOtherHalf(Moment pick, const MomentRange& range, const Calendar& calendar) {
  WallTime wall = calendar.wallTime(pick);
  const bool afternoon = wall.hour >= kNoon;
  const int day = wall.day;
  wall.hour += afternoon ? -kNoon : kNoon;
  const Moment other = heldTo(range, calendar.momentAt(wall));
  const WallTime found = calendar.wallTime(other);
  return found.day == day && (found.hour >= kNoon) != afternoon ? other : pick;
}

}  // namespace

Moment minuteOf(Moment moment) {
  constexpr double kMinute = 60'000;
  return momentOf(std::floor(wireOf(moment) / kMinute) * kMinute);
}

Moment heldTo(const MomentRange& range, Moment pick) {
  return std::min(std::max(pick, range.earliest), range.latest);
}

DatePickerView datePicker(const DatePick& pick, const MomentRange& range,
                          const Calendar& calendar) {
  const Moment held = heldTo(range, pick.at);
  const WallTime wall = calendar.wallTime(held);
  const bool halves = hasHalves(calendar);
  const int hour = halves ? onClock(wall.hour) : wall.hour;
  const auto shown = [&](std::string_view part, const std::string& number) {
    return pick.part == part ? pick.digits : number;
  };
  return {.day = calendar.shortWeekday(held) + ", " + calendar.monthAndDay(held),
          .hour = shown("hour", halves ? std::to_string(hour) : twoDigits(hour)),
          .minute = shown("minute", twoDigits(wall.minute)),
          .half = calendar.halfOfDay(wall.hour >= kNoon),
          .dayNumber = wall.day,
          .hourNumber = hour,
          .minuteNumber = wall.minute,
          .afternoon = wall.hour >= kNoon,
          .firstDay = calendar.dayOf(range.earliest),
          .lastDay = calendar.dayOf(range.latest),
          .earlier = minuteOf(range.earliest) < minuteOf(held),
          .later = minuteOf(held) < minuteOf(range.latest),
          .otherHalf = inOtherHalf(held, range, calendar) != held};
}

DatePick withDigit(const DatePick& pick, std::string_view part, char digit,
                   const MomentRange& range, const Calendar& calendar) {
  const int most = mostOf(part, calendar);
  if (most == 0 || digit < '0' || digit > '9') return pick;
  DatePick next = pick.part == part ? pick : settled(pick, range, calendar);
  next.part = part;
  next.digits += digit;
  if (numberOf(next.digits) > most) next.digits = digit;
  const bool whole = next.digits.size() == 2 || numberOf(next.digits) * 10 > most;
  return whole ? settled(next, range, calendar) : next;
}

DatePick settled(const DatePick& pick, const MomentRange& range, const Calendar& calendar) {
  if (pick.digits.empty()) return {.at = heldTo(range, pick.at)};
  return withNumber({.at = pick.at}, pick.part, numberOf(pick.digits), range, calendar);
}

// Hours and minutes pass as they do in the world; days keep the time on the wall.
DatePick stepped(const DatePick& pick, std::string_view part, int by, const MomentRange& range,
                 const Calendar& calendar) {
  const Moment held = settled(pick, range, calendar).at;
  WallTime wall = calendar.wallTime(held);
  Moment next = held;
  if (part == "day") {
    wall.day += by;
    next = calendar.momentAt(wall);
  } else if (part == "hour") {
    next = laterBy(held, 60 * by);
  } else if (part == "minute") {
    next = laterBy(held, by);
  } else if (part == "quarter") {
    const int past = wall.minute % kQuarter;
    const int back = past == 0 ? 0 : kQuarter;
    next = laterBy(held, kQuarter * by - past + (by < 0 ? back : 0));
  } else if (part == "half") {
    next = inOtherHalf(held, range, calendar);
  }
  return {.at = heldTo(range, next)};
}

DatePick withNumber(const DatePick& pick, std::string_view part, int number,
                    const MomentRange& range, const Calendar& calendar) {
  const Moment held = settled(pick, range, calendar).at;
  WallTime wall = calendar.wallTime(held);
  const bool halves = hasHalves(calendar);
  if (part == "day") {
    wall.day = number;
  } else if (part == "hour" && halves && number >= 1 && number <= kNoon) {
    wall.hour = number % kNoon + (wall.hour >= kNoon ? kNoon : 0);
  } else if (part == "hour" && !halves && number >= 0 && number < 2 * kNoon) {
    wall.hour = number;
  } else if (part == "minute" && number >= 0 && number < 60) {
    wall.minute = number;
  } else if (part == "half" && halves && (number == 1) != (wall.hour >= kNoon)) {
    return {.at = inOtherHalf(held, range, calendar)};
  } else {
    return {.at = held};
  }
  return {.at = heldTo(range, calendar.momentAt(wall))};
}

}  // namespace vellix
