// What is open beside the page and over it.
#include "store/store.hpp"

namespace vellix {

bool Store::notesOpen() const { return notesFloat() ? notesDrawer() : prefs.showNotes(); }

void Store::toggleNotes() {
  if (notesFloat()) {
    notesDrawer.set(!notesDrawer());
  } else {
    prefs.showNotes.set(!prefs.showNotes());
  }
}

void Store::setNotesFloat(bool flag) { notesFloat.set(flag); }

void Store::setShowActivity(bool flag) { showActivity.set(flag); }

void Store::setSideTab(std::string tab) { sideTab.set(std::move(tab)); }

void Store::dismissToast(std::uint64_t id) {
  if (toast() && toast()->id == id) toast.set(std::nullopt);
}

void Store::undoToast() {
  if (!toast()) return;
  const Toast taken = *toast();
  if (taken.undo) taken.undo();
  dismissToast(taken.id);
}

}  // namespace vellix
