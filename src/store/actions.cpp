// The wrapper that most actions on the service run through.
#include "store/store.hpp"

namespace vellix {

void Store::action(std::string key, std::optional<std::string> ok, Work work) {
  setBusy(key, true);
  spawn(runAction(std::move(key), std::move(ok), std::move(work)));
}

Task<> Store::runAction(std::string key, std::optional<std::string> ok, Work work) {
  const auto session = session_;
  auto working = work();
  const auto outcome = co_await std::move(working);
  if (outcome) {
    if (ok) toast.set(Toast{*ok});
    // Without a tag the answer is the whole board, also when the service's tag has not moved yet.
    etag.reset();
    auto poll = refresh();
    co_await std::move(poll);
  } else if (outcome.error().kind == Failure::Kind::signedOut) {
    if (session == session_) signOut(true);
  } else {
    toast.set(Toast{outcome.error().description().value_or("That didn't go through. Try again.")});
  }
  setBusy(key, false);
}

Task<> Store::reloadCurrentDetail() {
  if (const FileItem* file = currentFile()) {
    auto load = loadDetail(*file, true);
    co_await std::move(load);
  }
}

}  // namespace vellix
