#include "shell/sign_in_screen.hpp"

#include <algorithm>

#include "gateway/build_info.hpp"
#include "gateway/url.hpp"
#include "pieces/shown_text.hpp"

namespace vellix {
namespace {

constexpr int kMostOfAnAddress = 80;  // in characters

// Longer than the pause between two keys of somebody who types.
constexpr Milliseconds kRest{700};

// One line of it.
std::string shownOf(std::string text) {
  std::ranges::replace_if(text, [](char c) { return c >= 0 && c < 0x20; }, ' ');
  return shownTo(text, kMostOfAnAddress);
}

}  // namespace

SignInView signInView(bool working, bool waiting) {
  if (!working) return {.button = "Sign in with Google"};
  return {.working = true,
          .waiting = waiting,
          .button = "Opening Google…",
          .note = "Google opens on its own page. Sign in with your @" +
                  std::string{build::kAllowedMailDomain} + " account there."};
}

std::string serviceNote(std::string unusable, std::string_view used) {
  const std::string uses = "so Vellix uses " + std::string{used} + ".";
  if (unusable.find_first_not_of(" \t") == std::string::npos) return "ServerURL is blank, " + uses;
  return "ServerURL “" + shownOf(std::move(unusable)) + "” is not a full web address, " + uses +
         " Write it in full, like https://proofs.example.";
}

SignInScreen::SignInScreen(Store& store, const API& api, WaitingBrowser& browser, MainLoop& loop)
    : changes(loop),
      store_(store),
      api_(api),
      browser_(browser),
      loop_(loop),
      onWaiting_(browser.changes.observe(1, [this] { changes.note(1); })),
      onSignedIn_(store.changes.observe(Store::kSignedIn, [this] { follow(); })) {}

void SignInScreen::follow() {
  // A sign-in ends with its first board, which may be long in coming. Somebody who signs out before
  // need not wait for it.
  working_.set(false);
  const bool comes = !store_.signedIn();
  sudden_.set(comes);
  resting_.set(comes);
  if (comes) rest();
}

void SignInScreen::touch() {
  if (resting_()) rest();
}

void SignInScreen::rest() { tasks_.start(wake(++rest_)); }

Task<> SignInScreen::wake(std::uint64_t rest) {
  const auto pause = loop_.sleep(kRest, {});
  co_await pause;
  if (rest == rest_) resting_.set(false);
}

SignInView SignInScreen::view() const {
  SignInView view = signInView(working_(), browser_.waiting());
  view.sudden = sudden_();
  view.resting = resting_();
  if (auto unusable = api_.unusableServer()) {
    view.service = serviceNote(std::move(*unusable), parseUrl(api_.base())->host);
  }
  return view;
}

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
