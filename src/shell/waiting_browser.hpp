// A sign-in in the person's own browser. It tells nothing of what becomes of the page, so the
// session waits until the callback comes through the desktop or the person calls it off. Main
// thread only.
#pragma once

#include "platform/ports/sign_in_browser.hpp"
#include "platform/ports/url_opener.hpp"
#include "store/published.hpp"

namespace vellix {

class WaitingBrowser : public SignInBrowser {
 public:
  // Both must outlive the browser.
  WaitingBrowser(MainLoop& loop, UrlOpener& opener) : changes(loop), loop_(loop), opener_(opener) {}

  Changes changes;
  Published<bool> waiting{changes, 1, false};

  Pending<SignInEnd> start(std::string url, std::string scheme) override;
  bool arrived(const std::string& url) override;
  void cancel() override;
  void openAgain();  // the page of the running session

 private:
  struct Session {
    std::string page;
    Resolver<SignInEnd> ended;
  };
  void openPage();
  void end(SignInEnd how);

  MainLoop& loop_;
  UrlOpener& opener_;
  std::optional<Session> session_;
};

}  // namespace vellix
