// Files on this machine's disks, and on those that it has mounted.
#pragma once

#include <QObject>
#include <cstdint>
#include <map>
#include <memory>

#include "platform/ports/local_files.hpp"

namespace vellix {

// Made, used and ended on the main thread, while the QCoreApplication lives. Each file is opened on
// a thread of its own, since a disk that has gone to sleep or away keeps whoever asks it waiting.
// What is still being opened at the end never resolves.
class QtLocalFiles : public LocalFiles {
 public:
  QtLocalFiles();
  ~QtLocalFiles() override;
  QtLocalFiles(const QtLocalFiles&) = delete;
  QtLocalFiles& operator=(const QtLocalFiles&) = delete;

  Pending<std::shared_ptr<HttpBody>> open(std::string path) override;

 private:
  using File = std::shared_ptr<HttpBody>;
  // Where files are handed over. A thread that is left behind finds nobody.
  struct Desk;

  void finish(std::uint64_t id, const File& file);

  QObject context_;
  std::shared_ptr<Desk> desk_;
  std::map<std::uint64_t, Resolver<File>> opening_;
  std::uint64_t lastId_ = 0;
};

}  // namespace vellix
