#include "records/friendly_time.hpp"

#include <cstdint>

namespace vellix {

std::string friendlyTime(Moment date, Moment now, const Calendar& calendar) {
  constexpr double sixDays = 518'400;
  const double seconds = secondsBetween(date, now);
  const auto whole = [](double value) { return std::to_string(static_cast<std::int64_t>(value)); };
  if (seconds < 50) return "just now";
  if (seconds < 3600) return whole(seconds / 60) + " min ago";
  const int today = calendar.dayOf(now);
  const int day = calendar.dayOf(date);
  if (day == today) return whole(seconds / 3600) + " hr ago";
  if (day == today - 1) return "Yesterday " + calendar.shortTime(date);
  if (seconds < sixDays) return calendar.weekday(date) + " " + calendar.shortTime(date);
  return calendar.monthAndDay(date);
}

}  // namespace vellix
