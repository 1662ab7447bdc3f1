// The light that runs over a line of text.
#pragma once

namespace vellix {

// In logical pixels from the line's left.
struct ShimmerBand {
  double left = 0;
  double right = 0;
  bool operator==(const ShimmerBand&) const = default;
};

// From -1, where it is just in front of the line, to 1, where it has just left it.
ShimmerBand shimmerBand(double phase, double width);

}  // namespace vellix
