#include "shell/root_view.hpp"

namespace vellix {

RootViewValue rootView(const Store& store) {
  RootViewValue view{.signedIn = store.signedIn()};
  view.offline = store.problem() && store.board();
  view.problem = store.problem().value_or("");
  if (store.selection().size() >= 2) {
    view.content = "multi";
  } else if (const FileItem* file = store.currentFile()) {
    view.content = "file";
    view.file = file->id;
  } else if (store.board()) {
    view.content = "empty";
    const bool any = !store.board()->files.empty();
    view.headline = any ? "Pick a file." : "Nothing to review yet.";
    view.line = any ? "Pick one on the left to compare it with our files."
                    : "Press Sync. Claude on the Mac mini checks supplier mail for new proofs.";
  } else {
    view.content = "loading";
    view.line = "Loading the board…";
  }
  // Over all of them, each of which is as it was behind it.
  if (store.profile()) {
    view.content = "profile";
    view.person = *store.profile();
  }
  return view;
}

double sidebarWidth(double windowWidth) {
  if (windowWidth < 980) return 236;
  return windowWidth < 1280 ? 260 : 284;
}

ToastShown toastShown(const Store& store) {
  const auto& toast = store.toast();
  if (!toast) return {};
  return {.id = std::to_string(toast->id),
          .text = toast->text,
          .undoLabel = toast->undo ? toast->undoLabel.value_or("") : std::string{}};
}

}  // namespace vellix
