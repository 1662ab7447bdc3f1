// Which findings are something to decide, and which belong to what is compared.
#pragma once

#include <string>
#include <vector>

#include "records/records.hpp"

namespace vellix {

// A check that came out well, or an edit of ours that came through: nothing to decide.
bool isPassed(const Finding& finding);
// A check of its own kind, with no reference to compare with: it stays whatever is hidden.
bool standsAlone(const Finding& finding);
// It is against one of these references, or against none.
bool counts(const Finding& finding, const std::vector<std::string>& roles);

}  // namespace vellix
