#include "text_check.hpp"

#include <algorithm>
#include <iterator>
#include <optional>

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
    // It has words, which were too many to compare; that is told elsewhere.
    if ((speaks ? pair.reference[partner->page] : pair.proof[page]).moreWords) continue;
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
  // What says again on another page what is to be decided on one takes no room from the rest.
  const auto again = std::ranges::stable_partition(findings, [](const Finding& finding) {
    return finding.severity != "low" || finding.kind == "breaks";
  });
  std::ranges::move(again, std::back_inserter(all));
  findings.erase(again.begin(), again.end());
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

struct Read {
  Flows flows;
  TextMatch match;
};

Read readBy(const Pair& pair, const std::vector<bool>& columns) {
  Flows flows = flowsOf(pair, columns);
  TextMatch match = textMatchOf(pair, flows);
  return {std::move(flows), std::move(match)};
}

// How many words of a page, or of its partner, are left without their other.
std::vector<std::size_t> leftOver(const Pair& pair, const Read& read) {
  std::vector<std::size_t> left(pair.proof.size(), 0);
  std::vector<std::size_t> gone(pair.reference.size(), 0);
  const auto count = [](const Flow& flow, const std::vector<std::uint32_t>& others, auto& counts) {
    for (std::size_t i = 0; i < flow.size(); ++i) {
      if (others[i] == kNoWord) ++counts[flow[i].first.page];
    }
  };
  count(read.flows.proof, read.match.ofProof, left);
  count(read.flows.reference, read.match.ofReference, gone);
  for (std::size_t page = 0; page < left.size(); ++page) {
    if (pair.partners[page]) left[page] += gone[pair.partners[page]->page];
  }
  return left;
}

// In the order that the PDFs tell, but page by page in that of the columns where the two pages have
// more in common that way.
Read readAlike(const Pair& pair) {
  std::vector<bool> columns(pair.proof.size(), false);
  std::optional<Read> asTold = readBy(pair, columns);
  const auto left = leftOver(pair, *asTold);
  for (std::size_t page = 0; page < left.size(); ++page) {
    columns[page] = left[page] > 0 && pair.partners[page];
  }
  if (std::ranges::none_of(columns, [](bool any) { return any; })) {
    return *std::move(asTold);
  }
  // One reading at a time is held: those of whole books are large.
  asTold.reset();
  std::optional<Read> byColumns = readBy(pair, columns);
  const auto less = leftOver(pair, *byColumns);
  bool all = true;
  for (std::size_t page = 0; page < left.size(); ++page) {
    const bool better = columns[page] && less[page] < left[page];
    all = all && better == columns[page];
    columns[page] = better;
  }
  if (all) return *std::move(byColumns);
  byColumns.reset();
  return readBy(pair, columns);
}

}  // namespace

std::vector<Finding> textFindings(const Pair& pair) {
  std::vector<Finding> all;
  const auto [flows, match] = readAlike(pair);
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
