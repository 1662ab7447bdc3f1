#include "shell/waiting_browser.hpp"

#include <utility>

namespace vellix {

Pending<SignInEnd> WaitingBrowser::start(std::string url, std::string /*scheme*/) {
  end(std::nullopt);
  session_ = Session{.page = std::move(url), .ended = {}};
  const auto ended = session_->ended.pending();
  waiting.set(true);
  openPage();
  return ended;
}

bool WaitingBrowser::arrived(const std::string& url) {
  const bool running = session_.has_value();
  end(url);
  return running;
}

void WaitingBrowser::cancel() { end(std::unexpected(SignInError::cancelled)); }

void WaitingBrowser::openAgain() {
  if (session_) openPage();
}

void WaitingBrowser::openPage() {
  if (!opener_.open(session_->page)) end(std::unexpected(SignInError::noBrowser));
}

void WaitingBrowser::end(SignInEnd how) {
  if (!session_) return;
  // The session is over at once, and whoever waits for it goes on in a later turn.
  loop_.post([ended = session_->ended, how = std::move(how)] { ended(how); });
  session_.reset();
  waiting.set(false);
}

}  // namespace vellix
