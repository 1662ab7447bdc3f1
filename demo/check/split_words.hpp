// Words that a line's end, or a narrow space, takes apart on one side only.
#pragma once

#include "check/text_gaps.hpp"

namespace vellix::demo {

// Takes out of a gap what reads the same on both sides: "exam-" and "ple" is "example", and a
// formula whose spaces were squeezed is as wide as before.
void settleSplitWords(const Pair& pair, const Flows& flows, const Gap& gap, TextMatch& match);

}  // namespace vellix::demo
