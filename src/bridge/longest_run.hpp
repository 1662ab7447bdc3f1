// The longest strictly rising run of a sequence, not necessarily of neighbours.
#pragma once

#include <algorithm>
#include <vector>

namespace vellix {

// The values of the run, rising. O(n log n).
inline std::vector<std::size_t> longestRisingRun(const std::vector<std::size_t>& values) {
  constexpr std::size_t none = static_cast<std::size_t>(-1);
  std::vector<std::size_t> ends;  // index of the smallest end of a run of each length
  std::vector<std::size_t> before(values.size(), none);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto place = std::ranges::lower_bound(ends, values[i], {},
                                                [&](std::size_t index) { return values[index]; });
    if (place != ends.begin()) before[i] = *std::prev(place);
    if (place == ends.end()) {
      ends.push_back(i);
    } else {
      *place = i;
    }
  }
  std::vector<std::size_t> run;
  for (std::size_t i = ends.empty() ? none : ends.back(); i != none; i = before[i]) {
    run.push_back(values[i]);
  }
  std::ranges::reverse(run);
  return run;
}

}  // namespace vellix
