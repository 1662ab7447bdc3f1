// The token in a file of the user's alone, for desktops without a keyring.
#pragma once

#include <optional>
#include <string>

#include "platform/linux/TokenStores.hpp"

namespace vellix {

// The file holds the token and nothing else, readable by its owner from its first byte on. It is
// replaced whole. Where it cannot be written the token lasts for this run.
class FileTokenStore : public DurableTokenStore {
 public:
  explicit FileTokenStore(std::string path);

  std::optional<std::string> read() override { return token_; }
  void remove() override;
  void add(const std::string& token) override;
  Pending<> settled() override;

 private:
  std::string path_;
  std::optional<std::string> token_;
};

}  // namespace vellix
