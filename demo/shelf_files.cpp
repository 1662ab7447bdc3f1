#include "shelf_files.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <regex>

namespace vellix::demo {
namespace {

constexpr const char* kHalf = ".half";

bool writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return fsync(file) == 0;
}

// A file's name is in its folder, which is written by itself.
bool syncFolder(const std::string& folder) {
  const int opened = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened < 0) return false;
  const bool synced = fsync(opened) == 0;
  close(opened);
  return synced;
}

}  // namespace

std::expected<void, std::string> writeWhole(const std::string& folder, const std::string& name,
                                            std::string_view bytes) {
  const std::string path = folder + "/" + name;
  const auto failed = [&](const std::string& half) {
    const std::string why = errno == ENOSPC ? "the disk is full" : std::strerror(errno);
    if (!half.empty()) unlink(half.c_str());
    return std::unexpected(path + " cannot be written: " + why + ".");
  };
  if (mkdir(folder.c_str(), 0700) == 0) {
    syncFolder(std::filesystem::path(folder).parent_path());
  } else if (errno != EEXIST) {
    return failed({});
  }
  const std::string half = path + kHalf;
  const int file = open(half.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0600);
  if (file < 0) return failed({});
  const bool written = writeAll(file, bytes);
  const int why = errno;
  close(file);
  errno = why;
  if (!written || rename(half.c_str(), path.c_str()) != 0 || !syncFolder(folder)) {
    return failed(half);
  }
  return {};
}

std::optional<std::string> allOfFile(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return std::nullopt;
  std::string all;
  std::array<char, 65536> piece{};
  ssize_t got = 0;
  while ((got = read(file, piece.data(), piece.size())) != 0) {
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) break;
    all.append(piece.data(), static_cast<std::size_t>(got));
  }
  close(file);
  if (got < 0) return std::nullopt;
  return all;
}

void removeOwnBut(const std::string& folder, const std::set<std::string>& names) {
  static const std::regex own("(upload|report|photo)-[0-9a-f]+\\.(pdf|jpg)(\\.half)?");
  std::error_code wrong;
  for (const auto& entry : std::filesystem::directory_iterator(folder, wrong)) {
    const std::string name = entry.path().filename();
    std::error_code unknown;
    if (names.contains(name) || !std::regex_match(name, own)) continue;
    if (!entry.is_regular_file(unknown) || entry.is_symlink(unknown)) continue;
    unlink(entry.path().c_str());
  }
}

}  // namespace vellix::demo
