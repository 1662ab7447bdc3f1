// The number on the program's icon in the dock or launcher.
#pragma once

#include <cstdint>
#include <optional>

namespace vellix {

class Badge {
 public:
  virtual ~Badge() = default;
  // None clears it. Where the desktop has no such thing, nothing happens.
  virtual void show(std::optional<std::int64_t> count) = 0;
};

}  // namespace vellix
