// The machine's own facts.
#pragma once

#include <string>

namespace vellix {

class Machine {
 public:
  virtual ~Machine() = default;
  virtual std::string name() const = 0;  // empty when the system has none
};

}  // namespace vellix
