// Programs have no bundles here: what the running one is, it knows of itself.
#pragma once

#include <unistd.h>

#include "platform/ports/running_copy.hpp"

namespace vellix {

inline RunningCopy runningCopy(std::int64_t built) {
  return {.identifier = std::nullopt, .bundle = {}, .process = ::getpid(), .build = built};
}

}  // namespace vellix
