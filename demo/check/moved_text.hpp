// Text that came in where it went as well: the order of reading differs, or a passage has moved.
#pragma once

#include "check/text_match.hpp"

namespace vellix::demo {

// Words at the same place of two partners, or with the same words around them, are done; a passage
// that truly stands elsewhere is put among those that moved.
void settleMovedText(const Pair& pair, const Flows& flows, TextMatch& match);

}  // namespace vellix::demo
