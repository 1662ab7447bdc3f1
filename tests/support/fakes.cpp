#include "support/fakes.hpp"

#include <array>
#include <chrono>

namespace vellix {
namespace {

std::chrono::sys_days dayIn(Moment moment) { return std::chrono::floor<std::chrono::days>(moment); }

}  // namespace

int FakeCalendar::dayOf(Moment moment) const {
  return static_cast<int>(dayIn(moment + zone).time_since_epoch().count());
}

WallTime FakeCalendar::wallTime(Moment moment) const {
  const Moment local = moment + zone;
  const auto minutes =
      std::chrono::floor<std::chrono::minutes>(local - Moment{dayIn(local)}).count();
  return {.day = dayOf(moment),
          .hour = static_cast<int>(minutes / 60),
          .minute = static_cast<int>(minutes % 60)};
}

Moment FakeCalendar::momentAt(const WallTime& time) const {
  const std::chrono::sys_days day{std::chrono::days{time.day}};
  return Moment{day} + std::chrono::hours{time.hour} + std::chrono::minutes{time.minute} - zone;
}

std::string FakeCalendar::shortTime(Moment moment) const {
  const WallTime time = wallTime(moment);
  const auto two = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
  const std::string minute = ":" + two(time.minute);
  if (to24) return two(time.hour) + minute;
  return std::to_string(time.hour % 12 == 0 ? 12 : time.hour % 12) + minute +
         (time.hour < 12 ? " AM" : " PM");
}

std::string FakeCalendar::weekday(Moment moment) const {
  static constexpr std::array names{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                    "Thursday", "Friday", "Saturday"};
  return names.at(std::chrono::weekday{dayIn(moment + zone)}.c_encoding());
}

std::string FakeCalendar::monthAndDay(Moment moment) const {
  static constexpr std::array names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const std::chrono::year_month_day date{dayIn(moment + zone)};
  return std::string{names.at(unsigned{date.month()} - 1)} + " " +
         std::to_string(unsigned{date.day()});
}

std::string FakeCalendar::dateAndTime(Moment moment) const {
  const std::chrono::year_month_day date{dayIn(moment + zone)};
  return monthAndDay(moment) + ", " + std::to_string(int{date.year()}) + ", " + shortTime(moment);
}

}  // namespace vellix
