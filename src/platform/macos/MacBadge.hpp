// The count on the program's icon in the Dock. Main thread only.
#pragma once

#include "platform/ports/badge.hpp"

namespace vellix {

class MacBadge : public Badge {
 public:
  void show(std::optional<std::int64_t> count) override;
};

}  // namespace vellix
