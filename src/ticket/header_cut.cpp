#include "ticket/header_cut.hpp"

#include <algorithm>

namespace vellix {

double headerCut(const std::vector<double>& ends, double air, double most) {
  double height = 0;
  double reached = 0;
  for (const double end : ends) {
    // Beside what reaches further down.
    reached = std::max(reached, end);
    if (reached + air <= most) height = reached + air;
  }
  return height > 0 ? height : most;
}

}  // namespace vellix
