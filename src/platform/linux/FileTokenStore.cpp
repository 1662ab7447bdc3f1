#include "platform/linux/FileTokenStore.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace vellix {
namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;
constexpr std::size_t kLongestToken = 16'384;

class OpenFile {
 public:
  OpenFile(const std::string& path, int flags)
      : descriptor_(::open(path.c_str(), flags | O_NOFOLLOW | O_CLOEXEC, kOwnerOnly)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { close(); }

  bool isOpen() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }
  bool close() { return descriptor_ < 0 || ::close(std::exchange(descriptor_, -1)) == 0; }

 private:
  int descriptor_;
};

bool isVisible(unsigned char c) { return c > 0x20 && c < 0x7f; }

// A token goes into a header as it is: anything else in the file is damage.
std::optional<std::string> readToken(const std::string& path) {
  const OpenFile file(path, O_RDONLY | O_NONBLOCK);
  struct stat facts{};
  if (!file.isOpen() || ::fstat(file.descriptor(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
    return std::nullopt;
  }
  // Somebody may have copied it here with wider rights.
  ::fchmod(file.descriptor(), kOwnerOnly);
  std::string token(kLongestToken + 1, '\0');
  const auto count = ::read(file.descriptor(), token.data(), token.size());
  if (count <= 0 || count > static_cast<ssize_t>(kLongestToken)) return std::nullopt;
  token.resize(static_cast<std::size_t>(count));
  if (token.ends_with('\n')) token.pop_back();
  if (token.empty() || !std::all_of(token.begin(), token.end(), isVisible)) return std::nullopt;
  return token;
}

bool writeAll(const std::string& path, const std::string& bytes) {
  OpenFile file(path, O_WRONLY | O_CREAT | O_EXCL);
  if (!file.isOpen()) return false;
  std::size_t written = 0;
  while (written < bytes.size()) {
    const auto count = ::write(file.descriptor(), bytes.data() + written, bytes.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    written += static_cast<std::size_t>(count);
  }
  return file.close();
}

}  // namespace

FileTokenStore::FileTokenStore(std::string path)
    : path_(std::move(path)), token_(readToken(path_)) {}

void FileTokenStore::remove() {
  token_.reset();
  ::unlink(path_.c_str());
}

void FileTokenStore::add(const std::string& token) {
  token_ = token;
  std::error_code ignored;
  std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), ignored);
  const std::string fresh = path_ + ".new";
  ::unlink(fresh.c_str());
  if (!writeAll(fresh, token) || ::rename(fresh.c_str(), path_.c_str()) != 0) {
    ::unlink(fresh.c_str());
  }
}

Pending<> FileTokenStore::settled() {
  const Resolver<> resolver;
  QMetaObject::invokeMethod(qApp, [resolver] { resolver(); }, Qt::QueuedConnection);
  return resolver.pending();
}

}  // namespace vellix
