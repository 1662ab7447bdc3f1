#include "shell/sign_in_screen.hpp"

#include "gateway/build_info.hpp"

namespace vellix {

SignInView signInView(bool working, bool waiting) {
  if (!working) return {.button = "Sign in with Google"};
  return {.working = true,
          .waiting = waiting,
          .button = "Opening Google…",
          .note = "Google opens on its own page. Sign in with your @" +
                  std::string{build::kAllowedMailDomain} + " account there."};
}

SignInScreen::SignInScreen(Store& store, WaitingBrowser& browser, MainLoop& loop)
    : changes(loop),
      store_(store),
      browser_(browser),
      onWaiting_(browser.changes.observe(1, [this] { changes.note(1); })),
      // A sign-in ends with its first board, which may be long in coming. Somebody who signs out
      // before need not wait for it.
      onSignedIn_(store.changes.observe(Store::kSignedIn, [this] { working_.set(false); })) {}

void SignInScreen::press() {
  if (working_() || store_.signedIn()) return;
  working_.set(true);
  tasks_.start(signIn(++run_));
}

Task<> SignInScreen::signIn(std::uint64_t run) {
  auto signingIn = store_.signIn();
  co_await std::move(signingIn);
  if (run == run_) working_.set(false);
}

}  // namespace vellix
