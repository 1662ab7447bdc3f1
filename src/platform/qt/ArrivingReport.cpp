#include "platform/qt/ArrivingReport.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <random>
#include <utility>

namespace vellix {
namespace {

constexpr mode_t kAnyone = 0666;  // less the person's mask
constexpr mode_t kAnyoneEnters = 0777;
constexpr int kTries = 16;  // of names that nobody can have guessed
constexpr std::size_t kPiece = 65'536;

std::string freshName() {
  std::random_device random;
  std::string name = ".vellix-";
  for (int i = 0; i < 2; ++i) {
    std::array<char, 9> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x", static_cast<unsigned>(random()));
    name += digits.data();
  }
  return name + ".part";
}

bool isSingleName(const std::string& name) {
  return !name.empty() && name != "." && name != ".." &&
         name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
}

// The bytes at that place, fewer only at the end. None when they cannot be read.
std::optional<std::string_view> pieceAt(int file, std::int64_t at, std::array<char, kPiece>& to) {
  std::size_t count = 0;
  while (count < to.size()) {
    const auto place = at + static_cast<std::int64_t>(count);
    const auto got = ::pread(file, to.data() + count, to.size() - count, place);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return std::nullopt;
    if (got == 0) break;
    count += static_cast<std::size_t>(got);
  }
  return std::string_view(to.data(), count);
}

bool holdTheSame(int one, int other) {
  std::array<char, kPiece> ours;
  std::array<char, kPiece> theirs;
  for (std::int64_t at = 0;;) {
    const auto left = pieceAt(one, at, ours);
    const auto right = pieceAt(other, at, theirs);
    if (!left || !right || *left != *right) return false;
    if (left->empty()) return true;
    at += static_cast<std::int64_t>(left->size());
  }
}

// What a file system answers that gives no file two names.
constexpr std::array kNoLinks{EPERM, ENOTSUP, EOPNOTSUPP, EMLINK, ENOSYS};

// Whether that file is the one of that name.
bool isAt(int file, int folder, const std::string& name) {
  struct stat ours{};
  struct stat there{};
  return ::fstat(file, &ours) == 0 &&
         ::fstatat(folder, name.c_str(), &there, AT_SYMLINK_NOFOLLOW) == 0 &&
         ours.st_dev == there.st_dev && ours.st_ino == there.st_ino;
}

}  // namespace

ArrivingReport::~ArrivingReport() {
  drop();
  if (file_ >= 0) ::close(file_);
  if (folderFile_ >= 0) ::close(folderFile_);
}

bool ArrivingReport::open() {
  const std::scoped_lock lock(mutex_);
  if (!broken_ && file_ < 0) broken_ = !openLocked();
  return !broken_ && !dropped_;
}

bool ArrivingReport::openLocked() {
  if (dropped_ || folder_.empty() || folder_.find('\0') != std::string::npos) return false;
  // The desktop names the folder also where nobody has made it yet. One that is there stays as it
  // is.
  ::mkdir(folder_.c_str(), kAnyoneEnters);
  folderFile_ = ::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folderFile_ < 0) return false;
  for (int i = 0; i < kTries && file_ < 0; ++i) {
    std::string name = freshName();
    file_ = ::openat(folderFile_, name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kAnyone);
    if (file_ >= 0) part_ = std::move(name);
    if (file_ < 0 && errno != EEXIST && errno != EINTR) break;
  }
  return file_ >= 0;
}

bool ArrivingReport::append(std::string_view bytes) {
  if (!open()) return false;
  while (!bytes.empty()) {
    const auto count = ::write(file_, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) {
      broken_ = true;
      return false;
    }
    size_ += count;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool ArrivingReport::finish() {
  whole_ = open() && ::fsync(file_) == 0;
  return whole_;
}

void ArrivingReport::drop() {
  const std::scoped_lock lock(mutex_);
  dropped_ = true;
  dropLocked();
}

void ArrivingReport::dropLocked() {
  if (!part_.empty()) ::unlinkat(folderFile_, part_.c_str(), 0);
  part_.clear();
}

ReportFolder::Place ArrivingReport::look(const std::string& name) {
  if (!whole_ || !isSingleName(name)) return Place::taken;
  struct stat told{};
  if (::fstatat(folderFile_, name.c_str(), &told, AT_SYMLINK_NOFOLLOW) != 0) {
    return errno == ENOENT ? Place::free : Place::taken;
  }
  // Behind a link lies what it leads to.
  if (::fstatat(folderFile_, name.c_str(), &told, 0) != 0) return Place::taken;
  if (!S_ISREG(told.st_mode) || told.st_size != size_) return Place::taken;
  // What has come there since may be a pipe, which without the flag would be waited for.
  const int there = ::openat(folderFile_, name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (there < 0) return Place::taken;
  const bool isFile = ::fstat(there, &told) == 0 && S_ISREG(told.st_mode);
  const bool same = isFile && holdTheSame(file_, there);
  ::close(there);
  return same ? Place::same : Place::taken;
}

ReportFolder::Written ArrivingReport::write(const std::string& name) {
  if (!whole_ || !isSingleName(name)) return Written::failed;
  Written written = Written::failed;
  {
    const std::scoped_lock lock(mutex_);
    if (!part_.empty()) written = nameLocked(name);
  }
  // It is whole at its place in any case; this keeps the name through a crash as well.
  if (written == Written::whole) ::fsync(folderFile_);
  return written;
}

ReportFolder::Written ArrivingReport::nameLocked(const std::string& name) {
  if (::linkat(folderFile_, part_.c_str(), folderFile_, name.c_str(), 0) == 0) {
    dropLocked();
    return Written::whole;
  }
  if (errno == EEXIST) return Written::taken;
  const bool otherwise = std::ranges::find(kNoLinks, errno) != kNoLinks.end();
  return otherwise ? nameOverOwn(name) : Written::failed;
}

// Takes the name with an empty file and puts the report into that one's place.
ReportFolder::Written ArrivingReport::nameOverOwn(const std::string& name) {
  const int own =
      ::openat(folderFile_, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kAnyone);
  if (own < 0) return errno == EEXIST ? Written::taken : Written::failed;
  Written written = Written::taken;
  if (isAt(own, folderFile_, name)) {
    const bool done = ::renameat(folderFile_, part_.c_str(), folderFile_, name.c_str()) == 0;
    written = done ? Written::whole : Written::failed;
    if (done) {
      part_.clear();
    } else {
      ::unlinkat(folderFile_, name.c_str(), 0);
    }
  }
  ::close(own);
  return written;
}

std::string ArrivingReport::urlOf(const std::string& name) const {
  const auto path = QByteArray::fromStdString(folder_ + '/' + name);
  return "file://" + path.toPercentEncoding("/").toStdString();
}

}  // namespace vellix
