// Tells that the machine woke from sleep.
#pragma once

#include <functional>

namespace vellix {

class Wakes {
 public:
  virtual ~Wakes() = default;
  // Calls it on the main thread after each sleep, as long as both live. One observer; a system that
  // does not tell never calls.
  virtual void observe(std::function<void()> woken) = 0;
};

}  // namespace vellix
