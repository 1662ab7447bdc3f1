// What two sequences have in common, in order.
#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace vellix::demo {

using Same = std::pair<std::uint32_t, std::uint32_t>;  // a place in each

// Goes by what is rare in both, then by the fewest steps between; bounded, so that where the two
// have nothing in common nothing is found soon.
std::vector<Same> commonOf(std::span<const int> old, std::span<const int> now);

}  // namespace vellix::demo
