// The findings of the page on show: which ones, in which order, and what is said of each.
#pragma once

#include <string>
#include <vector>

#include "platform/ports/calendar.hpp"
#include "store/store.hpp"

namespace vellix {

// The two wordings of a finding. A side without words says so, which is a finding in itself.
struct WordingView {
  std::string caption;
  std::string text;  // empty for none
  bool operator==(const WordingView&) const = default;
};
BOOST_DESCRIBE_STRUCT(WordingView, (), (caption, text))

struct FindingCardView {
  std::string id;
  std::string caption;
  std::string title;
  std::string detail;
  std::vector<WordingView> wordings;  // before and after, or none
  std::string decision;               // the state: "open", "issue", "fine"
  bool issue = false;
  bool fine = false;
  bool busy = false;
  bool selectable = false;  // it has a box to go to
  bool selected = false;
  bool folds = false;   // decided, and decided ones fold
  std::string decided;  // "{Real issue or Fine} · {name} · {when}"
  std::string foldedIcon;
  std::string foldedTone;
  std::string foldedHelp;
  bool operator==(const FindingCardView&) const = default;
};
BOOST_DESCRIBE_STRUCT(FindingCardView, (),
                      (id, caption, title, detail, wordings, decision, issue, fine, busy,
                       selectable, selected, folds, decided, foldedIcon, foldedTone, foldedHelp))

struct OtherPageView {
  Int page = 0;  // 0-based
  std::string name;
  std::string count;
  bool operator==(const OtherPageView&) const = default;
};
BOOST_DESCRIBE_STRUCT(OtherPageView, (), (page, name, count))

struct FindingsHead {
  std::string file;  // id of the ticket
  std::string title;
  std::string found;
  std::string notice;  // of a page without live text
  std::string calm;    // said in place of findings
  std::string calmReason;
  bool operator==(const FindingsHead&) const = default;
};
BOOST_DESCRIBE_STRUCT(FindingsHead, (), (file, title, found, notice, calm, calmReason))

struct FindingsPanelView {
  FindingsHead head;
  std::vector<FindingCardView> cards;
  std::vector<OtherPageView> others;
};

// The references that count here: any that a finding of the page may point to.
std::vector<std::string> comparedRoles(const Store& store, const FileDetail& detail,
                                       const Page* page);
FindingsPanelView findingsPanel(const Store& store, const FileDetail& detail, Moment now,
                                const Calendar& calendar);

// What the two triage buttons and a press on the card do; the finding is looked up by its id.
void pressRealIssue(Store& store, const std::string& id);
void pressFine(Store& store, const std::string& id);
void pressCard(Store& store, const std::string& id);

}  // namespace vellix
