#include "word_findings.hpp"

#include <algorithm>
#include <cmath>
#include <map>

#include "running_heads.hpp"
#include "text_gaps.hpp"
#include "told_text.hpp"

namespace vellix::demo {
namespace {

// Changes with no more than so many same words between them are one; of larger ones some more.
constexpr std::size_t kBridged = 1;
constexpr std::size_t kBridgedByMany = 3;
// In points: a gap that is narrower would be hard to see.
constexpr double kNarrowestGap = 4;
constexpr std::size_t kFirstWords = 8;

std::size_t sizeOf(const Gap& gap) { return std::max(gap.proof.size(), gap.reference.size()); }

class WordFindings {
 public:
  WordFindings(const Pair& pair, const Flows& flows, const TextMatch& match,
               const ForeignPages& foreign)
      : pair_(pair),
        flows_(flows),
        match_(match),
        foreign_(foreign),
        proofOf_(pair.reference.size()) {
    for (std::size_t i = 0; i < pair.partners.size(); ++i) {
      if (pair.partners[i]) proofOf_[pair.partners[i]->page] = i;
    }
  }

  std::vector<Finding> made() {
    for (std::size_t page = 0; page < foreign_.size(); ++page) {
      if (foreign_[page]) tellForeign(page);
    }
    std::vector<Gap> gaps;
    forEachGap(flows_, match_, [&](Gap gap) { join(gaps, std::move(gap)); });
    for (Gap& gap : gaps) tell(std::move(gap));
    for (const auto& [cause, place] : heads_) {
      if (place.second == 0) continue;
      *findings_[place.first].detail +=
          " So it is on " + counted(place.second, "page more.", "pages more.");
    }
    for (const Passage& passage : match_.moved) tellMoved(passage);
    return std::move(findings_);
  }

 private:
  void join(std::vector<Gap>& gaps, Gap gap) const {
    if (gaps.empty() || gaps.back().stretch != gap.stretch || !belongTogether(gaps.back(), gap)) {
      gaps.push_back(std::move(gap));
      return;
    }
    Gap& open = gaps.back();
    open.proof.insert(open.proof.end(), gap.proof.begin(), gap.proof.end());
    open.reference.insert(open.reference.end(), gap.reference.begin(), gap.reference.end());
    open.proofEnd = gap.proofEnd;
    open.referenceEnd = gap.referenceEnd;
  }

  bool belongTogether(const Gap& open, const Gap& gap) const {
    const std::size_t same = gap.proofBegin - open.proofEnd;
    if (same > kBridged &&
        (same > kBridgedByMany || std::min(sizeOf(open), sizeOf(gap)) < 2 * same)) {
      return false;
    }
    return pageOf(open) == pageOf(gap);
  }

  // Of the proof: where what came in begins, or where the words are missing.
  std::size_t pageOf(const Gap& gap) const {
    if (!gap.proof.empty()) return flows_.proof[gap.proof.front()].first.page;
    const auto home = proofOf_[flows_.reference[gap.reference.front()].first.page];
    const Stretch& begin = flows_.stretches[gap.stretch];
    const Stretch& end = flows_.stretches[gap.stretch + 1];
    std::vector<std::size_t> around;
    if (gap.proofBegin > begin.proof) {
      around.push_back(flows_.proof[gap.proofBegin - 1].last().page);
    }
    if (gap.proofEnd < end.proof) around.push_back(flows_.proof[gap.proofEnd].first.page);
    if (home && (around.empty() || std::ranges::find(around, *home) != around.end())) return *home;
    return around.empty() ? 0 : around.front();
  }

