#include "board/due_dates.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace vellix {
namespace {

constexpr double kMinute = 60;
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

struct Words {
  std::string whole;
  std::string shorter;
  std::string tiny;
};

Words lateBy(const std::string& span) {
  return {"Overdue " + span, "Late " + span, "Late " + span};
}

// All three at once: the calendar is slow to ask.
Words wordsOf(Moment date, Moment now, const Calendar& calendar) {
  const double ahead = secondsBetween(now, date);
  if (ahead < 0) {
    if (ahead > -kHour) return lateBy(minutes(-ahead) + " min");
    if (ahead > -2 * kDay) return lateBy(whole(-ahead / kHour) + " hr");
    return lateBy(whole(-ahead / kDay) + " days");
  }
  if (ahead < kHour) {
    const std::string span = minutes(ahead) + " min";
    return {"Due in " + span, "In " + span, "In " + span};
  }
  const std::string time = calendar.shortTime(date);
  const int days = daysAhead(date, now, calendar);
  if (days == 0) return {"Due today " + time, "Today " + time, time};
  if (days == 1) return {"Due tomorrow " + time, "Tomorrow " + time, "Tomorrow"};
  const std::string day = calendar.shortWeekday(date);
  return {"Due " + day + " " + time, day + " " + time, day};
}

}  // namespace

std::string dueText(Moment date, Moment now, const Calendar& calendar) {
  return wordsOf(date, now, calendar).whole;
}

std::string dueTextShort(Moment date, Moment now, const Calendar& calendar) {
  return wordsOf(date, now, calendar).shorter;
}

std::string dueTextTiny(Moment date, Moment now, const Calendar& calendar) {
  return wordsOf(date, now, calendar).tiny;
}

double dueSteadyFor(Moment date, Moment now) {
  const double ahead = secondsBetween(now, date);
  if (ahead < 0) {
    const double unit = ahead > -kHour ? kMinute : ahead > -2 * kDay ? kHour : kDay;
    return unit - std::fmod(-ahead, unit);
  }
  if (ahead < kHour) return std::fmod(ahead, kMinute);
  return ahead - (ahead < kNear ? kHour : kNear);
}

std::optional<DueChipView> dueChip(const FileItem& file, Moment now, const Calendar& calendar) {
  if (file.status == "reviewed" || !file.due) return std::nullopt;
  const Moment date = momentOf(*file.due);
  Words words = wordsOf(date, now, calendar);
  DueChipView chip{
      .text = std::move(words.whole),
      .shortText = std::move(words.shorter),
      .tinyText = std::move(words.tiny),
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
