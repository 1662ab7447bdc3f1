// The browser half of a sign-in: a page is opened, and the browser comes back with a callback URL
// or not at all. Main thread only.
#pragma once

#include <expected>
#include <optional>
#include <string>

#include "platform/ports/pending.hpp"

namespace vellix {

enum class SignInError {
  cancelled,  // by the person
  noBrowser,  // the page could not be opened
};

// The callback URL; none when the session ended with neither a URL nor an error.
using SignInEnd = std::expected<std::optional<std::string>, SignInError>;

class SignInBrowser {
 public:
  virtual ~SignInBrowser() = default;
  // Opens the page; it comes back with a URL of the scheme. One session at a time: a second one
  // ends the first without a URL.
  virtual Pending<SignInEnd> start(std::string url, std::string scheme) = 0;
  // Takes a URL that came through the operating system as the callback of the running session.
  // False when none is running.
  virtual bool arrived(const std::string& url) = 0;
  // Ends the running session as if the person had; without one it does nothing.
  virtual void cancel() = 0;
};

}  // namespace vellix
