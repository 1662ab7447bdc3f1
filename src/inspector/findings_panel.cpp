#include "inspector/findings_panel.hpp"

#include <algorithm>
#include <map>

#include "compare/canvas.hpp"
#include "compare/finding_words.hpp"
#include "compare/page_marks.hpp"
#include "records/friendly_time.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

constexpr std::size_t kMostOtherPages = 12;

int rankOf(const Finding& finding) {
  const int state = finding.state == "issue" ? 1 : finding.state == "fine" ? 2 : 0;
  const int severity = finding.severity == "high" ? 0 : finding.severity == "low" ? 2 : 1;
  return 10 * state + severity;
}

// What was decided, with as much of who and when as is known.
std::string decidedLine(const Store& store, const Finding& finding, Moment now,
                        const Calendar& calendar) {
  std::string line = decisionWord(finding.state);
  if (finding.state_by) line += " · " + personName(store, *finding.state_by);
  if (finding.state_at) line += " · " + friendlyTime(momentOf(*finding.state_at), now, calendar);
  return line;
}

std::vector<WordingView> wordingsOf(const Finding& finding, const FileItem& file) {
  if (!finding.before && !finding.after) return {};
  return {{roleLabel(finding.against), finding.before.value_or("")},
          {supplierOf(file) + " file", finding.after.value_or("")}};
}

FindingCardView cardOf(const Store& store, const FileItem& file, const Finding& finding, Moment now,
                       const Calendar& calendar) {
  const bool decided = finding.state != "open";
  const std::string line = decided ? decidedLine(store, finding, now, calendar) : std::string{};
  return {
      .id = finding.id,
      .caption = cardCaption(finding),
      .title = finding.title,
      .detail = finding.detail.value_or(""),
      .wordings = wordingsOf(finding, file),
      .decision = finding.state,
      .issue = finding.state == "issue",
      .fine = finding.state == "fine",
      .busy = store.busy().contains(finding.id),
      .selectable = finding.box.has_value(),
      .selected = store.focus() == finding.id,
      .folds = store.prefs.foldDecided() && decided,
      .decided = finding.state_by ? line : std::string{},
      .foldedIcon =
          finding.state == "issue" ? "exclamationmark.triangle.fill" : "checkmark.circle.fill",
      .foldedTone = finding.state == "issue" ? "red" : "green",
      .foldedHelp = decided ? line + ". Click to open." : std::string{},
  };
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
    const Page* page = pageAt(detail.file, index);
    others.push_back({.page = index,
                      .name = "Page " + (page ? page->name() : Page{.i = index}.name()),
                      .count = std::to_string(count) + " to look at"});
  }
  return others;
}

const Finding* findingOf(const Store& store, const std::string& id) {
  const FileDetail* detail = store.currentDetail();
  if (!detail) return nullptr;
  const auto found = std::ranges::find(detail->findings, id, &Finding::id);
  return found == detail->findings.end() ? nullptr : &*found;
}

// Pressing the state that holds is the way back to open.
void toggleState(Store& store, const std::string& id, const std::string& state) {
  if (const Finding* finding = findingOf(store, id)) {
    store.setFindingState(*finding, finding->state == state ? "open" : state);
  }
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
  for (const auto& finding : detail.findings) {
    if (finding.page == index && !isPassed(finding) && counts(finding, roles)) {
      real.push_back(&finding);
    }
  }
  std::ranges::stable_sort(real, {}, [](const Finding* finding) { return rankOf(*finding); });

  FindingsPanelView view{.head = {.file = detail.file.id}};
  view.head.title = "Page " + (page ? page->name() : Page{.i = index}.name());
  view.head.found = real.empty() ? "Matches" : std::to_string(real.size()) + " found";
  if (page && page->ocr.value_or(false)) {
    view.head.notice =
        "This page has no live text, so its words were read from the picture. Check them by eye.";
  }
  if (real.empty()) {
    view.head.calm = "Nothing different here.";
    view.head.calmReason = calmReason(roles);
  }
  for (const Finding* finding : real)
    view.cards.push_back(cardOf(store, detail.file, *finding, now, calendar));
  view.others = otherPages(detail, index, roles);
  return view;
}

void pressRealIssue(Store& store, const std::string& id) { toggleState(store, id, "issue"); }
void pressFine(Store& store, const std::string& id) { toggleState(store, id, "fine"); }

void pressCard(Store& store, const std::string& id) {
  const Finding* finding = findingOf(store, id);
  if (finding && finding->box) toggleFocus(store, id);
}

}  // namespace vellix
