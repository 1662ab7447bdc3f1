// Where the session token lies between runs. One item, for this service and the account "session".
#pragma once

#include <optional>
#include <string>

#include "platform/ports/pending.hpp"

namespace vellix {

class TokenStore {
 public:
  virtual ~TokenStore() = default;
  // None of these blocks or fails loudly: `read` answers from what is known, `remove` and `add`
  // are carried out in order in the background.
  virtual std::optional<std::string> read() = 0;
  virtual void remove() = 0;
  virtual void add(const std::string& token) = 0;
};

// Main thread.
class DurableTokenStore : public TokenStore {
 public:
  // Resolves in a later turn, once all that was asked for so far is written or given up. That may
  // take long: a program that quits should wait for less.
  virtual Pending<> settled() = 0;
};

}  // namespace vellix
