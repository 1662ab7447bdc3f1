// Sums of numbers that come from outside: whatever they are, they must not overflow.
#pragma once

#include <limits>

#include "records/board_records.hpp"

namespace vellix {

// The least or the greatest there is, where the sum lies beyond.
inline Int heldSum(Int one, Int other) {
  Int sum = 0;
  if (!__builtin_add_overflow(one, other, &sum)) return sum;
  return other > 0 ? std::numeric_limits<Int>::max() : std::numeric_limits<Int>::min();
}

}  // namespace vellix
