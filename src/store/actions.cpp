// The wrapper that most actions on the service run through.
#include "store/store.hpp"

namespace vellix {

void Store::action(std::string key, std::optional<std::string> ok, Work work) {
  hold(key);
  spawn(runAction(std::move(key), std::move(ok), std::move(work), session_));
}

Task<> Store::runAction(std::string key, std::optional<std::string> ok, Work work,
                        Session session) {
  if (session == session_) {
    auto working = work();
    const auto outcome = co_await std::move(working);
    if (session != session_) {
      // Nobody is told.
    } else if (outcome) {
      if (ok) toast.set(Toast{*ok});
      auto poll = pollWhole();
      co_await std::move(poll);
    } else if (outcome.error().kind == Failure::Kind::signedOut) {
      signOut(true);
    } else {
      toast.set(
          Toast{outcome.error().description().value_or("That didn't go through. Try again.")});
    }
  }
  letGo(key, session);
}

// What the board shows `ahead` of a refusal is not the service's: its tag has to go as well, or the
// service would call it unchanged for ever.
Task<> Store::runUndoable(std::string key, Work work, Toast done, std::string failed, bool ahead,
                          Session session) {
  auto settling = settle(std::move(work), std::move(done), std::move(failed), session);
  const bool taken = co_await std::move(settling);
  if (ahead && !taken && session == session_) etag.reset();
  letGo(key, session);
}

// Says how it went, and whether the service took it. Whoever is not known any more hears it like
// any other failure: the next poll signs out.
Task<bool> Store::settle(Work work, Toast done, std::string failed, Session session) {
  if (session != session_) co_return false;
  auto working = work();
  const auto outcome = co_await std::move(working);
  if (session != session_) co_return false;
  if (!outcome) {
    toast.set(Toast{outcome.error().description().value_or(failed)});
    co_return false;
  }
  toast.set(std::move(done));
  auto poll = pollWhole();
  co_await std::move(poll);
  co_return true;
}

// Without a tag the answer is the whole board, also when the service's tag has not moved yet.
Task<> Store::pollWhole() {
  etag.reset();
  auto poll = refresh();
  co_await std::move(poll);
}

// Fetches the detail once the call went through: that of `file`, or of the ticket then on show.
Task<API::Result<Done>> Store::thenReload(Task<API::Result<Done>> call,
                                          std::optional<FileItem> file) {
  const auto session = session_;
  auto outcome = co_await std::move(call);
  if (outcome && session == session_) {
    auto reload = file ? loadDetail(*file, true) : reloadCurrentDetail();
    co_await std::move(reload);
  }
  co_return outcome;
}

std::function<void()> Store::undo(std::function<void(Store&)> work) const {
  return [weak = std::weak_ptr<Store*>{self_}, session = session_, work = std::move(work)] {
    const auto store = weak.lock();
    if (store && (*store)->session_ == session) work(**store);
  };
}

Task<> Store::reloadCurrentDetail() {
  if (const FileItem* file = currentFile()) {
    auto load = loadDetail(*file, true);
    co_await std::move(load);
  }
}

}  // namespace vellix
