// What the sign-in screen shows and does.
#pragma once

#include <cstdint>
#include <string>

#include "shell/waiting_browser.hpp"
#include "store/store.hpp"

namespace vellix {

struct SignInView {
  bool working = false;  // the button takes no presses
  bool waiting = false;  // for the browser: the sheet stands
  std::string button;
  std::string note;  // under the button; empty for none
  bool operator==(const SignInView&) const = default;
};
BOOST_DESCRIBE_STRUCT(SignInView, (), (working, waiting, button, note))

SignInView signInView(bool working, bool waiting);

// Main thread only.
class SignInScreen {
 public:
  // What is passed must outlive the screen.
  SignInScreen(Store& store, WaitingBrowser& browser, MainLoop& loop);

  Changes changes;  // of the view

  SignInView view() const { return signInView(working_(), browser_.waiting()); }
  void press();  // starts a sign-in; while one is under way it does nothing
  void cancel() { browser_.cancel(); }
  void openAgain() { browser_.openAgain(); }

 private:
  Task<> signIn(std::uint64_t run);

  Store& store_;
  WaitingBrowser& browser_;
  Published<bool> working_{changes, 1, false};
  std::uint64_t run_ = 0;
  Changes::Subscription onWaiting_;
  Changes::Subscription onSignedIn_;
  TaskScope tasks_;
};

}  // namespace vellix
