#include "jobs/shimmer.hpp"

#include <algorithm>

namespace vellix {
namespace {

constexpr double kBand = 160;

}  // namespace

ShimmerBand shimmerBand(double phase, double width) {
  const double way = (std::clamp(phase, -1.0, 1.0) + 1) / 2;
  const double left = way * (width + kBand) - kBand;
  return {.left = left, .right = left + kBand};
}

}  // namespace vellix
