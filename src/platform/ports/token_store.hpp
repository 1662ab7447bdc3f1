// Where the session token lies between runs. One item, for this service and the account "session".
#pragma once

#include <optional>
#include <string>

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

}  // namespace vellix
