// The token in the user's keyring.
#pragma once

#include <QString>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/FileTokenStore.hpp"
#include "platform/linux/KeychainThread.hpp"
#include "platform/linux/TokenStores.hpp"

namespace vellix {

// Reads from memory. The keyring is written in the background, one job at a time and in order;
// a job that fails or is late is given up. A file from a time without a keyring goes as soon as the
// keyring holds a token, or the token is replaced or removed.
class SecretServiceTokenStore : public DurableTokenStore {
 public:
  // In milliseconds, for each writing job; and the file that may have been left.
  SecretServiceTokenStore(int jobLimit, FileTokenStore left);

  // Reads the token that an earlier run left; `done` is called in a later turn, also when there is
  // none or the keyring does not answer within `limit` ms. A keyring that says it has none takes
  // the file's.
  void prime(int limit, std::function<void()> done);

  std::optional<std::string> read() override;
  void remove() override;
  void add(const std::string& token) override;
  Pending<> settled() override;

 private:
  struct State;

  // Shared with the jobs under way, which may outlive the store.
  std::shared_ptr<State> state_;
};

}  // namespace vellix
