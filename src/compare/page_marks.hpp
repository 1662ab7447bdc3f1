// What lies on the panes of a page: findings' rectangles, notes, and the note being written.
#pragma once

#include <string>
#include <vector>

#include "records/geometry.hpp"
#include "store/store.hpp"

namespace vellix {

// Places are fractions of the page.
struct BoxMarkView {
  std::string key;  // of this rectangle, within its pane
  std::string finding;
  Box box;
  std::string colour;  // "accent", "green" or "muted", as it is on paper
  std::string line;    // "solid", or where nothing is left to decide "dashed" or "dotted"
  bool selected = false;
  std::string help;
  std::string name;
  bool operator==(const BoxMarkView&) const = default;
};
BOOST_DESCRIBE_STRUCT(BoxMarkView, (), (key, finding, box, colour, line, selected, help, name))

struct NoteMarkView {
  std::string key;
  Int number = 0;
  Box box;
  bool area = false;  // else a point
  std::string help;
  std::string name;
  bool operator==(const NoteMarkView&) const = default;
};
BOOST_DESCRIBE_STRUCT(NoteMarkView, (), (key, number, box, area, help, name))

struct DraftMarkView {
  bool here = false;
  Box box;
  bool area = false;
  std::string name;
  bool operator==(const DraftMarkView&) const = default;
};
BOOST_DESCRIBE_STRUCT(DraftMarkView, (), (here, box, area, name))

struct PaneMarks {
  std::vector<BoxMarkView> boxes;
  std::vector<NoteMarkView> notes;
  DraftMarkView draft;
};

// "supplier", or "ours" for a pane with a role.
std::string sideOf(const std::optional<std::string>& role);
// The marks of one pane of a page; `roles` are those of all panes that are built.
PaneMarks marksOf(const Store& store, const FileDetail& detail, const Page& page, Int index,
                  const std::optional<std::string>& role, const std::vector<std::string>& roles);

// Begins a note on the page that is open. Spots and size are those of the pane's picture.
void beginNote(Store& store, const std::string& side, Spot from, Spot to, Extent picture);

}  // namespace vellix
