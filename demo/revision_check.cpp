#include "revision_check.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>

#include "art_changes.hpp"
#include "word_changes.hpp"

namespace vellix::demo {
namespace {

constexpr std::size_t kMostOfAPage = 40;
constexpr std::size_t kMostOfAll = 600;
// Breaks further apart than that have nothing to do with each other.
constexpr std::size_t kWordsOfALine = 24;
constexpr double kPointsAside = 1.0;
constexpr const char* kRepaired = "Repaired: ";
constexpr const char* kNotRepaired = "Not repaired: ";
constexpr const char* kPerhapsRepaired = "See whether it is repaired: ";

using Words = std::vector<PdfWord>;

std::string phrase(const Words& words, std::size_t from, std::size_t to) {
  std::string text;
  for (std::size_t i = from; i < to; ++i) {
    if (i > from) text += ' ';
    text += words[i].text.toStdString();
  }
  return text;
}

std::string withNeighbours(const Words& words, std::size_t from, std::size_t to) {
  return phrase(words, from < 2 ? 0 : from - 2, std::min(words.size(), to + 2));
}

std::string counted(std::size_t count, const std::string& one, const std::string& many) {
  return count == 1 ? "One " + one : std::to_string(count) + " " + many;
}

std::vector<double> asBox(const QRectF& box) {
  return {box.x(), box.y(), box.width(), box.height()};
}

Finding changed(std::size_t page, const char* kind, const char* severity) {
  Finding finding;
  finding.page = static_cast<Int>(page);
  finding.against = "previous";
  finding.kind = kind;
  finding.severity = severity;
  finding.state = "open";
  return finding;
}

// Where words went, the word in front of the gap is marked, or else the one behind.
std::vector<QRectF> placeOf(const Words& words, std::size_t from, std::size_t to) {
  if (from < to) return boxesOf(words, from, to);
  if (words.empty()) return {};
  const std::size_t at = from > 0 ? from - 1 : 0;
  return boxesOf(words, at, at + 1);
}

void putBoxes(Finding& finding, const std::vector<QRectF>& now, const std::vector<QRectF>& old) {
  if (!now.empty()) finding.box = asBox(now.front());
  if (!old.empty()) finding.ref_box = asBox(old.front());
  if (now.size() < 2) return;
  finding.boxes.emplace();
  for (const QRectF& box : now) finding.boxes->push_back(asBox(box));
}

Finding wordsChanged(std::size_t page, const WordChange& change, const Words& old, const Words& now,
                     const std::string& oldName) {
  Finding finding = changed(page, "words", "high");
  const std::size_t went = change.oldTo - change.oldFrom;
  const std::size_t came = change.newTo - change.newFrom;
  const std::string was = "“" + phrase(old, change.oldFrom, change.oldTo) + "”";
  const std::string is = "“" + phrase(now, change.newFrom, change.newTo) + "”";
  if (went == 0) {
    finding.title = counted(came, "word came in", "words came in");
    finding.detail = is + " does not stand in " + oldName + ".";
  } else if (came == 0) {
    finding.title = counted(went, "word is gone", "words are gone");
    finding.detail = was + " stands in " + oldName + ".";
  } else {
    finding.title = counted(std::max(went, came), "word changed", "words changed");
    finding.detail = "It reads " + is + " where " + oldName + " reads " + was + ".";
  }
  finding.before = withNeighbours(old, change.oldFrom, change.oldTo);
  finding.after = withNeighbours(now, change.newFrom, change.newTo);
  putBoxes(finding, placeOf(now, change.newFrom, change.newTo),
           placeOf(old, change.oldFrom, change.oldTo));
  return finding;
}

// The break is marked at the word that begins a line on one of the two and stood within one on the
// other, and told once for all those that follow from it.
Finding breaksMoved(std::size_t page, std::span<const MovedBreak> breaks, const Words& old,
                    const Words& now, const std::string& oldName) {
  Finding finding = changed(page, "breaks", "medium");
  finding.title = breaks.size() == 1 ? "A line breaks elsewhere" : "Lines break elsewhere";
  finding.detail = counted(breaks.size(), "break differs", "breaks differ") + " from " + oldName +
                   ". The first is at “" + now[breaks.front().newWord].text.toStdString() + "”.";
  const std::size_t n = breaks.front().newWord;
  putBoxes(finding, boxesOf(now, n - 1, n + 1), {old[breaks.front().oldWord].box});
  return finding;
}

std::string called(const Compared& version) { return "v" + std::to_string(version.number); }

QRectF allOf(const Words& words) {
  QRectF all;
  for (const PdfWord& word : words) all = all.united(word.box);
  return all;
}

Finding readsOtherwise(std::size_t page, const Words& old, const Words& now,
                       const std::string& oldName) {
  Finding finding = changed(page, "words", "high");
  finding.title = "The page reads otherwise";
  finding.detail = "Too much differs from " + oldName + " to tell it word by word.";
  putBoxes(finding, {allOf(now)}, {allOf(old)});
  return finding;
}

Finding noLiveText(std::size_t page, const std::string& oldName) {
  Finding finding = changed(page, "words", "medium");
  finding.title = "No live text";
  finding.detail =
      "The page has no words to compare with those of " + oldName + ". Compare it by eye.";
  return finding;
}

std::string millimetres(const PdfPage& page) {
  const auto text = [](double points) {
    return QString::number(points * 25.4 / 72, 'f', 1).toStdString();
  };
  return text(page.width) + " × " + text(page.height) + " mm";
}

std::vector<Finding> ofPage(std::size_t i, const PdfPage& old, const PdfPage& now,
                            const std::string& oldName, bool brief) {
  std::vector<Finding> findings;
  if (std::abs(old.width - now.width) > kPointsAside ||
      std::abs(old.height - now.height) > kPointsAside) {
    Finding finding = changed(i, "size", "medium");
    finding.title = "The page has another size";
    finding.detail = millimetres(now) + ", where " + oldName + " has " + millimetres(old) + ".";
    findings.push_back(std::move(finding));
  }
  if (now.words.empty()) {
    if (!old.words.empty()) findings.push_back(noLiveText(i, oldName));
    return findings;
  }
  if (old.words.empty()) return findings;
  const auto changes = changesOf(old.words, now.words);
  if (!changes || changes->words.size() > (brief ? 1 : kMostOfAPage)) {
    findings.push_back(readsOtherwise(i, old.words, now.words, oldName));
    return findings;
  }
  for (const WordChange& change : changes->words) {
    findings.push_back(wordsChanged(i, change, old.words, now.words, oldName));
  }
  const std::span all(changes->breaks);
  for (std::size_t from = 0, to = 1; to <= all.size(); ++to) {
    if (to < all.size() && all[to].newWord - all[to - 1].newWord < kWordsOfALine) continue;
    findings.push_back(breaksMoved(i, all.subspan(from, to - from), old.words, now.words, oldName));
    from = to;
  }
  return findings;
}

// Told at the last page that both have, since there the two can be compared.
Finding pagesMoreOrLess(const Compared& before, const Compared& after) {
  const std::size_t old = before.reading.pages.size();
  const std::size_t now = after.reading.pages.size();
  const bool less = now < old;
  Finding finding = changed(std::min(old, now) - 1, less ? "missing_page" : "extra_page", "high");
  const std::size_t count = less ? old - now : now - old;
  finding.title = less ? counted(count, "page is missing", "pages are missing")
                       : counted(count, "page more", "pages more");
  finding.detail = called(after) + " has " + std::to_string(now) + (now == 1 ? " page" : " pages") +
                   " where " + called(before) + " has " + std::to_string(old) + ".";
  if (less && now < before.names.size()) {
    *finding.detail += " It ends before p" + before.names[now] + ".";
  }
  return finding;
}

std::vector<Finding> artOfPage(std::size_t i, const Compared& before, const Compared& after) {
  std::vector<Finding> findings;
  if (i >= before.sketches.size() || i >= after.sketches.size()) return findings;
  for (const QRectF& box :
       artChanges(before.sketches[i], after.sketches[i], before.reading.pages[i].words,
                  after.reading.pages[i].words)) {
    Finding finding = changed(i, "picture", "medium");
    finding.title = "The art differs";
    finding.detail = "What is drawn here is not what " + called(before) + " shows.";
    putBoxes(finding, {box}, {box});
    findings.push_back(std::move(finding));
  }
  return findings;
}

// An issue is called by its own name, however often it was seen again.
std::string nameOf(const Finding& issue) {
  std::string name = issue.title;
  for (const char* seen : {kRepaired, kNotRepaired, kPerhapsRepaired}) {
    if (name.starts_with(seen)) name.erase(0, std::string(seen).size());
  }
  return name;
}

// Whether words tell of it.
bool inWords(const Finding& finding) {
  return finding.kind == "words" || finding.kind == "breaks" || finding.kind == "fonts";
}

bool meet(const Finding& change, const Finding& issue) {
  if (change.page != issue.page || inWords(change) != inWords(issue)) return false;
  if (change.kind == "size" && issue.kind == "size") return true;
  if (!change.ref_box || !issue.box) return false;
  const auto rect = [](const std::vector<double>& box) {
    return QRectF(box[0], box[1], box[2], box[3]);
  };
  const QRectF place = rect(*change.ref_box);
  if (place.intersects(rect(*issue.box))) return true;
  return std::ranges::any_of(issue.boxes.value_or(std::vector<std::vector<double>>{}),
                             [&](const auto& box) { return place.intersects(rect(box)); });
}

}  // namespace

std::vector<Finding> changesBetween(const Compared& before, const Compared& after) {
  const auto& old = before.reading.pages;
  const auto& now = after.reading.pages;
  const std::size_t both = std::min(old.size(), now.size());
  std::vector<Finding> findings;
  if (both == 0) return findings;
  for (std::size_t i = 0; i < both; ++i) {
    const bool brief = findings.size() > kMostOfAll;
    std::ranges::move(ofPage(i, old[i], now[i], called(before), brief),
                      std::back_inserter(findings));
    std::ranges::move(artOfPage(i, before, after), std::back_inserter(findings));
  }
  if (old.size() != now.size()) findings.push_back(pagesMoreOrLess(before, after));
  return findings;
}

CheckResult weighed(std::vector<Finding> changes, const std::vector<Finding>& before,
                    std::size_t pages) {
  std::size_t repairs = 0;
  std::size_t open = 0;
  for (const Finding& issue : before) {
    if (issue.state != "issue" || issue.page >= static_cast<Int>(pages)) continue;
    const auto change =
        std::ranges::find_if(changes, [&](const Finding& made) { return meet(made, issue); });
    if (change != changes.end()) {
      if (change->kind == "expected") continue;  // one change for two issues
      change->kind = "expected";
      change->state = "expected";
      change->severity = "low";
      change->title = kRepaired + nameOf(issue);
      ++repairs;
      continue;
    }
    const bool told = issue.kind == "words" || issue.kind == "breaks";
    Finding finding = issue;
    finding.against = "previous";
    finding.severity = "medium";
    finding.state = "open";
    finding.state_by.reset();
    finding.state_at.reset();
    finding.title = (told ? kNotRepaired : kPerhapsRepaired) + nameOf(issue);
    finding.before.reset();  // the version before reads the same
    finding.ref_box = issue.box;
    changes.push_back(std::move(finding));
  }
  for (const Finding& finding : changes) open += finding.state == "open";
  std::ranges::stable_sort(changes, {}, &Finding::page);
  CheckResult result{std::move(changes), {}};
  if (repairs > 0) {
    result.summary = counted(repairs, "repair came through.", "repairs came through.") + " ";
  }
  result.summary += open > 0      ? counted(open, "thing to look at.", "things to look at.")
                    : repairs > 0 ? "Nothing else moved."
                                  : "Nothing moved.";
  return result;
}

}  // namespace vellix::demo
