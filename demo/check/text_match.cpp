#include "text_match.hpp"

#include <algorithm>
#include <cmath>

#include "moved_text.hpp"
#include "running_heads.hpp"
#include "split_words.hpp"
#include "text_gaps.hpp"
#include "word_diff.hpp"

namespace vellix::demo {
namespace {

// A page without a partner of which less stands elsewhere is told of as a page.
constexpr double kOwnPage = 0.3;

std::vector<int> keysOf(const Flow& flow) {
  std::vector<int> keys;
  keys.reserve(flow.size());
  for (const FlowWord& word : flow) keys.push_back(word.key);
  return keys;
}

// Hyphens are left out of the comparison for the sake of words that the end of a line breaks.
bool reallySame(const FlowWord& one, const FlowWord& other) {
  return one.rest || other.rest || one.text == other.text;
}

// The words of one side that have no other, in rows.
class Slide {
 public:
  Slide(const Flow& flow, const std::vector<std::uint32_t>& others, std::size_t from,
        std::size_t to)
      : flow_(flow), others_(others), from_(from), to_(to) {}

  // Has each row begin where a page does, if it can; `give` takes the other of the one word and
  // gives it to the other word.
  template <class Give>
  void toPages(Give give) const {
    for (std::size_t i = from_; i < to_; ++i) {
      if (known(i)) continue;
      std::size_t end = i;
      while (end < to_ && !known(end)) ++end;
      std::size_t back = 0;
      while (!begins(i - back) && known(i - back - 1) && alike(i - back - 1, end - back - 1)) {
        ++back;
      }
      std::size_t on = 0;
      while (!begins(i + on) && end + on < to_ && known(end + on) && alike(i + on, end + on)) ++on;
      if (begins(i - back)) {
        for (; back > 0; --back) give(--i, --end);
      } else if (begins(i + on)) {
        for (; on > 0; --on) give(end++, i++);
      }
      i = std::max(i, end - 1);
    }
  }

 private:
  bool known(std::size_t word) const { return others_[word] != kNoWord; }
  bool alike(std::size_t word, std::size_t other) const {
    return flow_[word].key == flow_[other].key;
  }
  bool begins(std::size_t word) const {
    return word == from_ || flow_[word].first.page != flow_[word - 1].first.page;
  }

  const Flow& flow_;
  const std::vector<std::uint32_t>& others_;
  std::size_t from_, to_;
};

class Matching {
 public:
  Matching(const Pair& pair, const Flows& flows) : pair_(pair), flows_(flows) {}

  TextMatch made() {
    match_.ofProof.assign(flows_.proof.size(), kNoWord);
    match_.ofReference.assign(flows_.reference.size(), kNoWord);
    match_.proofDone.assign(flows_.proof.size(), false);
    match_.referenceDone.assign(flows_.reference.size(), false);
    const auto proof = keysOf(flows_.proof);
    const auto reference = keysOf(flows_.reference);
    for (std::size_t i = 0; i + 1 < flows_.stretches.size(); ++i) {
      const Stretch& from = flows_.stretches[i];
      const Stretch& to = flows_.stretches[i + 1];
      const auto same =
          commonOf(std::span(reference).subspan(from.reference, to.reference - from.reference),
                   std::span(proof).subspan(from.proof, to.proof - from.proof));
      for (const auto& [old, now] : same) match_.match(from.proof + now, from.reference + old);
      slideToPages(from, to);
      takeBackUnlike(from, to);
    }
    countOn();
    forEachGap(flows_, match_,
               [&](const Gap& gap) { settleSplitWords(pair_, flows_, gap, match_); });
    leaveOutPages();
    settleMovedText(pair_, flows_, match_);
    return std::move(match_);
  }

