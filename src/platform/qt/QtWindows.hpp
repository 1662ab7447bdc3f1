// What the user can see, from the window system.
#pragma once

#include "platform/ports/windows.hpp"

namespace vellix {

// Needs a QGuiApplication. Main thread.
class QtWindows : public Windows {
 public:
  bool seen() const override;
};

}  // namespace vellix