  std::vector<QRectF> placeOfGap(const Gap& gap, std::size_t page) const {
    const Stretch& begin = flows_.stretches[gap.stretch];
    const Stretch& end = flows_.stretches[gap.stretch + 1];
    const bool before =
        gap.proofBegin > begin.proof && flows_.proof[gap.proofBegin - 1].last().page == page;
    const bool behind = gap.proofEnd < end.proof && flows_.proof[gap.proofEnd].first.page == page;
    if (before && behind &&
        onOneLine(flows_.proof[gap.proofBegin - 1], flows_.proof[gap.proofEnd])) {
      const QRectF& left = flows_.proof[gap.proofBegin - 1].last().box;
      const QRectF& right = flows_.proof[gap.proofEnd].first.box;
      if (!left.isEmpty() && !right.isEmpty() && left.right() <= right.left()) {
        const double least = kNarrowestGap / pair_.proof[page].width;
        const double middle = (left.right() + right.left()) / 2;
        const double wide = std::max(least, right.left() - left.right());
        const double top = std::min(left.top(), right.top());
        return {
            QRectF(middle - wide / 2, top, wide, std::max(left.bottom(), right.bottom()) - top)};
      }
    }
    if (before) return boxesOn(flows_.proof, {gap.proofBegin - 1}, page);
    if (behind) return boxesOn(flows_.proof, {gap.proofEnd}, page);
    return {};
  }

  // Each page tells of its own words; those of the reference go with the first.
  void tell(Gap gap) {
    std::erase_if(gap.reference, [&](std::size_t word) {
      const auto page = proofOf_[flows_.reference[word].first.page];
      return page && foreign_[*page];
    });
    if (gap.proof.empty() && gap.reference.empty()) return;
    if (gap.proof.empty()) {
      const std::size_t page = pageOf(gap);
      if (!foreign_[page]) tellOn(page, gap);
      return;
    }
    Gap left = std::move(gap);
    while (!left.proof.empty()) {
      const std::size_t page = flows_.proof[left.proof.front()].first.page;
      const auto end = std::ranges::find_if(
          left.proof, [&](std::size_t word) { return flows_.proof[word].first.page != page; });
      Gap here = left;
      here.proof.assign(left.proof.begin(), end);
      left.proof.erase(left.proof.begin(), end);
      if (!left.proof.empty()) here.proofEnd = left.proof.front();
      left.proofBegin = here.proofEnd;
      if (!foreign_[page]) {
        tellOn(page, here);
        left.reference.clear();
        left.referenceBegin = left.referenceEnd;
      }
    }
  }

  void tellOn(std::size_t page, const Gap& gap) {
    const std::string is = phrase(flows_.proof, gap.proof);
    const std::string was = phrase(flows_.reference, gap.reference);
    // Decided once, and seen wherever it is so.
    const bool again = flows_.stretches[gap.stretch].heads && known(gap, is, was);
    const bool slight =
        lettersOf(flows_.proof, gap.proof) == lettersOf(flows_.reference, gap.reference);
    Finding finding = findingOn(page, pair_, "words", again ? "low" : slight ? "medium" : "high");
    const std::size_t came = gap.proof.size();
    const std::size_t went = gap.reference.size();
    if (went == 0) {
      finding.title = counted(came, "word came in", "words came in");
      finding.detail = quoted(is) + " does not stand in " + pair_.called + ".";
    } else if (came == 0) {
      finding.title = counted(went, "word is gone", "words are gone");
      finding.detail = quoted(was) + " stands in " + pair_.called + ".";
    } else {
      finding.title = counted(std::max(went, came), "word changed", "words changed");
      finding.detail =
          "It reads " + quoted(is) + " where " + pair_.called + " reads " + quoted(was) + ".";
    }
    const Stretch& begin = flows_.stretches[gap.stretch];
    const Stretch& end = flows_.stretches[gap.stretch + 1];
    const auto old = around(gap.referenceBegin, gap.referenceEnd, begin.reference, end.reference);
    const auto now = around(gap.proofBegin, gap.proofEnd, begin.proof, end.proof);
    finding.before = phraseOf(flows_.reference, old.from, old.to);
    finding.after = phraseOf(flows_.proof, now.from, now.to);
    if (came > 0) {
      mark(finding, pair_, flows_, gap.proof, gap.reference);
    } else {
      mark(finding, pair_, flows_, placeOfGap(gap, page), gap.reference);
    }
    if (went == 0) markGapOfReference(finding, gap);
    findings_.push_back(std::move(finding));
  }

  // Where words came in, the reference is marked at the word in front.
  void markGapOfReference(Finding& finding, const Gap& gap) const {
    if (gap.referenceBegin == flows_.stretches[gap.stretch].reference) return;
    Finding marked = finding;
    mark(marked, pair_, flows_, std::vector<QRectF>{},
         std::vector<std::size_t>{gap.referenceBegin - 1});
    finding.ref_box = marked.ref_box;
  }

