// Files on this machine's disks, and on those that it has mounted.
#pragma once

#include "platform/ports/local_files.hpp"
#include "platform/qt/Errands.hpp"

namespace vellix {

// Made, used and ended on the main thread, while the QCoreApplication lives. What is still being
// opened at the end never resolves.
class QtLocalFiles : public LocalFiles {
 public:
  Pending<std::shared_ptr<HttpBody>> open(std::string path) override;

 private:
  Errands errands_;
};

}  // namespace vellix
