// The count that docks and launchers of Linux desktops draw on a program's icon, told to them by a
// signal on the session bus, and again to one that comes later. Without a bus nothing happens. Main
// thread only.
#pragma once

#include <QDBusServiceWatcher>
#include <memory>

#include "platform/ports/badge.hpp"

namespace vellix {

class LauncherBadge : public Badge {
 public:
  void show(std::optional<std::int64_t> count) override;

 private:
  void tell() const;

  std::optional<std::int64_t> count_;
  std::unique_ptr<QDBusServiceWatcher> launchers_;  // from the first count on
};

}  // namespace vellix
