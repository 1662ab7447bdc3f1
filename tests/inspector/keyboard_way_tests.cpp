// Where the keyboard goes when a finding was decided by key.
#include "inspector/keyboard_way.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

struct Way {
  const char* name;
  std::vector<const char*> decisions;  // of the cards "f0", "f1" and so on
  const char* decided;
  const char* following;
  KeyboardWay way;
};
BOOST_DESCRIBE_STRUCT(Way, (), (name, decisions, decided, following, way))

class Ways : public testing::TestWithParam<Way> {};

TEST_P(Ways, LeadToTheFindingThatIsNext) {
  std::vector<FindingCardView> cards;
  for (const char* decision : GetParam().decisions) {
    cards.push_back({.id = "f" + std::to_string(cards.size()), .decision = decision});
  }
  EXPECT_EQ(keyboardWay(cards, GetParam().decided, GetParam().following, "fine"), GetParam().way);
}

const KeyboardWay kNowhere{};

INSTANTIATE_TEST_SUITE_P(
    All, Ways,
    testing::Values(
        Way{"TheOneInFront", {"open", "open", "open", "fine"}, "f3", "f1", {1, "fine"}},
        Way{"TheFirstThatWaits", {"open", "open", "fine"}, "f2", "", {0, "fine"}},
        Way{"NotBehindADecidedOne", {"issue", "open", "fine"}, "f2", "", {1, "fine"}},
        Way{"TheFirstWhereTheFrontIsDecided", {"open", "issue", "fine"}, "f2", "f1", {0, "fine"}},
        Way{"TheFirstWhereTheFrontIsElsewhere", {"open", "open", "fine"}, "f2", "f9", {0, "fine"}},
        Way{"TheLastOneKeepsItButNotAtTheButton", {"issue", "fine"}, "f1", "", {1, ""}},
        Way{"TheOnlyOneKeepsIt", {"fine"}, "f0", "", {0, ""}},
        Way{"ReopenedItStays", {"open", "open"}, "f0", "", kNowhere},
        Way{"ReopenedItStaysWhateverIsInFront", {"open", "open"}, "f0", "f1", kNowhere},
        Way{"GoneItLeadsNowhere", {"open"}, "f9", "", kNowhere},
        Way{"NoCards", {}, "f0", "", kNowhere}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
