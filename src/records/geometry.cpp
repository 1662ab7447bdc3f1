#include "records/geometry.hpp"

#include <algorithm>
#include <cmath>

namespace vellix {
namespace {

// In pages. What lies beyond is out of sight, and must not overflow what is computed from it.
constexpr double kFarthest = 1'000;

}  // namespace

std::optional<Box> boxOf(const std::optional<std::vector<double>>& numbers) {
  if (!numbers || numbers->size() != 4) return std::nullopt;
  const auto& n = *numbers;
  if (!std::ranges::all_of(n, [](double number) { return std::isfinite(number); })) {
    return std::nullopt;
  }
  const auto held = [](double number) { return std::clamp(number, -kFarthest, kFarthest); };
  return Box{held(n[0]), held(n[1]), held(n[2]), held(n[3])};
}

}  // namespace vellix
