// One of a few choices, as views show them.
#pragma once

#include <string>

#include "records/described.hpp"

namespace vellix {

struct ChoiceView {
  std::string key;
  std::string label;
  bool operator==(const ChoiceView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ChoiceView, (), (key, label))

}  // namespace vellix
