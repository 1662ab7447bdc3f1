// One of a few choices, as views show them.
#pragma once

#include <string>

#include "records/described.hpp"

namespace vellix {

struct OptionView {
  std::string key;
  std::string label;
  bool operator==(const OptionView&) const = default;
};
BOOST_DESCRIBE_STRUCT(OptionView, (), (key, label))

}  // namespace vellix
