// The machine's facts from the system.
#pragma once

#include "platform/ports/machine.hpp"

namespace vellix {

class QtMachine : public Machine {
 public:
  std::string name() const override;
};

}  // namespace vellix
