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
  bool sudden = false;   // it came under the hands of somebody at work: a blank presses nothing
  bool resting = false;  // and takes no key until these rest
  std::string button;
  std::string note;     // under the button; empty for none
  std::string service;  // which service it is, where that is not the one meant; empty otherwise
  bool operator==(const SignInView&) const = default;
};
BOOST_DESCRIBE_STRUCT(SignInView, (), (working, waiting, sudden, resting, button, note, service))

SignInView signInView(bool working, bool waiting);

// Which service is used in place of the one that this "ServerURL" was to name, and why.
std::string serviceNote(std::string unusable, std::string_view used);

// Main thread only.
class SignInScreen {
 public:
  // What is passed must outlive the screen.
  SignInScreen(Store& store, const API& api, WaitingBrowser& browser, MainLoop& loop);

  Changes changes;  // of the view

  SignInView view() const;
  void press();  // starts a sign-in; while one is under way it does nothing
  void cancel() { browser_.cancel(); }
  void openAgain() { browser_.openAgain(); }
  // A key was pressed while the screen rests, which it does the longer for it.
  void touch();

 private:
  Task<> signIn(std::uint64_t run);
  void follow();
  void rest();
  Task<> wake(std::uint64_t rest);

  Store& store_;
  const API& api_;
  WaitingBrowser& browser_;
  MainLoop& loop_;
  Published<bool> working_{changes, 1, false};
  Published<bool> sudden_{changes, 1, false};
  Published<bool> resting_{changes, 1, false};
  std::uint64_t run_ = 0;
  std::uint64_t rest_ = 0;
  Changes::Subscription onWaiting_;
  Changes::Subscription onSignedIn_;
  TaskScope tasks_;
};

}  // namespace vellix
