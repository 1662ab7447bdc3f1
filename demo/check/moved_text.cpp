#include "moved_text.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>

#include "page_geometry.hpp"

namespace vellix::demo {
namespace {

constexpr double kPointsAside = 4;
// Fewer words, or letters, come together by chance.
constexpr std::size_t kFewestWords = 5;
constexpr qsizetype kFewestLetters = 20;
constexpr std::size_t kInARow = 3;
constexpr std::size_t kMostCandidates = 24;
// On a page where that does not do, the order of reading is not what differs.
constexpr std::size_t kMostAsked = 400;
constexpr double kLinesOfAWrap = 2.2;
constexpr double kPointsOfAWrap = 60;

using Candidates = std::vector<std::uint32_t>;

class Moved {
 public:
  Moved(const Pair& pair, const Flows& flows, TextMatch& match)
      : pair_(pair),
        flows_(flows),
        match_(match),
        proofWords_(flows.proof, pair.proof.size()),
        referenceWords_(flows.reference, pair.reference.size()) {}

  void settle() {
    for (std::uint32_t i = 0; i < flows_.reference.size(); ++i) {
      if (match_.referenceDone[i]) continue;
      const FlowWord& word = flows_.reference[i];
      onPage_[{word.first.page, word.key}].push_back(i);
    }
    if (onPage_.empty()) return;
    settleAtTheirPlaces();
    for (std::size_t i = 0; i + kInARow <= flows_.reference.size(); ++i) {
      if (openRow(flows_.reference, match_.referenceDone, i)) {
        rows_[rowOf(flows_.reference, i)].push_back(static_cast<std::uint32_t>(i));
      }
    }
    for (std::size_t i = 0; i < flows_.proof.size();) i += settleAt(i);
  }

 private:
  std::size_t partnerOf(std::size_t page) const {
    const auto& partner = pair_.partners[page];
    return partner ? partner->page : kNoWord;
  }

  static bool openRow(const Flow& flow, const std::vector<bool>& done, std::size_t at) {
    for (std::size_t i = at; i < at + kInARow; ++i) {
      if (i >= flow.size() || done[i]) return false;
    }
    return true;
  }
  static std::uint64_t rowOf(const Flow& flow, std::size_t at) {
    std::uint64_t row = 0;
    for (std::size_t i = at; i < at + kInARow; ++i) {
      row = row * 0x9e3779b97f4a7c15ULL + static_cast<std::uint64_t>(flow[i].key) + 1;
    }
    return row;
  }

  // How far a page lies off its partner as a whole, in points.
  QPointF shiftOf(std::size_t page) {
    const auto known = shifts_.find(page);
    if (known != shifts_.end()) return known->second;
    std::vector<double> x;
    std::vector<double> y;
    for (const std::uint32_t word : proofWords_.on(page)) {
      const std::uint32_t other = match_.ofProof[word];
      if (other == kNoWord || flows_.reference[other].first.page != partnerOf(page)) continue;
      const QPointF by = away(word, other);
      x.push_back(by.x());
      y.push_back(by.y());
    }
    const auto middle = [](std::vector<double>& all) {
      if (all.empty()) return 0.0;
      const auto half = all.begin() + static_cast<std::ptrdiff_t>(all.size() / 2);
      std::ranges::nth_element(all, half);
      return *half;
    };
    return shifts_[page] = {middle(x), middle(y)};
  }

  QPointF away(std::size_t proof, std::size_t reference) const {
    const auto at = [](const FlowWord& word, const std::vector<PdfPage>& pages) {
      const PdfPage& page = pages[word.first.page];
      const QPointF middle = word.first.box.center();
      return QPointF(middle.x() * page.width, middle.y() * page.height);
    };
    return at(flows_.proof[proof], pair_.proof) - at(flows_.reference[reference], pair_.reference);
  }

  bool sameText(std::size_t proof, std::size_t reference) const {
    return !match_.proofDone[proof] && !match_.referenceDone[reference] &&
           flows_.proof[proof].key == flows_.reference[reference].key &&
           flows_.proof[proof].text == flows_.reference[reference].text;
  }

  const Candidates* onPartner(std::size_t proof) const {
    const FlowWord& word = flows_.proof[proof];
    const std::size_t partner = partnerOf(word.first.page);
    if (partner == kNoWord) return nullptr;
    const auto found = onPage_.find({static_cast<std::uint32_t>(partner), word.key});
    return found == onPage_.end() ? nullptr : &found->second;
  }

