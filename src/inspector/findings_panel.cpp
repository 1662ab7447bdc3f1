#include "inspector/findings_panel.hpp"

#include <algorithm>
#include <map>

#include "records/finding_kinds.hpp"
#include "records/finding_words.hpp"
#include "store/open_page.hpp"

namespace vellix {
namespace {

constexpr std::size_t kMostOtherPages = 12;

int rankOf(const Finding& finding) {
  const int state = finding.state == "issue" ? 1 : finding.state == "fine" ? 2 : 0;
  const int severity = finding.severity == "high" ? 0 : finding.severity == "low" ? 2 : 1;
  return 10 * state + severity;
}

std::string calmReason(const std::vector<std::string>& roles) {
  if (roles.empty()) return "No file of ours was found to compare with this page.";
  std::string labels;
  for (const auto& role : roles) {
    std::string label = role == "fbc" ? "the FBC" : roleLabel(role);
    if (role != "fbc") label.front() = static_cast<char>(label.front() + ('a' - 'A'));
    labels += (labels.empty() ? "" : " and ") + label;
  }
  return "The words, breaks, fonts and art match " + labels + ".";
}

std::vector<OtherPageView> otherPages(const FileDetail& detail, Int open,
                                      const std::vector<std::string>& roles) {
  std::map<Int, Int> counted;
  for (const auto& finding : detail.findings) {
    const bool waits = finding.page != open && finding.state == "open" &&
                       finding.severity != "low" && !isPassed(finding) && counts(finding, roles);
    if (waits) ++counted[finding.page];
  }
  std::vector<OtherPageView> others;
  for (const auto& [index, count] : counted) {
    if (others.size() == kMostOtherPages) break;
    others.push_back({.page = index,
                      .name = "Page " + pageName(detail.file, index),
                      .count = std::to_string(count) + " to look at"});
  }
  return others;
}

// How many of the passed checks are edits of ours, and how many are not.
std::string passedSummary(const std::vector<FindingCardView>& passed, std::size_t edits) {
  if (passed.empty()) return {};
  const std::string n = std::to_string(passed.size());
  const bool one = passed.size() == 1;
  if (edits == passed.size()) return n + " of our " + (one ? "edit" : "edits") + " came through";
  if (edits > 0) return n + " checked and fine";
  return n + (one ? " check passed" : " checks passed");
}

}  // namespace

std::vector<std::string> comparedRoles(const Store& store, const FileDetail& detail,
                                       const Page* page) {
  std::vector<std::string> roles;
  const bool third = store.shown().contains("third");
  if (detail.versionNumber() >= 2) {
    if (third) roles = {"previous"};
  } else {
    if (store.shown().contains("submitted")) roles.push_back("submitted");
    const bool reprint = detail.file.track == "reprint";
    if (third) {
      roles.push_back(reprint ? "latest" : "fbc");
      roles.push_back(reprint ? "fbc" : "latest");
    }
  }
  std::erase_if(roles, [&](const std::string& role) {
    return !page || !page->refs || !page->refs->contains(role);
  });
  return roles;
}

FindingsPanelView findingsPanel(const Store& store, const FileDetail& detail, Moment now,
                                const Calendar& calendar) {
  const Int index = pageIndex(store, detail.file);
  const Page* page = pageAt(detail.file, index);
  const auto roles = comparedRoles(store, detail, page);
  std::vector<const Finding*> real;
  std::vector<const Finding*> passed;
  for (const auto& finding : detail.findings) {
    if (finding.page != index || !counts(finding, roles)) continue;
    if (!isPassed(finding)) {
      real.push_back(&finding);
    } else if (store.prefs.showPassed()) {
      passed.push_back(&finding);
    }
  }
  std::ranges::stable_sort(real, {}, [](const Finding* finding) { return rankOf(*finding); });

  FindingsPanelView view{.head = {.file = detail.file.id}};
  view.head.title = "Page " + pageName(detail.file, index);
  view.head.found = real.empty() ? "Matches" : std::to_string(real.size()) + " found";
  if (page && page->ocr.value_or(false)) {
    view.head.notice =
        "This page has no live text, so its words were read from the picture. Check them by eye.";
  }
  if (real.empty()) {
    view.head.calm = "Nothing different here.";
    view.head.calmReason = calmReason(roles);
  }
  const NotesOfFindings notes(detail);
  const auto cardOf = [&](const Finding* finding) {
    return findingCard(store, detail.file, notes, *finding, now, calendar);
  };
  std::ranges::transform(real, std::back_inserter(view.cards), cardOf);
  std::ranges::transform(passed, std::back_inserter(view.passed), cardOf);
  const auto edits = std::ranges::count(passed, "expected", &Finding::kind);
  view.head.passed = passedSummary(view.passed, static_cast<std::size_t>(edits));
  view.others = otherPages(detail, index, roles);
  return view;
}

}  // namespace vellix
