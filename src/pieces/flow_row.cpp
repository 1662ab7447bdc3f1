#include "pieces/flow_row.hpp"

#include <algorithm>
#include <cmath>

namespace vellix {

FlowPlan flowRow(const std::vector<FlowBox>& boxes, double width, double spacing) {
  FlowPlan plan;
  plan.spots.resize(boxes.size());
  std::size_t first = 0;  // of the line
  double top = 0;
  double end = 0;
  double tallest = 0;
  const auto closeLine = [&](std::size_t last) {
    for (std::size_t i = first; i < last; ++i) {
      plan.spots[i].y = top + std::round((tallest - boxes[i].height) / 2);
    }
    plan.height = top + tallest;
    first = last;
  };
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    // In the order of `end`: another is rounded otherwise, and as wide as this they would not fit.
    plan.oneLine = (i > 0 ? plan.oneLine + spacing : 0) + boxes[i].width;
    double x = i > first ? end + spacing : 0;
    if (i > first && width > 0 && x + boxes[i].width > width) {
      closeLine(i);
      top = plan.height + spacing;
      tallest = 0;
      x = 0;
    }
    plan.spots[i].x = x;
    end = x + boxes[i].width;
    tallest = std::max(tallest, boxes[i].height);
  }
  closeLine(boxes.size());
  return plan;
}

}  // namespace vellix
