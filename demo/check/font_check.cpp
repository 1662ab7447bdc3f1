#include "font_check.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>

#include "told_text.hpp"

namespace vellix::demo {
namespace {

constexpr double kSizeAside = 0.02;  // of the size
constexpr double kPointsAside = 0.2;
// Of all words, so many must agree on a scale.
constexpr double kMostAgree = 0.9;
constexpr std::size_t kFewestToScale = 20;
// A font that differs at fewer places is told at each.
constexpr std::size_t kFewPlaces = 6;

bool differ(double size, double was) {
  return std::abs(size - was) > kPointsAside && std::abs(size - was) > kSizeAside * was;
}

struct Set {
  QString font;
  double size = 0;
  bool operator==(const Set&) const = default;
};

// Words side by side that all differ in the same way, half-open.
struct Run {
  std::size_t from = 0;
  std::size_t to = 0;
  Set was;
  Set is;
  bool otherFont = false;
  bool otherSize = false;
};

class Fonts {
 public:
  Fonts(const Pair& pair, const Flows& flows, const TextMatch& match, const ForeignPages& foreign)
      : pair_(pair),
        flows_(flows),
        match_(match),
        foreign_(foreign),
        scales_(pair.proof.size(), 1) {}

  std::vector<Finding> made() {
    findScales();
    for (std::size_t i = 0; i < flows_.proof.size(); ++i) {
      const bool known = match_.ofProof[i] != kNoWord;
      if (known && !foreign_[flows_.proof[i].first.page]) weigh(i);
    }
    const auto fonts = renamed();
    std::set<QString> told;
    std::set<std::pair<QString, std::size_t>> toldOn;
    for (const Run& run : runs_) {
      const bool everywhere = run.otherFont && !run.otherSize && fonts.contains(run.was.font);
      const std::size_t page = flows_.proof[run.from].first.page;
      if (everywhere && !toldOn.emplace(run.was.font, page).second) continue;
      tell(run, everywhere);
      // Decided once, and seen on each page.
      if (everywhere && !told.insert(run.was.font).second) findings_.back().severity = "low";
    }
    return std::move(findings_);
  }

 private:
  Set setOf(const FlowWord& word, const std::vector<PdfPage>& pages) const {
    const PdfWord& entry = pages[word.first.page].words[word.first.word];
    return {entry.font, std::isfinite(entry.size) && entry.size > 0 ? entry.size : 0};
  }
  Set nowOf(std::size_t word) const { return setOf(flows_.proof[word], pair_.proof); }
  Set oldOf(std::size_t word) const {
    return setOf(flows_.reference[match_.ofProof[word]], pair_.reference);
  }

  // The scale that nearly all of these words agree on, where it is another than 1.
  static std::optional<double> scaleOf(std::vector<double> all) {
    if (all.size() < kFewestToScale) return std::nullopt;
    const auto half = all.begin() + static_cast<std::ptrdiff_t>(all.size() / 2);
    std::ranges::nth_element(all, half);
    const double middle = *half;
    if (std::abs(middle - 1) <= kSizeAside) return std::nullopt;
    const auto agree = std::ranges::count_if(
        all, [&](double scale) { return std::abs(scale - middle) <= kSizeAside / 2 * middle; });
    const bool most = static_cast<double>(agree) >= kMostAgree * static_cast<double>(all.size());
    return most ? std::optional(middle) : std::nullopt;
  }

  void findScales() {
    std::vector<std::vector<double>> ofPage(pair_.proof.size());
    std::vector<double> all;
    for (std::size_t i = 0; i < flows_.proof.size(); ++i) {
      if (match_.ofProof[i] == kNoWord) continue;
      const double was = oldOf(i).size;
      const double is = nowOf(i).size;
      if (was <= 0 || is <= 0) continue;
      ofPage[flows_.proof[i].first.page].push_back(is / was);
      all.push_back(is / was);
    }
    if (const auto scale = scaleOf(all)) {
      std::ranges::fill(scales_, *scale);
      const auto first =
          std::ranges::find_if(ofPage, [](const auto& page) { return !page.empty(); });
      for (auto page = first; page != ofPage.end(); ++page) {
        if (page->empty()) continue;
        tellScale(static_cast<std::size_t>(page - ofPage.begin()), *scale, "All pages are");
        if (page != first) findings_.back().severity = "low";
      }
      return;
    }
    for (std::size_t page = 0; page < ofPage.size(); ++page) {
      const auto scale = scaleOf(std::move(ofPage[page]));
      if (!scale) continue;
      scales_[page] = *scale;
      tellScale(page, *scale, "The page is");
    }
  }

