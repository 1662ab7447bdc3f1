// A board as a service with many tickets would send it.
#pragma once

#include "records/records.hpp"

namespace vellix::bench {

// All tickets are in one queue and nine of ten are still open. Their due dates rise with their
// place, so that the first one comes first in its group.
BoardState bigBoard(int tickets);

}  // namespace vellix::bench
