// A person's reviews of each week, as bars.
#pragma once

#include <string>
#include <vector>

#include "platform/ports/calendar.hpp"
#include "records/records.hpp"

namespace vellix {

struct WeekBarView {
  std::string key;      // its place in the chart: two weeks may be told alike
  double fraction = 0;  // of the chart's height
  std::string caption;  // while it is pointed at
  std::string spoken;   // what a screen reader says of it
  bool operator==(const WeekBarView&) const = default;
};
BOOST_DESCRIBE_STRUCT(WeekBarView, (), (key, fraction, caption, spoken))

// In the order of the list. A count below zero is none, and where all are, no bar has a height.
std::vector<WeekBarView> weeklyChart(const std::vector<WeekCount>& weeks, const Calendar& calendar);

}  // namespace vellix
