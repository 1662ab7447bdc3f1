// Where lines break elsewhere although the words are the same.
#pragma once

#include <vector>

#include "check/foreign_pages.hpp"

namespace vellix::demo {

// Told once for all breaks that follow from one. Those around a changed word follow from the change
// and weigh less.
std::vector<Finding> breakFindings(const Pair& pair, const Flows& flows, const TextMatch& match,
                                   const ForeignPages& foreign);

}  // namespace vellix::demo
