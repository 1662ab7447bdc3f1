#include "board/sync_card.hpp"

#include "records/words.hpp"

namespace vellix {
namespace {

SyncCardView workOf(const Job& sync) {
  SyncCardView view{.working = true, .tone = "blue", .spinning = true};
  if (sync.status == "queued") {
    view.text = "In line";
  } else if (sync.status == "running") {
    view.text = wordsOr(sync.step, "Syncing");
  } else if (sync.status == "stuck") {
    view = {.working = true,
            .text = "Mac mini not answering",
            .icon = "exclamationmark.triangle",
            .tone = "red",
            .small = true};
  } else {
    return {};
  }
  return view;
}

}  // namespace

SyncCardView syncCard(const Store& store) {
  const auto& board = store.board();
  SyncCardView view = board && board->sync ? workOf(*board->sync) : SyncCardView{};
  view.busy = store.busy().contains("sync");
  view.stopping = view.working && store.busy().contains("stop-" + board->sync->id);
  return view;
}

bool canSync(const Store& store) {
  const auto& board = store.board();
  const bool atWork = board && board->sync && board->sync->active();
  return store.signedIn() && !atWork && !store.busy().contains("sync");
}

void askForSync(Store& store) {
  if (canSync(store)) store.requestSync();
}

void stopSync(Store& store) {
  const auto& board = store.board();
  if (board && board->sync && !syncCard(store).stopping) store.stopJob(*board->sync);
}

}  // namespace vellix
