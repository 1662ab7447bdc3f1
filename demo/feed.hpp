// What the service says of the client's newest build. Not locked.
#pragma once

#include <optional>
#include <string>

#include "records/json.hpp"

namespace vellix::demo {

class Feed {
 public:
  // Says at first that there is nothing newer than the build that the service was made with.
  // `address` is where the service can be reached.
  explicit Feed(const std::string& address);

  const VersionInfo& newest() const { return newest_; }
  // Says this from now on, and the first again of what is left out; a text that says what is wrong
  // with it.
  std::optional<std::string> replace(const Json& body);
  // What a browser shows at the newest build's URL, unless it was told to lie elsewhere.
  std::string page() const;

 private:
  const VersionInfo own_;
  VersionInfo newest_;
};

}  // namespace vellix::demo
