// What is told of words that changed, came in, went or stand elsewhere.
#pragma once

#include <vector>

#include "check/foreign_pages.hpp"

namespace vellix::demo {

// In no order of pages. Boxes are those of the words that differ, however the sentence around them
// is quoted.
std::vector<Finding> wordFindings(const Pair& pair, const Flows& flows, const TextMatch& match,
                                  const ForeignPages& foreign);

}  // namespace vellix::demo
