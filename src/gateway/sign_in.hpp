// Signing in: the browser half, and the exchange of its one-time code for a session token. The
// client never sees a password. Main thread only.
#pragma once

#include <cstdint>
#include <string>

#include "gateway/api.hpp"
#include "platform/ports/machine.hpp"
#include "platform/ports/sign_in_browser.hpp"
#include "platform/ports/uuids.hpp"

namespace vellix {

class SignIn {
 public:
  struct Ports {
    Defaults& defaults;
    const Machine& machine;
    SignInBrowser& browser;
    Uuids& uuids;
  };
  // What is passed must outlive the SignIn.
  SignIn(API& api, Ports ports) : api_(api), ports_(ports) {}

  // Opens the sign-in page, waits for its callback and finishes with that.
  Task<API::Result<Me>> run();

  // Trades the code of a callback URL for a token, keeps the token and the address, and gives the
  // person signed in. A failure changes neither, nor does an answer that comes once all was called
  // off, which counts as cancelled.
  Task<API::Result<Me>> finish(std::string url);

  // True when a run was waiting for the callback URL and goes on with it.
  bool arrived(const std::string& url) { return ports_.browser.arrived(url); }
  // Ends a run that waits for its callback.
  void cancel() { ports_.browser.cancel(); }
  // What is being exchanged now signs nobody in.
  void callOff() { ++calledOff_; }

 private:
  std::string pageUrl() const;

  API& api_;
  Ports ports_;
  std::uint64_t calledOff_ = 0;
  std::string state_;  // the nonce of the sign-in under way; empty before the first one
};

}  // namespace vellix
