// A note as it is read.
#pragma once

#include <string>
#include <vector>

#include "notes/note_tags.hpp"
#include "pieces/avatar.hpp"
#include "platform/ports/calendar.hpp"
#include "store/store.hpp"

namespace vellix {

struct NoteRowView {
  std::string id;
  Int number = 0;            // 0 for none
  std::string digits = "0";  // as many as it holds room for, with the rest of its page
  AvatarView who;
  std::string name;
  std::string when;
  std::string text;
  bool resolved = false;
  std::string resolveHelp;
  bool mine = false;      // may be deleted
  bool editable = false;  // mine, and not cut short where it is shown
  bool tagged = false;    // tags the person signed in
  std::vector<TagChipView> tags;
  bool busy = false;   // is being changed
  std::string spoken;  // what a screen reader calls it
  bool operator==(const NoteRowView&) const = default;
};
BOOST_DESCRIBE_STRUCT(NoteRowView, (),
                      (id, number, digits, who, name, when, text, resolved, resolveHelp, mine,
                       editable, tagged, tags, busy, spoken))

// `number` is 0 for a note without one.
NoteRowView noteRow(const Store& store, const Note& note, Int number, Moment now,
                    const Calendar& calendar);
// Those of a page that hang on no finding, as the service orders them.
std::vector<NoteRowView> pageNotes(const Store& store, const FileDetail& detail, Int page,
                                   Moment now, const Calendar& calendar);

// What is asked of a note of the ticket on show, by its id. While one is being changed only a new
// text is taken, which would be lost.
void toggleResolved(Store& store, const std::string& id);
void saveNote(Store& store, const std::string& id, std::string text);
void removeNote(Store& store, const std::string& id);

}  // namespace vellix
