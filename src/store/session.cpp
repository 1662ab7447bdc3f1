// Coming in and going out.
#include "gateway/url.hpp"
#include "store/store.hpp"

namespace vellix {

Task<> Store::signIn() {
  auto run = signIn_.run();
  const auto me = co_await std::move(run);
  if (me) {
    auto session = beginSession();
    co_await std::move(session);
  } else if (me.error().kind != Failure::Kind::cancelled) {
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
  auto exchange = signIn_.finish(std::move(url));
  const auto me = co_await std::move(exchange);
  if (!me) {
    toast.set(Toast{me.error().description().value_or("Sign-in didn't finish.")});
    co_return;
  }
  auto session = beginSession();
  co_await std::move(session);
}

// Whoever is signed in waits for no browser any more, and what the token before it still brings is
// not for this session.
Task<> Store::beginSession() {
  ++session_;
  signIn_.cancel();
  signedIn.set(true);
  etag.reset();
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

// What is left alone here is left on purpose: selection, pages, tags and figures serve the next
// session, and events already seen stay seen.
void Store::signOut(bool expired) {
  if (!expired) spawn(logOut());
  ++session_;
  api_.setToken(std::nullopt);
  signedIn.set(false);
  board.set(std::nullopt);
  details.set({});
  doubted_.clear();
  etag.reset();
  if (loop_) loop_->request_stop();
  loop_.reset();
  if (expired) toast.set(Toast{*Failure::signedOut().description()});
}

// Begins after the sign-out has ended, so the call carries no token; its outcome is nobody's
// business.
Task<> Store::logOut() {
  auto call = api_.post("api/logout", NoBody{});
  co_await std::move(call);
}

}  // namespace vellix
