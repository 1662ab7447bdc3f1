#include "profile/weekly_chart.hpp"

#include <algorithm>

#include "profile/counts.hpp"

namespace vellix {

std::vector<WeekBarView> weeklyChart(const std::vector<WeekCount>& weeks,
                                     const Calendar& calendar) {
  Int largest = 0;
  for (const WeekCount& week : weeks) largest = std::max(largest, week.count);
  std::vector<WeekBarView> bars;
  bars.reserve(weeks.size());
  for (const WeekCount& week : weeks) {
    const std::string reviewed = countText(week.count) + " reviewed";
    const std::string date = calendar.monthAndDay(momentOf(week.start));
    WeekBarView bar{.key = std::to_string(bars.size()),
                    .fraction = fractionOf(week.count, largest),
                    .caption = reviewed,
                    .spoken = date};
    bar.caption += " · week of " + date;
    bar.spoken += ": " + reviewed;
    bars.push_back(std::move(bar));
  }
  return bars;
}

}  // namespace vellix