 private:
  // What came in, or is gone, may have begun some words sooner or later just as well: it did as a
  // page.
  void slideToPages(const Stretch& from, const Stretch& to) {
    Slide(flows_.proof, match_.ofProof, from.proof, to.proof).toPages([&](auto old, auto now) {
      const std::uint32_t other = match_.ofProof[old];
      match_.unmatch(old);
      match_.match(now, other);
    });
    Slide(flows_.reference, match_.ofReference, from.reference, to.reference)
        .toPages([&](auto old, auto now) {
          const std::uint32_t other = match_.ofReference[old];
          match_.unmatch(other);
          match_.match(other, now);
        });
  }

  void takeBackUnlike(const Stretch& from, const Stretch& to) {
    for (std::size_t i = from.proof; i < to.proof; ++i) {
      const std::uint32_t other = match_.ofProof[i];
      if (other != kNoWord && !reallySame(flows_.proof[i], flows_.reference[other])) {
        match_.unmatch(i);
      }
    }
  }

  // Folios of pages that stand further on by as much.
  void countOn() {
    const long more =
        static_cast<long>(pair_.proof.size()) - static_cast<long>(pair_.reference.size());
    forEachGap(flows_, match_, [&](const Gap& gap) {
      if (!flows_.stretches[gap.stretch].heads || gap.proof.size() != gap.reference.size()) return;
      for (std::size_t i = 0; i < gap.proof.size(); ++i) {
        const FlowWord& now = flows_.proof[gap.proof[i]];
        const FlowWord& old = flows_.reference[gap.reference[i]];
        const long shift = static_cast<long>(now.first.page) - static_cast<long>(old.first.page);
        if (countsOn(old.text, now.text, shift, more)) {
          match_.done({gap.proof[i]}, {gap.reference[i]});
        }
      }
    });
  }

  // The words of a page that came in or is missing go with it.
  void leaveOutPages() {
    const auto leaveOut = [](const Flow& flow, const std::vector<std::uint32_t>& others,
                             const std::vector<bool>& alone, std::vector<bool>& done) {
      std::vector<std::size_t> all(alone.size(), 0);
      std::vector<std::size_t> known(alone.size(), 0);
      for (std::size_t i = 0; i < flow.size(); ++i) {
        ++all[flow[i].first.page];
        if (others[i] != kNoWord) ++known[flow[i].first.page];
      }
      for (std::size_t i = 0; i < flow.size(); ++i) {
        const std::size_t page = flow[i].first.page;
        if (alone[page] &&
            static_cast<double>(known[page]) < kOwnPage * static_cast<double>(all[page])) {
          done[i] = true;
        }
      }
    };
    std::vector<bool> alone;
    for (const auto& partner : pair_.partners) alone.push_back(!partner);
    leaveOut(flows_.proof, match_.ofProof, alone, match_.proofDone);
    std::vector<bool> missing(pair_.reference.size(), false);
    for (const std::size_t page : withoutPartner(pair_.partners, missing.size())) {
      missing[page] = true;
    }
    leaveOut(flows_.reference, match_.ofReference, missing, match_.referenceDone);
  }

  const Pair& pair_;
  const Flows& flows_;
  TextMatch match_;
};

}  // namespace

void TextMatch::match(std::size_t proof, std::size_t reference) {
  ofProof[proof] = static_cast<std::uint32_t>(reference);
  ofReference[reference] = static_cast<std::uint32_t>(proof);
  proofDone[proof] = true;
  referenceDone[reference] = true;
}

void TextMatch::unmatch(std::size_t proof) {
  const std::uint32_t reference = ofProof[proof];
  ofProof[proof] = kNoWord;
  ofReference[reference] = kNoWord;
  proofDone[proof] = false;
  referenceDone[reference] = false;
}

void TextMatch::done(const std::vector<std::size_t>& proof,
                     const std::vector<std::size_t>& reference) {
  for (const std::size_t word : proof) proofDone[word] = true;
  for (const std::size_t word : reference) referenceDone[word] = true;
}

TextMatch textMatchOf(const Pair& pair, const Flows& flows) { return Matching(pair, flows).made(); }

}  // namespace vellix::demo
