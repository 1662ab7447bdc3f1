#include "support/fakes.hpp"

#include <array>
#include <chrono>

namespace vellix {
namespace {

std::chrono::sys_days dayIn(Moment moment) { return std::chrono::floor<std::chrono::days>(moment); }

}  // namespace

int FakeCalendar::dayOf(Moment moment) const {
  return static_cast<int>(dayIn(moment).time_since_epoch().count());
}

std::string FakeCalendar::shortTime(Moment moment) const {
  const auto minutes =
      std::chrono::floor<std::chrono::minutes>(moment - Moment{dayIn(moment)}).count();
  const auto hour = minutes / 60;
  const auto minute = minutes % 60;
  return std::to_string(hour % 12 == 0 ? 12 : hour % 12) + ":" + (minute < 10 ? "0" : "") +
         std::to_string(minute) + (hour < 12 ? " AM" : " PM");
}

std::string FakeCalendar::weekday(Moment moment) const {
  static constexpr std::array names{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                    "Thursday", "Friday", "Saturday"};
  return names.at(std::chrono::weekday{dayIn(moment)}.c_encoding());
}

std::string FakeCalendar::monthAndDay(Moment moment) const {
  static constexpr std::array names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const std::chrono::year_month_day date{dayIn(moment)};
  return std::string{names.at(unsigned{date.month()} - 1)} + " " +
         std::to_string(unsigned{date.day()});
}

}  // namespace vellix
