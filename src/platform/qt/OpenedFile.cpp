#include "platform/qt/OpenedFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace vellix {
namespace {

std::int64_t nanoseconds(const timespec& time) {
  return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

// None for what is no file.
std::optional<OpenedFile::State> stateOf(const struct stat& told) {
  if (!S_ISREG(told.st_mode)) return std::nullopt;
#ifdef __APPLE__  // which has other names for them
  const timespec written = told.st_mtimespec;
  const timespec touched = told.st_ctimespec;
#else
  const timespec written = told.st_mtim;
  const timespec touched = told.st_ctim;
#endif
  return OpenedFile::State{static_cast<std::uint64_t>(told.st_dev), told.st_ino, told.st_size,
                           nanoseconds(written), nanoseconds(touched)};
}

std::optional<OpenedFile::State> stateOf(int file) {
  struct stat told{};
  return ::fstat(file, &told) == 0 ? stateOf(told) : std::nullopt;
}

std::optional<OpenedFile::State> stateAt(const std::string& path) {
  struct stat told{};
  return ::stat(path.c_str(), &told) == 0 ? stateOf(told) : std::nullopt;
}

}  // namespace

std::shared_ptr<HttpBody> OpenedFile::open(const std::string& path) {
  if (path.find('\0') != std::string::npos) return nullptr;
  // Without the last flag a pipe at that place would be waited for.
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return nullptr;
  if (const auto then = stateOf(file)) return std::make_shared<OpenedFile>(file, path, *then);
  ::close(file);
  return nullptr;
}

OpenedFile::OpenedFile(int file, std::string path, const State& then)
    : file_(file), path_(std::move(path)), then_(then) {}

OpenedFile::~OpenedFile() { ::close(file_); }

std::optional<std::size_t> OpenedFile::read(char* to, std::size_t most) {
  const std::size_t wanted = std::min(most, static_cast<std::size_t>(then_.size - taken_));
  std::size_t count = 0;
  while (count < wanted) {
    const auto place = taken_ + static_cast<std::int64_t>(count);
    const auto got = ::pread(file_, to + count, wanted - count, place);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return std::nullopt;
    count += static_cast<std::size_t>(got);
  }
  // Asked behind the reading: all that is given out was there before anything had changed.
  if (!isAsItWas()) return std::nullopt;
  taken_ += static_cast<std::int64_t>(count);
  return count;
}

bool OpenedFile::isAsItWas() const { return stateOf(file_) == then_ && stateAt(path_) == then_; }

}  // namespace vellix
