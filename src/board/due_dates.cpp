#include "board/due_dates.hpp"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace vellix {
namespace {

constexpr double kHour = 3'600;
constexpr double kDay = 86'400;
constexpr double kNear = 6 * kHour;

// Beyond this no count of minutes, hours or days makes sense, and none may overflow.
constexpr double kMostCounted = 1e15;

std::string whole(double value) {
  return std::to_string(static_cast<std::int64_t>(std::min(value, kMostCounted)));
}
std::string minutes(double seconds) { return whole(std::max(1.0, seconds / 60)); }

int daysAhead(Moment date, Moment now, const Calendar& calendar) {
  return calendar.dayOf(date) - calendar.dayOf(now);
}

}  // namespace

std::string dueText(Moment date, Moment now, const Calendar& calendar) {
  const double ahead = secondsBetween(now, date);
  if (ahead < 0) {
    if (ahead > -kHour) return "Overdue " + minutes(-ahead) + " min";
    if (ahead > -2 * kDay) return "Overdue " + whole(-ahead / kHour) + " hr";
    return "Overdue " + whole(-ahead / kDay) + " days";
  }
  if (ahead < kHour) return "Due in " + minutes(ahead) + " min";
  const std::string time = calendar.shortTime(date);
  const int days = daysAhead(date, now, calendar);
  if (days == 0) return "Due today " + time;
  if (days == 1) return "Due tomorrow " + time;
  return "Due " + calendar.shortWeekday(date) + " " + time;
}

std::string dueTextShort(Moment date, Moment now, const Calendar& calendar) {
  constexpr std::string_view overdue = "Overdue ";
  constexpr std::string_view dueIn = "Due in ";
  const std::string text = dueText(date, now, calendar);
  if (text.starts_with(overdue)) return "Late " + text.substr(overdue.size());
  if (text.starts_with(dueIn)) return "In " + text.substr(dueIn.size());
  const std::string time = calendar.shortTime(date);
  const int days = daysAhead(date, now, calendar);
  if (days == 0) return "Today " + time;
  if (days == 1) return "Tomorrow " + time;
  return calendar.shortWeekday(date) + " " + time;
}

std::string dueTextTiny(Moment date, Moment now, const Calendar& calendar) {
  std::string text = dueTextShort(date, now, calendar);
  if (text.starts_with("Late ") || text.starts_with("In ")) return text;
  const int days = daysAhead(date, now, calendar);
  if (days == 0) return calendar.shortTime(date);
  if (days == 1) return "Tomorrow";
  return calendar.shortWeekday(date);
}

std::optional<DueChipView> dueChip(const FileItem& file, Moment now, const Calendar& calendar) {
  if (file.status == "reviewed" || !file.due) return std::nullopt;
  const Moment date = momentOf(*file.due);
  DueChipView chip{
      .text = dueText(date, now, calendar),
      .shortText = dueTextShort(date, now, calendar),
      .tinyText = dueTextTiny(date, now, calendar),
      .icon = "clock",
      .tone = "gray",
  };
  if (date < now) {
    chip.tone = "red";
  } else if (file.urgent.value_or(false)) {
    chip.tone = "orange";
    chip.icon = "flame";
  } else if (secondsBetween(now, date) < kNear) {
    chip.tone = "orange";
  }
  return chip;
}

}  // namespace vellix
