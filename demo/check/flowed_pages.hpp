// Pages of a proof that are more because text ran on to them.
#pragma once

#include <optional>

#include "check/compared.hpp"

namespace vellix::demo {

// Of a page without a partner most of whose text is on a page of the reference, the partner of
// which has that text no more.
std::optional<Finding> flowedFinding(const Pair& pair, std::size_t page);

}  // namespace vellix::demo
