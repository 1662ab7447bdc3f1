// The token in the person's keychain.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/ports/token_store.hpp"

namespace vellix {

// Reads from memory. The keychain is written in the background, one job at a time and in order; one
// that is refused is given up, and the token then lasts for this run. Main thread.
class KeychainTokenStore : public DurableTokenStore {
 public:
  // The service that the item is kept under.
  explicit KeychainTokenStore(std::string service);

  // Reads the token that an earlier run left; `done` is called in a later turn, also when there is
  // none. The person may be asked first, which takes as long as it takes.
  void prime(std::function<void()> done);

  std::optional<std::string> read() override;
  void remove() override;
  void add(const std::string& token) override;
  Pending<> settled() override;

 private:
  struct State;

  // Shared with the job under way, which may outlive the store.
  std::shared_ptr<State> state_;
};

}  // namespace vellix
