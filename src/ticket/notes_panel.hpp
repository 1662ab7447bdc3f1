// The notes panel: beside the page, or over it.
#pragma once

#include <string>

#include "store/store.hpp"

namespace vellix {

// The notes panel beside the page: known before the ticket's detail is here.
struct NotesPanelView {
  bool open = true;
  bool floats = false;  // over the page, where there is no room beside it
  double width = 0;     // logical pixels
  std::string help;     // of its button
  bool operator==(const NotesPanelView&) const = default;
};
BOOST_DESCRIBE_STRUCT(NotesPanelView, (), (open, floats, width, help))

// `width` is that of the view which the panel stands in, in logical pixels.
bool notesFloat(double width);
NotesPanelView notesPanel(const Store& store, double width);

}  // namespace vellix
