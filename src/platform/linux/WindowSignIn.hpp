// The desktop has no browser session of its own: a sign-in is the window's.
#pragma once

#include "platform/ports/main_loop.hpp"
#include "platform/ports/sign_in_browser.hpp"

namespace vellix {

class WindowSignIn {
 public:
  explicit WindowSignIn(MainLoop& /*loop*/) {}
  // The browser that a sign-in goes through, given the window's own way to one.
  SignInBrowser& browser(SignInBrowser& window) { return window; }
};

}  // namespace vellix
