// Counts that come from outside, as they are shown: of nothing there is less than none.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "records/records.hpp"

namespace vellix {

// In place of a figure that the service does not tell, and what a screen reader says for it.
inline constexpr std::string_view kNoFigure = "—";
inline constexpr std::string_view kNoFigureSpoken = "not known yet";

// A count below zero is none.
inline Int heldCount(Int count) { return std::max<Int>(count, 0); }
inline std::string countText(Int count) { return std::to_string(heldCount(count)); }

// How much of `whole` it is, from 0 to 1. Of nothing, all is none.
inline double fractionOf(Int count, Int whole) {
  if (whole <= 0) return 0;
  return std::min(1.0, static_cast<double>(heldCount(count)) / static_cast<double>(whole));
}

}  // namespace vellix
