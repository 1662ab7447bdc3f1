// Wakes from sleep, as the workspace tells of them.
#pragma once

#include <memory>

#include "platform/ports/wakes.hpp"

namespace vellix {

class Listening;

class MacWakes : public Wakes {
 public:
  MacWakes();
  ~MacWakes() override;
  void observe(std::function<void()> woken) override;

 private:
  std::unique_ptr<Listening> listening_;
};

}  // namespace vellix
