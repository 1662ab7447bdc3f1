// What the person pastes elsewhere.
#pragma once

#include <string>

namespace vellix {

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  // Plain text in place of all that was there.
  virtual void put(const std::string& text) = 0;
};

}  // namespace vellix