  // What the head of every page has in common is to be decided on the first.
  bool known(const Gap& gap, const std::string& is, const std::string& was) {
    std::string cause = is + "\n" + was;
    if (gap.proof.size() == 1 && gap.reference.size() == 1) {
      const FlowWord& now = flows_.proof[gap.proof.front()];
      const FlowWord& old = flows_.reference[gap.reference.front()];
      const long shift = static_cast<long>(now.first.page) - static_cast<long>(old.first.page);
      if (const auto step = numberStep(old.text, now.text)) cause = std::to_string(*step - shift);
    }
    const auto [place, fresh] = heads_.try_emplace(cause, findings_.size(), 0);
    if (!fresh) ++place->second.second;
    return !fresh;
  }

  static std::string phrase(const Flow& flow, const std::vector<std::size_t>& words) {
    return words.empty() ? std::string() : phraseOf(flow, words.front(), words.back() + 1);
  }

  // Without signs and capitals, but for those between figures.
  static QString lettersOf(const Flow& flow, const std::vector<std::size_t>& words) {
    QString letters;
    for (const std::size_t word : words) {
      const QString& text = flow[word].text;
      for (qsizetype i = 0; i < text.size(); ++i) {
        const bool inFigure =
            i > 0 && i + 1 < text.size() && text[i - 1].isDigit() && text[i + 1].isDigit();
        if (text[i].isLetterOrNumber() || text[i].isSurrogate() || inFigure) {
          letters += text[i].toLower();
        }
      }
    }
    return letters;
  }

  void tellForeign(std::size_t page) {
    Finding finding = findingOn(page, pair_, "words", "high");
    finding.title = "The page reads otherwise";
    finding.detail = "Too much differs from " + pair_.called + " to tell it word by word.";
    const auto whole = [](const PdfPage& of) {
      QRectF all;
      for (const PdfWord& word : of.words) {
        const bool finite = std::isfinite(word.box.x() + word.box.y() + word.box.right()) &&
                            std::isfinite(word.box.bottom());
        if (finite && word.box.isValid()) all = all.united(word.box);
      }
      return all.isEmpty() ? std::vector<QRectF>{} : std::vector<QRectF>{all};
    };
    putBoxes(finding, whole(pair_.proof[page]), whole(pair_.reference[pair_.partners[page]->page]));
    findings_.push_back(std::move(finding));
  }

  void tellMoved(const Passage& passage) {
    const std::size_t page = flows_.proof[passage.proof].first.page;
    const std::size_t from = flows_.reference[passage.reference].first.page;
    if (foreign_[page]) return;
    Finding finding = findingOn(page, pair_, "words", "medium");
    const std::size_t shown = std::min(passage.count, kFirstWords);
    const std::string more = passage.count > shown ? " …" : "";
    const auto& partner = pair_.partners[page];
    const bool here = partner && partner->page == from;
    finding.title = "A passage stands elsewhere";
    finding.detail =
        quoted(phraseOf(flows_.proof, passage.proof, passage.proof + shown) + more) + " stands " +
        (here ? "at another place of the page" : "on page " + std::to_string(from + 1)) + " in " +
        pair_.called + ".";
    mark(finding, pair_, flows_, wordsFrom(passage.proof, passage.proof + passage.count),
         wordsFrom(passage.reference, passage.reference + passage.count));
    findings_.push_back(std::move(finding));
  }

  const Pair& pair_;
  const Flows& flows_;
  const TextMatch& match_;
  const ForeignPages& foreign_;
  std::vector<std::optional<std::size_t>> proofOf_;  // by page of the reference
  std::vector<Finding> findings_;
  // By what is different: the finding that tells it, and on how many pages more it is so.
  std::map<std::string, std::pair<std::size_t, std::size_t>> heads_;
};

}  // namespace

std::vector<Finding> wordFindings(const Pair& pair, const Flows& flows, const TextMatch& match,
                                  const ForeignPages& foreign) {
  return WordFindings(pair, flows, match, foreign).made();
}

}  // namespace vellix::demo
