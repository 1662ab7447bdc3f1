// UUIDs from the system's secure source of random numbers.
#pragma once

#include "platform/ports/uuids.hpp"

namespace vellix {

class QtUuids : public Uuids {
 public:
  std::string fresh() override;
};

}  // namespace vellix
