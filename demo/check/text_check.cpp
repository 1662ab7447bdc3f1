#include "text_check.hpp"

#include <algorithm>
#include <iterator>

#include "break_check.hpp"
#include "font_check.hpp"
#include "word_findings.hpp"

namespace vellix::demo {
namespace {

constexpr std::size_t kMostOfAPage = 40;
constexpr std::size_t kMostOfAll = 600;

std::vector<Finding> withoutLiveText(const Pair& pair) {
  std::vector<Finding> findings;
  for (std::size_t page = 0; page < pair.proof.size(); ++page) {
    const auto& partner = pair.partners[page];
    if (!partner) continue;
    const bool speaks = !pair.proof[page].words.empty();
    if (speaks == !pair.reference[partner->page].words.empty()) continue;
    Finding finding = findingOn(page, pair, "words", "medium");
    finding.title = "No live text";
    finding.detail =
        speaks ? "The page of " + pair.called + " has no words to compare with. Compare it by eye."
               : "The page has no words to compare with those of " + pair.called +
                     ". Compare it by eye.";
    findings.push_back(std::move(finding));
  }
  return findings;
}

// Of a page with too many, and of pages after too many, the rest is told as one.
void putCapped(std::vector<Finding>& all, std::vector<Finding> findings, const Pair& pair,
               const std::string& what) {
  std::ranges::stable_sort(findings, {}, &Finding::page);
  std::size_t told = 0;
  for (auto from = findings.begin(); from != findings.end();) {
    const Int page = from->page;
    const auto to = std::find_if(from, findings.end(),
                                 [&](const Finding& finding) { return finding.page != page; });
    const auto count = static_cast<std::size_t>(to - from);
    std::size_t kept = std::min(count, told < kMostOfAll ? kMostOfAPage : 0);
    if (kept + 1 == count) kept = count;
    std::move(from, from + static_cast<std::ptrdiff_t>(kept), std::back_inserter(all));
    told += kept;
    if (kept < count) {
      Finding rest = std::move(from[static_cast<std::ptrdiff_t>(kept)]);
      rest.title =
          std::to_string(count - kept) + (kept > 0 ? " more" : "") + " differences in " + what;
      rest.detail = "The page has too many differences from " + pair.called +
                    " to tell each. This is one of them.";
      all.push_back(std::move(rest));
    }
    from = to;
  }
}

}  // namespace

std::vector<Finding> textFindings(const Pair& pair) {
  std::vector<Finding> all;
  const Flows flows = flowsOf(pair);
  const TextMatch match = textMatchOf(pair, flows);
  const ForeignPages foreign = foreignPagesOf(pair, flows, match);
  auto words = withoutLiveText(pair);
  std::ranges::move(wordFindings(pair, flows, match, foreign), std::back_inserter(words));
  putCapped(all, std::move(words), pair, "the words");
  putCapped(all, breakFindings(pair, flows, match, foreign), pair, "the line breaks");
  putCapped(all, fontFindings(pair, flows, match, foreign), pair, "the fonts");
  std::ranges::stable_sort(all, {}, &Finding::page);
  return all;
}

}  // namespace vellix::demo
