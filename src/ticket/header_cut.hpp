// How much of a ticket's header is seen at once where the window is low.
#pragma once

#include <vector>

namespace vellix {

// `ends` are where its blocks, or lines of a block, end, from the top down; below the last that is
// seen there is `air`. In logical pixels. Never more than `most`, and none is cut through but a
// first one that is higher than that by itself.
double headerCut(const std::vector<double>& ends, double air, double most);

}  // namespace vellix
