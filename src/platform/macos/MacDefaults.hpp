// The person's defaults for this program, where the system keeps them. Main thread.
#pragma once

#include "platform/ports/defaults.hpp"

namespace vellix {

class MacDefaults : public Defaults {
 public:
  // A number reads as its digits.
  std::optional<std::string> text(const std::string& key) const override;
  std::optional<bool> flag(const std::string& key) const override;
  void setText(const std::string& key, const std::string& value) override;
  void setFlag(const std::string& key, bool value) override;
  void writeDown() override;
  // The system tells of no failure.
  bool lasting() const override { return true; }
};

}  // namespace vellix
