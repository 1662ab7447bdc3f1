// A sign-in in the system's own browser session, which keeps nothing between two of them. Main
// thread only.
#pragma once

#include <memory>

#include "platform/ports/main_loop.hpp"
#include "platform/ports/sign_in_browser.hpp"

namespace vellix {

class MacSignInBrowser : public SignInBrowser {
 public:
  // The loop must outlive the browser.
  explicit MacSignInBrowser(MainLoop& loop);
  MacSignInBrowser(const MacSignInBrowser&) = delete;
  MacSignInBrowser& operator=(const MacSignInBrowser&) = delete;
  ~MacSignInBrowser() override;

  // The browser that a sign-in goes through: this one, and not the window's own way to one.
  SignInBrowser& browser(SignInBrowser& /*window*/) { return *this; }

  Pending<SignInEnd> start(std::string url, std::string scheme) override;
  bool arrived(const std::string& url) override;
  void cancel() override;

 private:
  struct Session;
  void end(SignInEnd how);

  MainLoop& loop_;
  std::shared_ptr<Session> session_;
};

}  // namespace vellix
