// How much of a person's reviewing was in time, as a ring.
#pragma once

#include <boost/describe.hpp>
#include <optional>
#include <string>

#include "records/records.hpp"

namespace vellix {

struct OnTimeRingView {
  double fraction = 0;  // of the circle
  std::string value;    // in the middle
  std::string label;    // below it
  std::string note;     // under the ring
  std::string spoken;   // what a screen reader says of it
  bool operator==(const OnTimeRingView&) const = default;
};
BOOST_DESCRIBE_STRUCT(OnTimeRingView, (), (fraction, value, label, note, spoken))

// `rate` in per cent. Outside of 0 to 100 it is told as it came; the arc is held.
OnTimeRingView onTimeRing(const std::optional<Int>& rate);

}  // namespace vellix
