// A file that comes piece by piece and gets its name only when it is whole.
#pragma once

#include <QTemporaryFile>
#include <memory>
#include <string>
#include <string_view>

#include "platform/ports/update_files.hpp"

namespace vellix {

// Calls may wait for the disk; one thread at a time. It has no name until then where the file
// system bears that, so that not even a program that is killed leaves it behind.
class ArrivingUpdate : public ArrivingFile {
 public:
  // A path, which must be on the file system of the name it will get. Nothing is made or looked at
  // yet.
  explicit ArrivingUpdate(std::string folder) : folder_(std::move(folder)) {}

  // False once it cannot be held: from then on it is never whole.
  bool write(std::string_view bytes) override;
  // Puts it on the disk and gives it that path in one step, in place of what had it: of a symbolic
  // link itself, too. False when it could not; called once.
  bool nameAs(const std::string& path);

 private:
  bool open();

  const std::string folder_;
  std::unique_ptr<QTemporaryFile> file_;
  bool broken_ = false;
};

}  // namespace vellix