  void tellScale(std::size_t page, double scale, const std::string& what) {
    Finding finding = findingOn(page, pair_, "fonts", "medium");
    finding.title = scale > 1 ? "Everything is set larger" : "Everything is set smaller";
    finding.detail = what + " set at " + QString::number(scale * 100, 'f', 1).toStdString() +
                     " % of the size in " + pair_.called + ".";
    findings_.push_back(std::move(finding));
  }

  void weigh(std::size_t word) {
    const Set is = nowOf(word);
    const Set was = oldOf(word);
    const bool known = !is.font.isEmpty() && !was.font.isEmpty();
    if (known) {
      ++uses_[was.font][is.font];
      ++sources_[is.font][was.font];
    }
    const double scaled = was.size * scales_[flows_.proof[word].first.page];
    Run run{word,
            word + 1,
            was,
            is,
            known && is.font != was.font,
            is.size > 0 && was.size > 0 && differ(is.size, scaled)};
    if (!run.otherFont && !run.otherSize) return;
    if (!runs_.empty()) {
      Run& open = runs_.back();
      const FlowWord& before = flows_.proof[open.to - 1];
      if (open.to == word && open.was == was && open.is == is &&
          before.first.page == flows_.proof[word].first.page) {
        ++open.to;
        return;
      }
    }
    runs_.push_back(std::move(run));
  }

  // Fonts that are another one wherever they were used, that nothing else was set in before.
  std::map<QString, QString> renamed() const {
    std::map<QString, std::size_t> places;
    for (const Run& run : runs_) {
      if (run.otherFont) ++places[run.was.font];
    }
    std::map<QString, QString> fonts;
    for (const auto& [was, is] : uses_) {
      const bool everywhere = is.size() == 1 && is.begin()->first != was;
      if (everywhere && places[was] >= kFewPlaces && sources_.at(is.begin()->first).size() == 1) {
        fonts[was] = is.begin()->first;
      }
    }
    return fonts;
  }

  static std::string described(const Set& set) {
    QString text = set.font;
    if (set.size > 0) {
      if (!text.isEmpty()) text += u' ';
      text += QString::number(std::round(set.size * 10) / 10) + QStringLiteral(" pt");
    }
    return text.toStdString();
  }

  void tell(const Run& run, bool everywhere) {
    Finding finding = findingOn(flows_.proof[run.from].first.page, pair_, "fonts", "medium");
    const bool one = run.to == run.from + 1;
    const std::string what = run.otherFont ? "font" : "size";
    if (everywhere) {
      finding.title = "A font is another one throughout";
      finding.detail = "All that is set in " + run.was.font.toStdString() + " in " + pair_.called +
                       " is set in " + run.is.font.toStdString() + ".";
    } else {
      finding.title = (one ? "A word is in another " : "A passage is in another ") + what;
      finding.detail = quoted(phraseOf(flows_.proof, run.from, run.to)) + " is set in " +
                       described(run.is) +
                       (described(run.is) == described(run.was)
                            ? " as in " + pair_.called + ", unlike all that is around it."
                            : ", where " + pair_.called + " has " + described(run.was) + ".");
    }
    std::vector<std::size_t> reference;
    for (std::size_t i = run.from; i < run.to; ++i) reference.push_back(match_.ofProof[i]);
    mark(finding, pair_, flows_, wordsFrom(run.from, run.to), reference);
    findings_.push_back(std::move(finding));
  }

  const Pair& pair_;
  const Flows& flows_;
  const TextMatch& match_;
  const ForeignPages& foreign_;
  std::vector<double> scales_;  // by page of the proof
  std::vector<Run> runs_;
  // How often a font of the reference is which one of the proof, and the other way round.
  std::map<QString, std::map<QString, std::size_t>> uses_;
  std::map<QString, std::map<QString, std::size_t>> sources_;
  std::vector<Finding> findings_;
};

}  // namespace

std::vector<Finding> fontFindings(const Pair& pair, const Flows& flows, const TextMatch& match,
                                  const ForeignPages& foreign) {
  return Fonts(pair, flows, match, foreign).made();
}

}  // namespace vellix::demo
