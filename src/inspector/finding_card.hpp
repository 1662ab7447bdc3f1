// What is said of one finding beside the page, and what its card does.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "notes/note_row.hpp"
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
  bool triage = false;                // there is something to decide
  bool issue = false;
  bool fine = false;
  bool busy = false;        // its decision is on its way
  bool noteable = false;    // it has a place that a note can stand on
  bool selectable = false;  // it has a box to go to
  bool selected = false;
  bool compact = false;  // one line unless it is selected
  bool folds = false;    // decided, and decided ones fold
  std::string decided;   // "{Real issue or Fine} · {name} · {when}"
  std::string foldedIcon;
  std::string foldedTone;
  std::string foldedHelp;
  std::vector<NoteRowView> notes;  // that hang on it
  std::string noteCount;           // empty for none
  bool operator==(const FindingCardView&) const = default;
};
BOOST_DESCRIBE_STRUCT(FindingCardView, (),
                      (id, caption, title, detail, wordings, decision, triage, issue, fine, busy,
                       noteable, selectable, selected, compact, folds, decided, foldedIcon,
                       foldedTone, foldedHelp, notes, noteCount))

// A ticket's notes by the findings that they hang on, looked up once for all of its cards.
class NotesOfFindings {
 public:
  // Must not outlive the detail.
  explicit NotesOfFindings(const FileDetail& detail);
  std::vector<NoteRowView> on(const Finding& finding, const Store& store, Moment now,
                              const Calendar& calendar) const;

 private:
  const FileDetail& detail_;
  std::vector<Int> numbers_;
  std::unordered_map<std::string_view, std::vector<std::size_t>> places_;
};

// `file` is the ticket that the finding is of, and `notes` are that ticket's.
FindingCardView findingCard(const Store& store, const FileItem& file, const NotesOfFindings& notes,
                            const Finding& finding, Moment now, const Calendar& calendar);

// What the triage buttons, the note button and a press on the card do; the finding is looked up by
// its id.
void pressRealIssue(Store& store, const std::string& id);
void pressFine(Store& store, const std::string& id);
void pressNote(Store& store, const std::string& id);
void pressCard(Store& store, const std::string& id);

}  // namespace vellix
