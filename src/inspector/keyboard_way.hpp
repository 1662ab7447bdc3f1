// Where the keyboard goes when a finding was decided by key.
#pragma once

#include <string>
#include <vector>

#include "inspector/finding_card.hpp"

namespace vellix {

struct KeyboardWay {
  Int row = -1;          // of the cards; none: it stays where it is
  std::string decision;  // the button there, "issue" or "fine"; empty for the card itself
  bool operator==(const KeyboardWay&) const = default;
};
BOOST_DESCRIBE_STRUCT(KeyboardWay, (), (row, decision))

// It goes on, at the same decision, to `following`, which has come to the front, or else to the
// first card that waits. The last one keeps it, but not at the button, where one press too many
// would take the decision back.
KeyboardWay keyboardWay(const std::vector<FindingCardView>& cards, const std::string& decided,
                        const std::string& following, const std::string& decision);

}  // namespace vellix
