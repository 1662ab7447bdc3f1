// What is set in another font or size although the words are the same.
#pragma once

#include <vector>

#include "check/foreign_pages.hpp"

namespace vellix::demo {

// Words side by side are told as one. What goes for all pages alike, a font that is called
// otherwise or a scale, is told once; so is the scale of one page.
std::vector<Finding> fontFindings(const Pair& pair, const Flows& flows, const TextMatch& match,
                                  const ForeignPages& foreign);

}  // namespace vellix::demo
