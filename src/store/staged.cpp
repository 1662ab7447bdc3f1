#include "store/staged.hpp"

namespace vellix {

void Store::stage(Staged staged) {
  signedIn.set(staged.sample.has_value());
  if (staged.sample) {
    board.set(std::move(staged.sample->board));
    details.set(std::move(staged.sample->details));
  }
  lastOK.set(staged.lastOK);
  selection.set(std::move(staged.selection));
  page.set(std::move(staged.page));
  focus.set(std::move(staged.focus));
  draft.set(std::move(staged.draft));
  if (staged.zoom) zoom.set(*staged.zoom);
  mode.set(staged.mode);
  showActivity.set(staged.showActivity);
  notesDrawer.set(staged.notesDrawer);
  sideTab.set(std::move(staged.sideTab));
  profile.set(std::move(staged.profile));
  stats.set(std::move(staged.stats));
  problem.set(std::move(staged.problem));
  toast.set(std::move(staged.toast));
}

}  // namespace vellix
