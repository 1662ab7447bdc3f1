// What concerns pages as a whole: which are missing or more, moved, of another size or bleed, and
// in which inks they print.
#pragma once

#include <vector>

#include "check/compared.hpp"

namespace vellix::demo {

std::vector<Finding> sheetFindings(const Pair& pair);

// For each page with a partner and none of `findings` that is more than a pass or expected: that it
// passed.
std::vector<Finding> passFindings(const Pair& pair, const std::vector<Finding>& findings);

}  // namespace vellix::demo
