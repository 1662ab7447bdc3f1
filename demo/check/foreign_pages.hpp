// Pages that have too little in common with their partners to tell what became of what.
#pragma once

#include <vector>

#include "check/text_match.hpp"

namespace vellix::demo {

using ForeignPages = std::vector<bool>;  // by page of the proof

ForeignPages foreignPagesOf(const Pair& pair, const Flows& flows, const TextMatch& match);

}  // namespace vellix::demo
