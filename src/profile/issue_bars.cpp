#include "profile/issue_bars.hpp"

#include <algorithm>
#include <tuple>

#include "profile/counts.hpp"
#include "records/finding_words.hpp"

namespace vellix {
namespace {

struct Caught {
  std::string kind;
  std::string word;
  Int count = 0;
};

}  // namespace

IssueBarsView issueBars(const std::map<std::string, Int>& byKind) {
  std::vector<Caught> caught;
  Int largest = 0;
  for (const auto& [kind, count] : byKind) {
    caught.push_back({.kind = kind, .word = kindLabel(kind), .count = heldCount(count)});
    largest = std::max(largest, count);
  }
  if (largest == 0) return {.rows = {}, .none = "None marked as a real issue yet."};
  std::ranges::sort(caught, [](const Caught& one, const Caught& other) {
    return std::tie(other.count, one.word, one.kind) < std::tie(one.count, other.word, other.kind);
  });
  IssueBarsView view;
  for (const Caught& each : caught) {
    const std::string count = countText(each.count);
    view.rows.push_back({.kind = each.kind,
                         .word = each.word,
                         .fraction = fractionOf(each.count, largest),
                         .count = count,
                         .spoken = each.word + ": " + count});
  }
  return view;
}

}  // namespace vellix
