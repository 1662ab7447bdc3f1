#include "notes/note_row.hpp"

#include <algorithm>

#include "notes/note_numbers.hpp"
#include "pieces/shown_text.hpp"
#include "records/friendly_time.hpp"
#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

bool isBusy(const Store& store, const std::string& id) { return store.busy().contains("n-" + id); }

const Note* noteOf(const Store& store, const std::string& id) {
  const FileDetail* detail = store.currentDetail();
  if (!detail) return nullptr;
  const auto found = std::ranges::find(detail->comments, id, &Note::id);
  return found == detail->comments.end() ? nullptr : &*found;
}

}  // namespace

NoteRowView noteRow(const Store& store, const Note& note, Int number, Moment now,
                    const Calendar& calendar) {
  const std::string me = store.board() ? store.board()->me.email : std::string{};
  const auto tags = note.tags.value_or(std::vector<std::string>{});
  NoteRowView row{.id = note.id,
                  .number = number,
                  .who = avatarOf(note.by, store),
                  .name = displayName(store, note.by),
                  .when = friendlyTime(momentOf(note.at), now, calendar),
                  .text = note.text,
                  .resolved = note.isResolved(),
                  .resolveHelp = "Resolve",
                  .mine = !me.empty() && note.by == me,
                  .tagged = !me.empty() && std::ranges::find(tags, me) != tags.end(),
                  .tags = tagChips(store, tags),
                  .busy = isBusy(store, note.id)};
  row.editable = row.mine && shownWhole(note.text);
  if (row.resolved) {
    row.resolveHelp = "Resolved by " + displayName(store, note.resolved_by) + ". Reopen it.";
  }
  row.spoken = row.resolved ? "Resolved note" : "Note";
  if (number > 0) row.spoken += " " + std::to_string(number);
  row.spoken.append(", ").append(row.name).append(", ").append(row.when);
  return row;
}

std::vector<NoteRowView> pageNotes(const Store& store, const FileDetail& detail, Int page,
                                   Moment now, const Calendar& calendar) {
  std::vector<NoteRowView> rows;
  const auto numbers = noteNumbers(detail);
  const std::string room = numberRoom(detail, page);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const Note& note = detail.comments[i];
    if (note.page != page || hasWords(note.finding_id)) continue;
    rows.push_back(noteRow(store, note, numbers[i], now, calendar));
    rows.back().digits = room;
  }
  return rows;
}

void toggleResolved(Store& store, const std::string& id) {
  const Note* note = noteOf(store, id);
  if (note && !isBusy(store, id)) {
    store.updateNote(*note, std::nullopt, !note->isResolved());
  }
}

void saveNote(Store& store, const std::string& id, std::string text) {
  if (const Note* note = noteOf(store, id)) {
    store.updateNote(*note, std::move(text), std::nullopt);
  }
}

void removeNote(Store& store, const std::string& id) {
  const Note* note = noteOf(store, id);
  if (note && !isBusy(store, id)) {
    store.updateNote(*note, std::nullopt, std::nullopt, true);
  }
}

}  // namespace vellix
