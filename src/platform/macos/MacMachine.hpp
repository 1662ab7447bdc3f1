// The machine's facts as the person knows them.
#pragma once

#include "platform/ports/machine.hpp"

namespace vellix {

class MacMachine : public Machine {
 public:
  std::string name() const override;
};

}  // namespace vellix
