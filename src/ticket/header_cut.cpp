#include "ticket/header_cut.hpp"

#include <algorithm>

namespace vellix {

double headerCut(const std::vector<double>& ends, double air, double most) {
  double height = 0;
  for (const double end : ends) {
    if (end + air <= most) height = std::max(height, end + air);
  }
  return height > 0 ? height : most;
}

}  // namespace vellix
