// Where the session token is kept on this desktop.
#pragma once

#include <memory>
#include <string>

#include "platform/ports/pending.hpp"
#include "platform/ports/token_store.hpp"

namespace vellix {

// In milliseconds: for finding the keyring, for the reading at the start, and for each writing job.
// A locked keyring asks its user before it lets anything be read, and people take their time.
struct KeyringLimits {
  int find = 3000;
  int read = 120'000;
  int job = 10'000;
};

// The user's keyring when a Secret Service is on the session bus or can be started there; without
// one, the file "session" in the folder. It never blocks. A keyring that does not answer within
// its limit stays the store: it then reads as empty, and nothing goes to the file beside it. One
// that has nothing takes over what such a file holds, and the file goes; it goes with a sign-out as
// well. The store comes once it is read, which may take as long as the limits say: show something
// meanwhile.
Pending<std::shared_ptr<DurableTokenStore>> openTokenStore(const std::string& configFolder,
                                                           KeyringLimits limits = {});

}  // namespace vellix
