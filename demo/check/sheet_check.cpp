#include "check/sheet_check.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>
#include <utility>

#include "check/flowed_pages.hpp"

namespace vellix::demo {
namespace {

constexpr double kPointsAside = 1.0;

using Pages = std::vector<PdfPage>;

// A run of pages: the first and how many.
struct Run {
  std::size_t first = 0;
  std::size_t count = 0;
};

std::vector<Run> runsOf(const std::vector<std::size_t>& pages) {
  std::vector<Run> runs;
  for (const std::size_t page : pages) {
    if (!runs.empty() && runs.back().first + runs.back().count == page) {
      ++runs.back().count;
    } else {
      runs.push_back({page, 1});
    }
  }
  return runs;
}

// "Page 5", "Pages 5 to 7"; pages are counted from 1 where people read of them.
std::string named(const Run& run, bool capital = true) {
  const std::string first = std::to_string(run.first + 1);
  if (run.count == 1) return (capital ? "Page " : "page ") + first;
  return (capital ? "Pages " : "pages ") + first + (run.count == 2 ? " and " : " to ") +
         std::to_string(run.first + run.count);
}

std::string one(const Run& run, const std::string& single, const std::string& many) {
  return run.count == 1 ? single : std::to_string(run.count) + many;
}

Finding finding(const Pair& pair, std::size_t page, const char* kind, const char* severity,
                std::string title, std::string detail) {
  Finding made = findingOn(page, pair, kind, severity);
  made.title = std::move(title);
  made.detail = std::move(detail);
  return made;
}

// The last page before `end` that has a partner for which it holds; or else the first that has one.
template <class Holds>
std::size_t pageBefore(const Pair& pair, std::size_t end, Holds holds) {
  std::size_t found = 0;
  bool any = false;
  for (std::size_t i = 0; i < pair.partners.size(); ++i) {
    if (!pair.partners[i] || (any && (i >= end || !holds(*pair.partners[i])))) continue;
    found = i;
    any = true;
  }
  return found;
}

Finding missing(const Pair& pair, const Run& run) {
  const auto comesBefore = [&](const Partner& partner) {
    return !partner.moved && partner.page < run.first;
  };
  const std::size_t next = run.first + run.count;
  std::string detail = named(run) + " of " + pair.called + (run.count == 1 ? " is" : " are") +
                       " not in the proof. The proof ";
  detail += next < pair.reference.size() ? "goes on with page " + std::to_string(next + 1) + "."
                                         : "ends before.";
  return finding(pair, pageBefore(pair, pair.partners.size(), comesBefore), "missing_page", "high",
                 one(run, "A page is missing", " pages are missing"), std::move(detail));
}

// Of the kind that is shown on a page with nothing beside it.
Finding extra(const Pair& pair, const Run& run) {
  return finding(pair, run.first, "missing_page", "high", one(run, "One page more", " pages more"),
                 named(run) + " of the proof " + (run.count == 1 ? "is" : "are") + " not in " +
                     pair.called + ".");
}

// Runs of pages of the proof for which `told` has the same to say.
template <class Told>
std::vector<std::pair<Run, decltype(std::declval<Told>()(PdfPage{}, PdfPage{}))>> alike(
    const Pair& pair, Told told) {
  std::vector<std::pair<Run, decltype(told(PdfPage{}, PdfPage{}))>> runs;
  for (std::size_t i = 0; i < std::min(pair.proof.size(), pair.partners.size()); ++i) {
    if (!pair.partners[i]) continue;
    auto here = told(pair.proof[i], pair.reference[pair.partners[i]->page]);
    if (!here) continue;
    if (!runs.empty() && runs.back().first.first + runs.back().first.count == i &&
        runs.back().second == here) {
      ++runs.back().first.count;
    } else {
      runs.push_back({{i, 1}, std::move(here)});
    }
  }
  return runs;
}

std::string millimetres(double points) {
  return QString::number(points * 25.4 / 72, 'f', 1).toStdString();
}

std::string millimetres(QSizeF points) {
  return millimetres(points.width()) + " × " + millimetres(points.height()) + " mm";
}

bool apart(QSizeF a, QSizeF b) {
  return std::abs(a.width() - b.width()) > kPointsAside ||
         std::abs(a.height() - b.height()) > kPointsAside;
}

struct Said {
  std::string title, many, detail;  // `many` follows the number of pages
  const char* severity = "medium";
  bool operator==(const Said& other) const { return detail == other.detail; }
};

std::optional<Said> sizeSaid(const std::string& called, const PdfPage& now, const PdfPage& then) {
  const QSizeF size(now.width, now.height);
  const QSizeF old(then.width, then.height);
  if (!apart(size, old)) return std::nullopt;
  return Said{"The page has another size", " pages have another size",
              millimetres(size) + ", where " + called + " has " + millimetres(old) + "."};
}

std::optional<Said> trimSaid(const std::string& called, const PdfPage& now, const PdfPage& then) {
  if (then.trim.isEmpty()) return std::nullopt;
  if (now.trim.isEmpty()) {
    return Said{"The trim is not told", " pages do not tell their trim",
                "In " + called + " they are cut to " + millimetres(then.trim) +
                    ", and the proof tells nothing of it.",
                "low"};
  }
  if (!apart(now.trim, then.trim)) return std::nullopt;
  return Said{"The trim differs", " pages are cut to another size",
              "Cut to " + millimetres(now.trim) + ", where " + called + " has " +
                  millimetres(then.trim) + "."};
}

// What is printed beyond the cut, in the mean of its sides.
std::string bleedOf(const PdfPage& page) {
  if (page.trim.isEmpty()) return "a bleed to " + millimetres(page.bleed);
  const QSizeF more = page.bleed - page.trim;
  return millimetres(std::max(0.0, more.width() + more.height()) / 4) + " mm of bleed";
}

std::optional<Said> bleedSaid(const std::string& called, const PdfPage& now, const PdfPage& then) {
  if (then.bleed.isEmpty()) return std::nullopt;
  if (now.bleed.isEmpty()) {
    return Said{
        "The bleed is not told", " pages do not tell their bleed",
        "There is " + bleedOf(then) + " in " + called + ", and the proof tells nothing of it.",
        "low"};
  }
  // Another trim is told for itself, and takes its bleed along.
  const bool trims = !now.trim.isEmpty() && !then.trim.isEmpty();
  if (trims ? !apart(now.bleed - now.trim, then.bleed - then.trim)
            : !apart(now.bleed, then.bleed)) {
    return std::nullopt;
  }
  return Said{"The bleed differs", " pages have another bleed",
              "There is " + bleedOf(now) + ", where " + called + " has " + bleedOf(then) + "."};
}

std::string quoted(const std::vector<QString>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    text += i == 0 ? "" : i + 1 == names.size() ? " and " : ", ";
    text += "“" + names[i].toStdString() + "”";
  }
  return text;
}

std::optional<Said> inksSaid(const std::string& called, const PdfPage& now, const PdfPage& then) {
  std::vector<QString> more;
  std::vector<QString> gone;
  std::ranges::set_difference(now.inks, then.inks, std::back_inserter(more));
  std::ranges::set_difference(then.inks, now.inks, std::back_inserter(gone));
  if (more.empty() && gone.empty()) return std::nullopt;
  std::string detail;
  if (!more.empty()) detail = "Prints in " + quoted(more) + ", which " + called + " does not.";
  if (!gone.empty()) {
    detail += std::string(detail.empty() ? "" : " ") + "Does not print in " + quoted(gone) +
              ", as " + called + " does.";
  }
  if (gone.empty()) return Said{"A spot color more", " pages have a spot color more", detail};
  if (more.empty()) return Said{"A spot color is gone", " pages lack a spot color", detail};
  return Said{"The spot colors differ", " pages have other spot colors", detail};
}

using Saying = std::optional<Said> (*)(const std::string&, const PdfPage&, const PdfPage&);
constexpr std::pair<const char*, Saying> kSayings[] = {
    {"size", sizeSaid}, {"size", trimSaid}, {"size", bleedSaid}, {"spots", inksSaid}};

void addSheets(const Pair& pair, std::vector<Finding>& findings) {
  for (const auto& [kind, say] : kSayings) {
    const auto told = [&](const PdfPage& now, const PdfPage& then) {
      return say(pair.called, now, then);
    };
    for (const auto& [run, said] : alike(pair, told)) {
      findings.push_back(finding(pair, run.first, kind, said->severity,
                                 one(run, said->title, said->many),
                                 run.count == 1 ? said->detail : named(run) + ". " + said->detail));
    }
  }
}

void addMoved(const Pair& pair, std::vector<Finding>& findings) {
  for (std::size_t i = 0; i < pair.partners.size();) {
    if (!pair.partners[i] || !pair.partners[i]->moved) {
      ++i;
      continue;
    }
    Run run{i, 1};
    const Run from{pair.partners[i]->page, 1};
    const auto goesOn = [&](std::size_t next) {
      return next < pair.partners.size() && pair.partners[next] && pair.partners[next]->moved &&
             pair.partners[next]->page == from.first + run.count;
    };
    while (goesOn(i + run.count)) ++run.count;
    findings.push_back(finding(pair, i, "extra_page", "medium",
                               one(run, "The page stands elsewhere", " pages stand elsewhere"),
                               named(run) + " of the proof " + (run.count == 1 ? "is " : "are ") +
                                   named({from.first, run.count}, false) + " of " + pair.called +
                                   "."));
    i += run.count;
  }
}

bool fontsTold(const PdfPage& page) {
  return std::ranges::any_of(page.words, [](const PdfWord& word) { return !word.font.isEmpty(); });
}

}  // namespace