  void settleAtTheirPlaces() {
    const auto near = [](QPointF by) {
      return std::abs(by.x()) <= kPointsAside && std::abs(by.y()) <= kPointsAside;
    };
    for (std::size_t i = 0; i < flows_.proof.size(); ++i) {
      if (match_.proofDone[i]) continue;
      const Candidates* candidates = onPartner(i);
      if (candidates == nullptr) continue;
      const QPointF shift = shiftOf(flows_.proof[i].first.page);
      for (const std::uint32_t other : *candidates) {
        if (!sameText(i, other)) continue;
        const QPointF by = away(i, other);
        if (!near(by) && !near(by - shift)) continue;
        match_.done({i}, {other});
        break;
      }
    }
  }

  // So many words at that place are done, or passed by.
  std::size_t settleAt(std::size_t at) {
    if (match_.proofDone[at]) return 1;
    Passage longest;
    const auto weigh = [&](const Candidates& candidates) {
      for (std::size_t i = 0; i < std::min(candidates.size(), kMostCandidates); ++i) {
        std::size_t count = 0;
        while (at + count < flows_.proof.size() &&
               candidates[i] + count < flows_.reference.size() &&
               sameText(at + count, candidates[i] + count)) {
          ++count;
        }
        if (count > longest.count) longest = {at, candidates[i], count};
      }
    };
    if (openRow(flows_.proof, match_.proofDone, at)) {
      const auto rows = rows_.find(rowOf(flows_.proof, at));
      if (rows != rows_.end()) weigh(rows->second);
    }
    if (const Candidates* candidates = onPartner(at); longest.count == 0 && candidates != nullptr) {
      weigh(*candidates);
    }
    if (longest.count == 0) return 1;
    const bool stays = keepsItsNeighbours(longest) || wraps(longest);
    qsizetype letters = 0;
    for (std::size_t i = 0; i < longest.count; ++i) letters += flows_.proof[at + i].text.size();
    if (!stays && (longest.count < kFewestWords || letters < kFewestLetters)) return 1;
    for (std::size_t i = 0; i < longest.count; ++i) {
      match_.done({longest.proof + i}, {longest.reference + i});
    }
    if (!stays) match_.moved.push_back(longest);
    return longest.count;
  }

  // Whether it stood at the end of a line and now begins the next, or the other way round: cells of
  // a table side by side are read line by line.
  bool wraps(const Passage& passage) const {
    const FlowWord& now = flows_.proof[passage.proof];
    if (flows_.reference[passage.reference].first.page != partnerOf(now.first.page)) return false;
    const QPointF by = away(passage.proof, passage.reference);
    const double line = now.first.box.height() * pair_.proof[now.first.page].height;
    const bool otherLine = std::abs(by.y()) > line / 2 && std::abs(by.y()) < kLinesOfAWrap * line;
    return otherLine && (by.y() > 0) == (by.x() < 0) && std::abs(by.x()) > kPointsOfAWrap;
  }

  bool keepsItsNeighbours(const Passage& passage) {
    const FlowWord& first = flows_.proof[passage.proof];
    if (flows_.reference[passage.reference].first.page != partnerOf(first.first.page)) return false;
    if (++asked_[first.first.page] > kMostAsked) return false;
    const std::size_t end = passage.proof + passage.count - 1;
    const std::size_t otherEnd = passage.reference + passage.count - 1;
    const Neighbour left{proofWords_.left(passage.proof), referenceWords_.left(passage.reference)};
    const Neighbour right{proofWords_.right(end), referenceWords_.right(otherEnd)};
    if (left.none() && right.none()) {
      return agree({proofWords_.above(passage.proof), referenceWords_.above(passage.reference)}) ||
             agree({proofWords_.below(end), referenceWords_.below(otherEnd)});
    }
    return (left.none() || agree(left)) && (right.none() || agree(right));
  }

  struct Neighbour {
    std::optional<std::uint32_t> proof;
    std::optional<std::uint32_t> reference;
    bool none() const { return !proof && !reference; }
  };
  bool agree(const Neighbour& both) const {
    return both.proof && both.reference &&
           flows_.proof[*both.proof].key == flows_.reference[*both.reference].key &&
           (match_.ofProof[*both.proof] == *both.reference ||
            match_.ofProof[*both.proof] == kNoWord);
  }

  const Pair& pair_;
  const Flows& flows_;
  TextMatch& match_;
  PageGeometry proofWords_;
  PageGeometry referenceWords_;
  std::map<std::pair<std::uint32_t, int>, Candidates> onPage_;  // of the reference, not done
  std::unordered_map<std::uint64_t, Candidates> rows_;          // of the reference's words
  std::map<std::size_t, QPointF> shifts_;
  std::map<std::size_t, std::size_t> asked_;  // by page
};

}  // namespace

void settleMovedText(const Pair& pair, const Flows& flows, TextMatch& match) {
  Moved(pair, flows, match).settle();
}

}  // namespace vellix::demo
