#include "check/flowed_pages.hpp"

#include <set>
#include <utility>

namespace vellix::demo {
namespace {

constexpr double kMostOfIt = 0.6;

// A word alone has its like anywhere; two in a row seldom.
using TwoWords = std::set<std::pair<QString, QString>>;

TwoWords twoWordsOf(const PdfPage& page) {
  TwoWords all;
  for (std::size_t i = 1; i < page.words.size(); ++i) {
    all.emplace(page.words[i - 1].text, page.words[i].text);
  }
  return all;
}

bool cameFrom(const TwoWords& text, const PdfPage& reference, const PdfPage& partner) {
  const TwoWords there = twoWordsOf(reference);
  const TwoWords still = twoWordsOf(partner);
  std::size_t gone = 0;
  for (const auto& two : text) gone += there.contains(two) && !still.contains(two);
  return !text.empty() && static_cast<double>(gone) >= kMostOfIt * static_cast<double>(text.size());
}

std::optional<std::size_t> flowedFrom(const Pair& pair, std::size_t page) {
  const TwoWords text = twoWordsOf(pair.proof[page]);
  const auto from = [&](std::size_t beside) {
    return cameFrom(text, pair.reference[pair.partners[beside]->page], pair.proof[beside]);
  };
  // From the page ahead, or else it is the beginning of the one behind.
  std::size_t ahead = page;
  while (ahead > 0 && !pair.partners[ahead - 1]) --ahead;
  if (ahead > 0 && from(ahead - 1)) return pair.partners[ahead - 1]->page;
  std::size_t behind = page + 1;
  while (behind < pair.partners.size() && !pair.partners[behind]) ++behind;
  if (behind < pair.partners.size() && from(behind)) return pair.partners[behind]->page;
  return std::nullopt;
}

}  // namespace

std::optional<Finding> flowedFinding(const Pair& pair, std::size_t page) {
  const auto from = flowedFrom(pair, page);
  if (!from) return std::nullopt;
  // Of the kind that is shown on a page with nothing beside it.
  Finding finding = findingOn(page, pair, "missing_page", "high");
  finding.title = "Text runs on to one page more";
  finding.detail = "Most of what is on page " + std::to_string(page + 1) +
                   " of the proof is on page " + std::to_string(*from + 1) + " of " + pair.called +
                   ".";
  return finding;
}

}  // namespace vellix::demo
