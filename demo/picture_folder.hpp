// Pictures on the disk, each under a name of any kind. Any thread, and any number of processes.
#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>

namespace vellix::demo {

// In bytes; what was not looked at for longest goes when the folder is opened, and from time to
// time while pictures come in, so that it may have an eighth more.
inline constexpr std::size_t kMostKept = std::size_t{4} << 30;

class PictureFolder {
 public:
  // Makes the folder where there is none; null when that fails.
  static std::shared_ptr<const PictureFolder> at(const std::string& folder,
                                                 std::size_t most = kMostKept);

  bool has(const std::string& name) const;
  // None where there is no such picture, or not all of it.
  std::optional<std::string> find(const std::string& name) const;
  // All at once or not at all; false when there is no room for it.
  bool keep(const std::string& name, const std::string& bytes) const;

 private:
  PictureFolder(std::string folder, std::size_t most) : folder_(std::move(folder)), most_(most) {}
  std::string pathOf(const std::string& name) const;

  std::string folder_;
  std::size_t most_;
  mutable std::atomic<std::size_t> added_ = 0;  // in bytes, since it was looked through
};

}  // namespace vellix::demo
