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

NotesOfFindings::NotesOfFindings(const FileDetail& detail)
    : detail_(detail), numbers_(noteNumbers(detail)) {
  for (std::size_t i = 0; i < detail.comments.size(); ++i) {
    if (const auto& finding = detail.comments[i].finding_id) places_[*finding].push_back(i);
  }
}

std::vector<NoteRowView> NotesOfFindings::on(const Finding& finding, const Store& store, Moment now,
                                             const Calendar& calendar) const {
  std::vector<NoteRowView> rows;
  const auto found = places_.find(finding.id);
  if (found == places_.end()) return rows;
  const std::string room = numberRoom(detail_, finding.page);
  for (const std::size_t i : found->second) {
    const Note& note = detail_.comments[i];
    const Int number = note.page == finding.page ? numbers_[i] : 0;
    rows.push_back(noteRow(store, note, number, now, calendar));
    rows.back().digits = room;
  }
  return rows;
}

FindingCardView findingCard(const Store& store, const FileItem& file, const NotesOfFindings& notes,
                            const Finding& finding, Moment now, const Calendar& calendar) {
  const bool decided = finding.state != "open";
  auto rows = notes.on(finding, store, now, calendar);
  const std::string noteCount = rows.empty() ? "" : std::to_string(rows.size());
  const std::string line = decided ? decidedLine(store, finding, now, calendar) : std::string{};
  return {
      .id = finding.id,
      .caption = cardCaption(finding),
      .title = finding.title,
      .detail = wordsOf(finding.detail),
      .wordings = wordingsOf(finding, file),
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
      .notes = std::move(rows),
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
