#include "ticket/notes_panel.hpp"

#include <algorithm>

#include "pieces/written_keys.hpp"

namespace vellix {

bool notesFloat(double width) { return width < 900; }

NotesPanelView notesPanel(const Store& store, double width) {
  NotesPanelView view;
  view.floats = store.notesFloat();
  view.open = store.notesOpen();
  view.width = view.floats ? std::min(width - 40, 320.0) : width < 1100 ? 290 : 330;
  view.help = writtenKeys(view.open ? "Hide the notes panel (⌥⌘I)" : "Show the notes panel (⌥⌘I)");
  return view;
}

}  // namespace vellix
