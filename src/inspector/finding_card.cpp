#include "inspector/finding_card.hpp"

#include <algorithm>

#include "notes/note_numbers.hpp"
#include "records/finding_kinds.hpp"
#include "records/finding_words.hpp"
#include "records/friendly_time.hpp"
#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

bool hasPlace(const Finding& finding) { return finding.box && finding.box->size() >= 4; }

// What was decided, with as much of who and when as is known.
std::string decidedLine(const Store& store, const Finding& finding, Moment now,
                        const Calendar& calendar) {
  std::string line = decisionWord(finding.state);
  if (hasWords(finding.state_by)) line += " · " + displayName(store, finding.state_by);
  if (finding.state_at) line += " · " + friendlyTime(momentOf(*finding.state_at), now, calendar);
  return line;
}

std::vector<WordingView> wordingsOf(const Finding& finding, const FileItem& file) {
  if (!hasWords(finding.before) && !hasWords(finding.after)) return {};
  return {{roleLabel(finding.against), finding.before.value_or("")},
          {supplierOf(file) + " file", finding.after.value_or("")}};
}

std::vector<NoteRowView> notesOn(const Store& store, const FileDetail& detail,
                                 const Finding& finding, Moment now, const Calendar& calendar) {
  std::vector<NoteRowView> rows;
  // Most findings have none.
  std::vector<Int> numbers;
  std::string room;
  for (std::size_t i = 0; i < detail.comments.size(); ++i) {
    const Note& note = detail.comments[i];
    if (note.finding_id != finding.id) continue;
    if (numbers.empty()) {
      numbers = noteNumbers(detail);
      room = numberRoom(detail, finding.page);
    }
    const Int number = note.page == finding.page ? numbers[i] : 0;
    rows.push_back(noteRow(store, note, number, now, calendar));
    rows.back().digits = room;
  }
  return rows;
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

FindingCardView findingCard(const Store& store, const FileDetail& detail, const Finding& finding,
                            Moment now, const Calendar& calendar) {
  const bool decided = finding.state != "open";
  auto notes = notesOn(store, detail, finding, now, calendar);
  const std::string noteCount = notes.empty() ? "" : std::to_string(notes.size());
  const std::string line = decided ? decidedLine(store, finding, now, calendar) : std::string{};
  return {
      .id = finding.id,
      .caption = cardCaption(finding),
      .title = finding.title,
      .detail = wordsOf(finding.detail),
      .wordings = wordingsOf(finding, detail.file),
      .decision = finding.state,
      .triage = !isPassed(finding),
      .issue = finding.state == "issue",
      .fine = finding.state == "fine",
      .busy = store.busy().contains(finding.id),
      .noteable = hasPlace(finding),
      .selectable = finding.box.has_value(),
      .selected = store.focus() == finding.id,
      .compact = isPassed(finding),
      .folds = store.prefs.foldDecided() && decided && !isPassed(finding),
      .decided = hasWords(finding.state_by) ? line : std::string{},
      .foldedIcon =
          finding.state == "issue" ? "exclamationmark.triangle.fill" : "checkmark.circle.fill",
      .foldedTone = finding.state == "issue" ? "red" : "green",
      .foldedHelp = decided ? line + ". Click to open." : std::string{},
      .notes = std::move(notes),
      .noteCount = noteCount,
  };
}

void pressRealIssue(Store& store, const std::string& id) { toggleState(store, id, "issue"); }
void pressFine(Store& store, const std::string& id) { toggleState(store, id, "fine"); }

void pressNote(Store& store, const std::string& id) {
  const FileItem* file = store.currentFile();
  const Finding* finding = findingOf(store, id);
  if (!file || !finding || !hasPlace(*finding)) return;
  const auto& box = *finding->box;
  store.beginDraft({.fileID = file->id,
                    .page = finding->page,
                    .side = "supplier",
                    .x = box[0],
                    .y = box[1],
                    .w = box[2],
                    .h = box[3],
                    .findingID = finding->id});
}

void pressCard(Store& store, const std::string& id) {
  const Finding* finding = findingOf(store, id);
  if (finding && finding->box) store.toggleFocus(id);
}

}  // namespace vellix
