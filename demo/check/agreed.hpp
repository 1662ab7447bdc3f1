// What differs from another reference on purpose: where the proof is as in our own file.
#pragma once

#include <vector>

#include "check/compared.hpp"

namespace vellix::demo {

// Of `findings`, all of one other reference, those where `ours` tells of nothing are expected: an
// edit of ours, or against the version before a repair. On a page that our file lacks nothing is.
void acceptAsOurs(std::vector<Finding>& findings, const std::vector<Finding>& ours,
                  const Partners& withOurs);

}  // namespace vellix::demo
