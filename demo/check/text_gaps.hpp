// The words between those that a proof and its reference have in common.
#pragma once

#include <functional>
#include <vector>

#include "check/text_match.hpp"

namespace vellix::demo {

// Words of either flow that come on each other, without those of which nothing is to be told.
struct Gap {
  std::vector<std::size_t> proof;
  std::vector<std::size_t> reference;
  // All that lies between the words in common.
  std::size_t proofBegin = 0;
  std::size_t proofEnd = 0;
  std::size_t referenceBegin = 0;
  std::size_t referenceEnd = 0;
  std::size_t stretch = 0;
};

// In the order of the flows. Words may be told to be done meanwhile.
void forEachGap(const Flows& flows, const TextMatch& match,
                const std::function<void(const Gap&)>& take);

}  // namespace vellix::demo
