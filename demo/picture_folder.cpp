#include "picture_folder.hpp"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ranges>
#include <vector>

#include "digest.hpp"

namespace vellix::demo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kEnding = ".picture";
constexpr const char* kUnfinished = ".part";
constexpr std::size_t kDigest = 32;
constexpr std::size_t kNameLength = 2 * kDigest;
constexpr std::size_t kPartBetween =
    8;  // of what it may hold, from one look through it to the next
constexpr std::size_t kMostAtOnce = std::size_t{64} << 20;

// Nothing but what was written here is ever removed.
bool isOurs(const fs::path& path) {
  const std::string name = path.filename().string();
  const auto isHex = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
  if (name.size() < kNameLength ||
      !std::ranges::all_of(name | std::views::take(kNameLength), isHex))
    return false;
  return name.substr(kNameLength) == kEnding || name.substr(kNameLength).starts_with(kUnfinished);
}

struct Kept {
  fs::path path;
  fs::file_time_type looked;
  std::size_t size = 0;
};

// What was left unfinished, and then the oldest as long as it is too much.
void tidy(const std::string& folder, std::size_t most) {
  std::error_code failed;
  std::vector<Kept> all;
  std::size_t size = 0;
  for (auto at = fs::directory_iterator(folder, failed); !failed && at != fs::directory_iterator();
       at.increment(failed)) {
    std::error_code none;
    if (!isOurs(at->path()) || at->symlink_status(none).type() != fs::file_type::regular) continue;
    const auto written = at->last_write_time(none);
    const bool old = written < fs::file_time_type::clock::now() - std::chrono::hours(1);
    if (at->path().extension() == kEnding) {
      all.push_back({at->path(), written, at->file_size(none)});
      size += all.back().size;
    } else if (old) {
      fs::remove(at->path(), none);
    }
  }
  std::ranges::sort(all, {}, &Kept::looked);
  for (const Kept& kept : all) {
    if (size <= most) return;
    fs::remove(kept.path, failed);
    size -= kept.size;
  }
}

}  // namespace

std::shared_ptr<const PictureFolder> PictureFolder::at(const std::string& folder,
                                                       std::size_t most) {
  std::error_code failed;
  fs::create_directories(folder, failed);
  if (!fs::is_directory(folder, failed) || access(folder.c_str(), W_OK) != 0) return nullptr;
  tidy(folder, most);
  return std::shared_ptr<const PictureFolder>(new PictureFolder(folder, most));
}

std::string PictureFolder::pathOf(const std::string& name) const {
  return folder_ + "/" + digestText(name) + kEnding;
}

bool PictureFolder::has(const std::string& name) const {
  std::error_code failed;
  return fs::file_size(pathOf(name), failed) > kDigest && !failed;
}

std::optional<std::string> PictureFolder::find(const std::string& name) const {
  const std::string path = pathOf(name);
  std::error_code failed;
  const auto size = fs::file_size(path, failed);
  if (failed || size <= kDigest || size > kMostAtOnce) return std::nullopt;
  std::string all(size, '\0');
  std::ifstream file(path, std::ios::binary);
  if (!file.read(all.data(), static_cast<std::streamsize>(size))) return std::nullopt;
  std::string bytes = all.substr(kDigest);
  if (digestOf(bytes).toStdString() != all.substr(0, kDigest)) return std::nullopt;
  fs::last_write_time(path, fs::file_time_type::clock::now(), failed);
  return bytes;
}

bool PictureFolder::keep(const std::string& name, const std::string& bytes) const {
  static std::atomic<int> count = 0;
  const std::string path = pathOf(name);
  const std::string unfinished = path.substr(0, path.size() - std::string(kEnding).size()) +
                                 kUnfinished + std::to_string(getpid()) + "-" +
                                 std::to_string(++count);
  std::ofstream file(unfinished, std::ios::binary);
  const QByteArray digest = digestOf(bytes);
  file.write(digest.data(), digest.size());
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  std::error_code failed;
  if (file) fs::rename(unfinished, path, failed);
  const bool kept = file.good() && !failed;
  if (!kept) fs::remove(unfinished, failed);
  const std::size_t size = kDigest + bytes.size();
  if (kept) added_ += size;
  if (added_ > most_ / kPartBetween) {
    added_ = 0;
    tidy(folder_, most_);
  }
  return kept;
}

}  // namespace vellix::demo
