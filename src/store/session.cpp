// Coming in and going out.
#include "gateway/url.hpp"
#include "store/store.hpp"

namespace vellix {

Task<> Store::signIn() {
  const auto session = session_;
  auto run = signIn_.run();
  const auto me = co_await std::move(run);
  if (me) {
    auto begun = beginSession();
    co_await std::move(begun);
  } else if (session == session_ && me.error().kind != Failure::Kind::cancelled) {
    toast.set(Toast{me.error().description().value_or("Sign-in didn't finish. Try again.")});
  }
}

void Store::open(std::string url) {
  const auto parts = parseUrl(url);
  if (!parts || parts->scheme != "sorel" || parts->host != "signed-in") return;
  // A sign-in that waits for its browser goes on with it; otherwise the URL is a sign-in itself.
  if (!signIn_.arrived(url)) spawn(completeSignIn(std::move(url)));
}

Task<> Store::completeSignIn(std::string url) {
  const auto session = session_;
  auto exchange = signIn_.finish(std::move(url));
  const auto me = co_await std::move(exchange);
  if (me) {
    auto begun = beginSession();
    co_await std::move(begun);
  } else if (session == session_) {
    toast.set(Toast{me.error().description().value_or("Sign-in didn't finish.")});
  }
}

// Whoever is signed in waits for no browser any more, and what the token before it still brings is
// not for this session.
Task<> Store::beginSession() {
  endSession();
  signIn_.cancel();
  signedIn.set(true);
  auto poll = refresh();
  co_await std::move(poll);
  // The service may have ended the session again with its first answer.
  if (signedIn()) startLoop();
}

void Store::resume() {
  if (signedIn() || !api_.token()) return;
  signIn_.cancel();
  signedIn.set(true);
  startLoop();
}

// Somebody who goes does not come back by a link that was opened before. A session that ended by
// itself may be followed by that one.
void Store::signOut(bool expired) {
  if (!expired) {
    signIn_.callOff();
    spawn(logOut());
  }
  api_.setToken(std::nullopt);
  signedIn.set(false);
  endSession();
  if (loop_) loop_->request_stop();
  loop_.reset();
  if (expired) toast.set(Toast{*Failure::signedOut().description()});
}

// What a session was shown, asked for and began to write ends with it. What is left alone here is
// left on purpose: selection, pages, tags and figures serve the next session, and events already
// seen stay seen.
void Store::endSession() {
  ++session_;
  board.set(std::nullopt);
  details.set({});
  doubted_.clear();
  decided_.clear();
  reviewed_.clear();
  etag.reset();
  problem.set(std::nullopt);
  lastOK.set(std::nullopt);
  refreshing.set(false);
  endDraft();
  updateBadge();
  // There is no way back any more.
  if (toast() && toast()->undo) toast.set(std::nullopt);
}

// Begins after the sign-out has ended, so the call carries no token; its outcome is nobody's
// business.
Task<> Store::logOut() {
  auto call = api_.post("api/logout", NoBody{});
  co_await std::move(call);
}

}  // namespace vellix
