#include "clock.hpp"

#include <chrono>
#include <cmath>
#include <ctime>

namespace vellix::demo {

double nowMs() {
  const auto since = std::chrono::system_clock::now().time_since_epoch();
  return static_cast<double>(std::chrono::duration_cast<std::chrono::milliseconds>(since).count());
}

double atLocal(double now, int days, int hour, int minute) {
  const auto seconds = static_cast<std::time_t>(std::floor(now / 1000));
  std::tm day{};
  localtime_r(&seconds, &day);
  day.tm_mday += days;
  day.tm_hour = hour;
  day.tm_min = minute;
  day.tm_sec = 0;
  day.tm_isdst = -1;
  return static_cast<double>(std::mktime(&day)) * 1000;
}

long localDay(double at) {
  const auto seconds = static_cast<std::time_t>(std::floor(at / 1000));
  std::tm day{};
  localtime_r(&seconds, &day);
  const std::chrono::year_month_day date{std::chrono::year(day.tm_year + 1900),
                                         std::chrono::month(static_cast<unsigned>(day.tm_mon + 1)),
                                         std::chrono::day(static_cast<unsigned>(day.tm_mday))};
  return std::chrono::sys_days(date).time_since_epoch().count();
}

}  // namespace vellix::demo
