#include "split_words.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

namespace vellix::demo {
namespace {

// Of a line's height: a space that was lost makes words narrower by more.
constexpr double kNarrowSpace = 0.13;
constexpr std::size_t kMostParts = 12;

using Indexes = std::span<const std::size_t>;

class Side {
 public:
  Side(const Flow& flow, const std::vector<PdfPage>& pages) : flow_(flow), pages_(pages) {}

  QString text(Indexes words) const {
    QString all;
    for (const std::size_t word : words) all += withoutHyphens(flow_[word].text);
    return all;
  }
  QString written(Indexes words) const {
    QString all;
    for (const std::size_t word : words) all += flow_[word].text;
    return all;
  }

  QStringList parts(Indexes words) const {
    QStringList all;
    for (const std::size_t word : words) {
      const FlowWord& entry = flow_[word];
      if (entry.rest) {
        for (const FlowPart* part : {&entry.first, &*entry.rest}) {
          all << pages_[part->page].words[part->word].text;
        }
      } else {
        all << entry.text;
      }
    }
    return all;
  }

  // Whether nothing but the ends of lines takes them apart, behind a sign that may end one.
  bool onlyLinesPart(Indexes words) const {
    for (std::size_t i = 1; i < words.size(); ++i) {
      const FlowWord& before = flow_[words[i - 1]];
      const FlowWord& word = flow_[words[i]];
      if (onOneLine(before, word)) return false;
      if (before.text.back().isLetterOrNumber() && word.text.front().isLetterOrNumber())
        return false;
    }
    return true;
  }

  // In points; none where they do not stand on one line.
  std::optional<double> width(Indexes words) const {
    for (std::size_t i = 0; i < words.size(); ++i) {
      if (flow_[words[i]].rest || (i > 0 && !onOneLine(flow_[words[i - 1]], flow_[words[i]]))) {
        return std::nullopt;
      }
    }
    const FlowWord& first = flow_[words.front()];
    return (flow_[words.back()].first.box.right() - first.first.box.left()) *
           pages_[first.first.page].width;
  }
  double height(Indexes words) const {
    const FlowPart& first = flow_[words.front()].first;
    return first.box.height() * pages_[first.page].height;
  }

 private:
  const Flow& flow_;
  const std::vector<PdfPage>& pages_;
};

bool readsTheSame(const Side& proof, Indexes now, const Side& reference, Indexes old) {
  if (proof.parts(now) == reference.parts(old)) return true;
  if (proof.onlyLinesPart(now) && reference.onlyLinesPart(old)) return true;
  if (proof.written(now) != reference.written(old)) return false;
  const auto wide = proof.width(now);
  const auto was = reference.width(old);
  return wide && was && std::abs(*wide - *was) < kNarrowSpace * reference.height(old);
}

}  // namespace

void settleSplitWords(const Pair& pair, const Flows& flows, const Gap& gap, TextMatch& match) {
  const Side proof(flows.proof, pair.proof);
  const Side reference(flows.reference, pair.reference);
  Indexes now(gap.proof);
  Indexes old(gap.reference);
  // From the front, and then what is left from the back.
  for (const bool front : {true, false}) {
    const auto some = [front](Indexes all, std::size_t count) {
      return front ? all.first(count) : all.last(count);
    };
    for (bool found = true; found && !now.empty() && !old.empty();) {
      found = false;
      std::size_t nows = 1;
      std::size_t olds = 1;
      while (nows <= now.size() && olds <= old.size() && nows + olds <= kMostParts) {
        const QString is = proof.text(some(now, nows));
        const QString was = reference.text(some(old, olds));
        if (is == was) {
          if (nows + olds > 2 &&
              !readsTheSame(proof, some(now, nows), reference, some(old, olds))) {
            break;
          }
          if (nows + olds == 2) break;  // a hyphen came in or went
          for (const std::size_t word : some(now, nows)) match.proofDone[word] = true;
          for (const std::size_t word : some(old, olds)) match.referenceDone[word] = true;
          now = front ? now.subspan(nows) : now.first(now.size() - nows);
          old = front ? old.subspan(olds) : old.first(old.size() - olds);
          found = true;
          break;
        }
        ++(is.size() < was.size() ? nows : olds);
      }
    }
  }
}

}  // namespace vellix::demo
