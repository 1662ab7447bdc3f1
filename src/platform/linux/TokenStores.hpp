// Where the session token is kept on this desktop.
#pragma once

#include <memory>
#include <string>

#include "platform/ports/pending.hpp"
#include "platform/ports/token_store.hpp"

namespace vellix {

// Main thread.
class DurableTokenStore : public TokenStore {
 public:
  // Resolves in a later turn, once all that was asked for so far is written or given up. Each job
  // has a limit of its own, but a program that quits should wait for less.
  virtual Pending<> settled() = 0;
};

// In milliseconds: for finding the keyring, and for each job that it is given.
struct KeyringLimits {
  int find = 3000;
  int job = 10'000;
};

// The user's keyring when a Secret Service is on the session bus or can be started there; without
// one, the file "session" in the folder. It never blocks. A keyring that does not answer within
// its limit stays the store: it then reads as empty, and nothing goes to the file beside it.
Pending<std::shared_ptr<DurableTokenStore>> openTokenStore(const std::string& configFolder,
                                                           KeyringLimits limits = {});

// The user's folder of this program's configuration.
std::string configFolder();

}  // namespace vellix
