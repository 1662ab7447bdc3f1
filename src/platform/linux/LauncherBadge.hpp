// The count that docks and launchers of Linux desktops draw on a program's icon, told to them by a
// signal on the session bus. Without a bus nothing happens. Main thread only.
#pragma once

#include "platform/ports/badge.hpp"

namespace vellix {

class LauncherBadge : public Badge {
 public:
  void show(std::optional<std::int64_t> count) override;

 private:
  std::optional<std::int64_t> told_;
};

}  // namespace vellix