std::vector<Finding> sheetFindings(const Pair& pair) {
  std::vector<Finding> findings;
  if (pair.proof.empty()) return findings;
  for (const Run& run : runsOf(withoutPartner(pair.partners, pair.reference.size()))) {
    findings.push_back(missing(pair, run));
  }
  std::vector<std::size_t> more;
  for (std::size_t i = 0; i < pair.partners.size(); ++i) {
    if (pair.partners[i]) continue;
    if (auto flowed = flowedFinding(pair, i)) {
      findings.push_back(*std::move(flowed));
    } else {
      more.push_back(i);
    }
  }
  for (const Run& run : runsOf(more)) findings.push_back(extra(pair, run));
  addMoved(pair, findings);
  addSheets(pair, findings);
  std::ranges::stable_sort(findings, {}, &Finding::page);
  return findings;
}

std::vector<Finding> passFindings(const Pair& pair, const std::vector<Finding>& findings) {
  std::set<Int> told;
  for (const Finding& finding : findings) {
    if (isReal(finding)) told.insert(finding.page);
  }
  std::vector<Finding> passes;
  for (std::size_t i = 0; i < std::min(pair.proof.size(), pair.partners.size()); ++i) {
    const auto& partner = pair.partners[i];
    // What a run of pages has in common is told at the first of them and holds for all.
    if (!partner || partner->moved || told.contains(static_cast<Int>(i))) continue;
    const PdfPage& now = pair.proof[i];
    const PdfPage& then = pair.reference[partner->page];
    const auto differs = [&](const auto& saying) {
      return saying.second(pair.called, now, then).has_value();
    };
    if (std::ranges::any_of(kSayings, differs)) continue;
    const bool words = !now.words.empty() && !then.words.empty();
    const bool fonts = words && fontsTold(now) && fontsTold(then);
    const bool inks = !now.inks.empty();
    Finding pass = finding(pair, i, "pass", "low", "Nothing differs", {});
    pass.detail = std::string(fonts   ? "Words, line breaks, fonts, art"
                              : words ? "Words, line breaks, art"
                                      : "Art") +
                  (inks ? ", spot colors" : "") + " and size are as in " + pair.called + ".";
    pass.state = "pass";
    passes.push_back(std::move(pass));
  }
  return passes;
}

}  // namespace vellix::demo
