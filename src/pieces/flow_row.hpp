// Places boxes from left to right, on a new line where the next does not fit, like words.
#pragma once

#include <vector>

namespace vellix {

// All in logical pixels.
struct FlowBox {
  double width = 0;
  double height = 0;
};
struct FlowSpot {
  double x = 0;
  double y = 0;
  bool operator==(const FlowSpot&) const = default;
};
struct FlowPlan {
  std::vector<FlowSpot> spots;  // one a box; each box is centred on its line
  double oneLine = 0;           // as wide as they would all be in one line
  double height = 0;
};

// A box that is wider than the whole has a line of its own. Without a width all are in one line.
FlowPlan flowRow(const std::vector<FlowBox>& boxes, double width, double spacing);

}  // namespace vellix
