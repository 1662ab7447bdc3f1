// The exchange of a one-time code for a session token. The client never sees a password.
// Main thread only.
#pragma once

#include <string>

#include "gateway/api.hpp"
#include "platform/ports/machine.hpp"

namespace vellix {

class SignIn {
 public:
  SignIn(API& api, Defaults& defaults, const Machine& machine)
      : api_(api), defaults_(defaults), machine_(machine) {}

  // Trades the code of a callback URL for a token, keeps the token and the address, and gives the
  // person signed in. A failure changes neither.
  Task<API::Result<Me>> finish(std::string url);

 private:
  API& api_;
  Defaults& defaults_;
  const Machine& machine_;
  std::string state_;  // the nonce of the sign-in under way; empty before the first one
};

}  // namespace vellix
