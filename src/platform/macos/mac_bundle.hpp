// What the system tells of the running bundle, and of bundles' property lists. Any thread.
#pragma once

#include <optional>
#include <string>

#include "platform/ports/running_copy.hpp"

namespace vellix {

// The build is what the bundle says, and 1 where it says no number, whatever was built.
RunningCopy runningCopy(std::int64_t built);

// The text under a key of a property list; none when there is no list, no such key, or no text.
// Waits for the disk.
std::optional<std::string> textInPropertyList(const std::string& propertyList,
                                              const std::string& key);

}  // namespace vellix
