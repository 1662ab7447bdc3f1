// What becomes of the findings against one reference in the light of another.
#pragma once

#include <vector>

#include "check/compared.hpp"

namespace vellix::demo {

// Of `findings`, all of one other reference, those where `ours` tells of nothing are expected: an
// edit of ours, or against the version before a repair. On a page that our file lacks nothing is.
void acceptAsOurs(std::vector<Finding>& findings, const std::vector<Finding>& ours,
                  const Partners& withOurs);

// A revision is shown beside the version before it and nothing else. What differs from our own file
// is told there: `ours`, without what passed. Beside a page that the version before lacks, as
// `withBefore` tells, stands ours.
void tellBesideBefore(std::vector<Finding>& ours, const Partners& withBefore);

}  // namespace vellix::demo
