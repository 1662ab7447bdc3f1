// What the user can see, from the window system.
#pragma once

#include <QElapsedTimer>

#include "platform/ports/moment.hpp"
#include "platform/ports/windows.hpp"

namespace vellix {

// Needs a QGuiApplication. Main thread.
class QtWindows : public Windows {
 public:
  // A program that starts has no active window yet, but is waited for: so long it counts as seen.
  explicit QtWindows(Milliseconds start = Milliseconds{5'000});
  bool seen() const override;

 private:
  const Milliseconds start_;
  QElapsedTimer since_;
};

}  // namespace vellix
