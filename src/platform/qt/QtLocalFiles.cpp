#include "platform/qt/QtLocalFiles.hpp"

#include <utility>

#include "platform/qt/OpenedFile.hpp"

namespace vellix {

Pending<std::shared_ptr<HttpBody>> QtLocalFiles::open(std::string path) {
  return errands_.run<std::shared_ptr<HttpBody>>(
      [path = std::move(path)] { return OpenedFile::open(path); }, nullptr);
}

}  // namespace vellix
