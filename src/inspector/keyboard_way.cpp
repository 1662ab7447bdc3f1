#include "inspector/keyboard_way.hpp"

#include <algorithm>

namespace vellix {
namespace {

bool waits(const FindingCardView& card) { return card.decision == "open"; }

}  // namespace

KeyboardWay keyboardWay(const std::vector<FindingCardView>& cards, const std::string& decided,
                        const std::string& following, const std::string& decision) {
  const auto rowOf = [&](auto card) { return static_cast<Int>(card - cards.begin()); };
  const auto own = std::ranges::find(cards, decided, &FindingCardView::id);
  if (own == cards.end() || waits(*own)) return {};
  auto next = std::ranges::find(cards, following, &FindingCardView::id);
  if (next == cards.end() || !waits(*next)) next = std::ranges::find_if(cards, waits);
  if (next == cards.end()) return {.row = rowOf(own)};
  return {.row = rowOf(next), .decision = decision};
}

}  // namespace vellix
