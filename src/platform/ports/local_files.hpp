// Files of the person's own, opened to be sent.
#pragma once

#include <memory>
#include <string>

#include "platform/ports/http.hpp"
#include "platform/ports/pending.hpp"

namespace vellix {

class LocalFiles {
 public:
  virtual ~LocalFiles() = default;
  // The file as it is now, to be read once, or null when it cannot be read or is no file. Once it
  // is another one, nothing more is read from it. The path's bytes are the system's own. Callable
  // from the main thread, which never waits for the disk; resolves there.
  virtual Pending<std::shared_ptr<HttpBody>> open(std::string path) = 0;
};

}  // namespace vellix
