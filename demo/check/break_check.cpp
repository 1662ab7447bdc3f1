#include "break_check.hpp"

#include <algorithm>
#include <span>

#include "text_gaps.hpp"
#include "told_text.hpp"

namespace vellix::demo {
namespace {

// Breaks further apart than that have nothing to do with each other.
constexpr std::size_t kWordsOfALine = 24;

// A word in front of which, or within which, a line ends on one side only.
struct MovedBreak {
  std::size_t word = 0;  // of the proof
  bool inProof = false;  // whether it is the proof's line that ends
  bool within = false;
};

class Breaks {
 public:
  Breaks(const Pair& pair, const Flows& flows, const TextMatch& match, const ForeignPages& foreign)
      : pair_(pair), flows_(flows), match_(match), foreign_(foreign) {
    forEachGap(flows, match, [&](const Gap& gap) {
      changes_.push_back(gap.proofBegin);
      changes_.push_back(gap.proofEnd);
    });
  }

  std::vector<Finding> made() {
    for (std::size_t i = 0; i + 1 < flows_.stretches.size(); ++i) {
      if (flows_.stretches[i].heads) continue;
      find(flows_.stretches[i].proof, flows_.stretches[i + 1].proof);
    }
    const std::span all(breaks_);
    for (std::size_t from = 0, to = 1; to <= all.size(); ++to) {
      if (to < all.size() && all[to].word - all[to - 1].word < kWordsOfALine &&
          pageOf(all[to]) == pageOf(all[to - 1])) {
        continue;
      }
      tell(all.subspan(from, to - from));
      from = to;
    }
    return std::move(findings_);
  }

 private:
  std::size_t pageOf(const MovedBreak& moved) const { return flows_.proof[moved.word].first.page; }

  QString firstPart(const FlowWord& word, const std::vector<PdfPage>& pages) const {
    return pages[word.first.page].words[word.first.word].text;
  }

  void find(std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
      const std::uint32_t other = match_.ofProof[i];
      if (other == kNoWord || foreign_[flows_.proof[i].first.page]) continue;
      const FlowWord& now = flows_.proof[i];
      const FlowWord& old = flows_.reference[other];
      if (i > begin && other > 0 && match_.ofProof[i - 1] == other - 1) {
        const bool stays = onOneLine(flows_.proof[i - 1], now);
        if (stays != onOneLine(flows_.reference[other - 1], old)) {
          breaks_.push_back({i, !stays, false});
        }
      }
      if (now.rest.has_value() != old.rest.has_value()) {
        breaks_.push_back({i, now.rest.has_value(), true});
      } else if (now.rest && firstPart(now, pair_.proof) != firstPart(old, pair_.reference)) {
        breaks_.push_back({i, true, true});
      }
    }
  }

  bool changedAround(std::span<const MovedBreak> moved) const {
    const std::size_t first = moved.front().word;
    const auto from = first < kWordsOfALine ? 0 : first - kWordsOfALine;
    const auto at = std::ranges::lower_bound(changes_, from);
    return at != changes_.end() && *at <= moved.back().word + kWordsOfALine;
  }

  // What stands on both sides of the first, and each other that begins a line of the proof.
  static std::vector<std::size_t> wordsAround(const MovedBreak& first,
                                              std::span<const MovedBreak> moved) {
    auto words = wordsFrom(first.within ? first.word : first.word - 1, first.word + 1);
    for (const MovedBreak& one : moved) {
      if (one.inProof && std::ranges::find(words, one.word) == words.end()) {
        words.push_back(one.word);
      }
    }
    return words;
  }

  void tell(std::span<const MovedBreak> moved) {
    // Where a line of the proof ends there is more to see than where one no longer does.
    const auto ends = std::ranges::find(moved, true, &MovedBreak::inProof);
    const MovedBreak& first = ends != moved.end() ? *ends : moved.front();
    const bool follows = changedAround(moved);
    Finding finding = findingOn(pageOf(first), pair_, "breaks", follows ? "low" : "medium");
    finding.title = moved.size() == 1 ? "A line breaks elsewhere" : "Lines break elsewhere";
    finding.detail = counted(moved.size(), "break differs", "breaks differ") + " from " +
                     pair_.called + ". The first is at " +
                     quoted(phraseOf(flows_.proof, first.word, first.word + 1)) + ".";
    if (follows) *finding.detail += " Words changed close by.";
    const std::size_t other = match_.ofProof[first.word];
    const auto now = around(first.word, first.word + 1, 0, flows_.proof.size());
    const auto old = around(other, other + 1, 0, flows_.reference.size());
    finding.before = brokenPhraseOf(flows_.reference, old.from, old.to);
    finding.after = brokenPhraseOf(flows_.proof, now.from, now.to);
    mark(finding, pair_, flows_, wordsAround(first, moved), {other});
    findings_.push_back(std::move(finding));
  }

  const Pair& pair_;
  const Flows& flows_;
  const TextMatch& match_;
  const ForeignPages& foreign_;
  std::vector<std::size_t> changes_;  // places in the proof's flow, rising
  std::vector<MovedBreak> breaks_;
  std::vector<Finding> findings_;
};

}  // namespace

std::vector<Finding> breakFindings(const Pair& pair, const Flows& flows, const TextMatch& match,
                                   const ForeignPages& foreign) {
  return Breaks(pair, flows, match, foreign).made();
}

}  // namespace vellix::demo
