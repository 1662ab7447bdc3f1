#include "platform/qt/renew_folder.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace vellix {
namespace {

namespace fs = std::filesystem;

// NOLINTNEXTLINE(misc-no-recursion): no deeper than a path may be long.
void removeAll(const fs::path& path) {
  std::error_code error;
  if (fs::is_directory(fs::symlink_status(path, error))) {
    // What came out of an image may be closed even to its owner.
    fs::permissions(path, fs::perms::owner_all, fs::perm_options::add, error);
    fs::directory_iterator each(path, error);
    for (; !error && each != fs::directory_iterator(); each.increment(error)) {
      removeAll(each->path());
    }
  }
  fs::remove(path, error);
}

}  // namespace

bool renewFolder(const std::string& path) {
  removeAll(path);
  std::error_code error;
  fs::create_directories(fs::path(path).parent_path(), error);
  ::mkdir(path.c_str(), S_IRWXU);
  return fs::is_directory(fs::symlink_status(path, error)) && ::access(path.c_str(), W_OK) == 0;
}

}  // namespace vellix
