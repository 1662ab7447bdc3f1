// Pictures on the disk, each under a name of any kind. Any thread, and any number of processes.
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace vellix::demo {

// In bytes; what was not looked at for longest goes when the folder is opened.
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
  explicit PictureFolder(std::string folder) : folder_(std::move(folder)) {}
  std::string pathOf(const std::string& name) const;

  std::string folder_;
};

}  // namespace vellix::demo
