// The refresh loop, the program's one main loop, and one poll of the board.
#include <algorithm>

#include "store/store.hpp"

namespace vellix {
namespace {

constexpr Milliseconds kJobPause{3'000};
constexpr Milliseconds kSeenPause{5'000};
constexpr Milliseconds kUnseenPause{45'000};

// Tickets that have not changed go on as they are, so that comparing and freeing them costs
// nothing.
std::function<void(BoardState&)> sharing(const std::optional<BoardState>& held) {
  return [files = held ? held->files : SharedList<FileItem>{}](BoardState& fresh) {
    fresh.files.shareWith(files);
  };
}

}  // namespace

bool Store::anyJobActive() const {
  if (!board()) return false;
  return (board()->sync && board()->sync->active()) ||
         std::ranges::any_of(board()->jobs, &Job::active);
}

void Store::startLoop() {
  if (loop_ || sample) return;
  loop_.emplace();
  spawn(runLoop(loop_->get_token()));
}

Task<> Store::runLoop(std::stop_token stop) {
  while (!stop.stop_requested()) {
    auto poll = refresh(stop);
    co_await std::move(poll);
    if (stop.stop_requested()) break;
    const auto sleep = ports_.loop.sleep(pause(), stop);
    co_await sleep;
  }
}

// Worked out once, ahead of the sleep: a window coming to the front does not cut it short.
Milliseconds Store::pause() const {
  if (anyJobActive()) return kJobPause;
  return ports_.windows.seen() ? kSeenPause : kUnseenPause;
}

// A board that is unchanged has to be held: otherwise it is asked for once more, without a tag.
Task<API::Result<API::Answer<BoardState>>> Store::fetchBoard(std::stop_token stop) {
  const auto session = session_;
  API::Request request{.path = "api/state", .etag = etag, .stop = stop};
  auto ready = sharing(board());
  auto call = api_.ask<BoardState>(request, ready);
  auto answer = co_await std::move(call);
  if (session != session_ || !isUnchanged(answer) || board()) co_return answer;
  etag.reset();
  if (request.etag) {
    request.etag.reset();
    auto again = api_.ask<BoardState>(request, ready);
    answer = co_await std::move(again);
  }
  if (isUnchanged(answer) && !board()) {
    co_return std::unexpected(Failure::unreadable("no board is held"));
  }
  co_return answer;
}

Task<> Store::refresh(std::stop_token stop) {
  if (!signedIn() || sample) co_return;
  const auto session = session_;
  const Order asked = order();
  auto call = fetchBoard(stop);
  auto answer = co_await std::move(call);
  // A session that has ended took its board away on purpose, and leaves the next one in peace.
  if (session != session_ && (answer || signedIn())) co_return;
  if (!answer) {
    noteProblem(answer.error(), session);
    co_return;
  }
  if (!isUnchanged(answer)) {
    auto& fresh = answer->record;
    if (!fresh) {
      noteProblem(Failure::unreadable(fresh.error().where + ": " + fresh.error().why), session);
      co_return;
    }
    noticeNewEvents(*fresh);
    layOver(*fresh, asked);
    board.set(std::move(*fresh));
    etag = answer->response.header("etag");
    if (selection().empty()) reconcileSelection();
  }
  problem.set(std::nullopt);
  lastOK.set(ports_.loop.now());
  updateBadge();
  if (profile()) {
    auto figures = loadStats(stop);
    co_await std::move(figures);
    if (session != session_) co_return;
  }
  if (const FileItem* file = currentFile()) {
    auto load = loadDetail(*file, false, stop);
    co_await std::move(load);
  }
  if (session != session_) co_return;
  auto others = loadDoubted(stop);
  co_await std::move(others);
}

void Store::noteProblem(const Failure& failure, Session session) {
  if (failure.kind == Failure::Kind::signedOut) {
    if (session == session_) signOut(true);
  } else {
    problem.set(failure.description().value_or("Can't reach the Vellix server right now."));
    // The same trouble again is news as well: time has passed.
    changes.note(kProblem);
  }
}

Task<> Store::refreshNow(Session session) {
  if (session != session_) co_return;
  auto poll = pollWhole();
  co_await std::move(poll);
  // A session that ended has said so already.
  if (session != session_) co_return;
  refreshing.set(false);
  toast.set(Toast{problem().value_or("Up to date.")});
}

void Store::requestRefresh() {
  refreshing.set(true);
  spawn(refreshNow(session_));
}

}  // namespace vellix
