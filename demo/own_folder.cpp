#include "own_folder.hpp"

#include <fcntl.h>

#include <QFile>
#include <filesystem>

#include "digest.hpp"
#include "pdf_file.hpp"

namespace vellix::demo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kBeginning = "own-";

}  // namespace

bool OwnFolder::holds(const std::string& path) {
  return fs::path(path).filename().string().starts_with(kBeginning);
}

// Empty where it cannot be read.
std::string OwnFolder::nameFor(const std::string& path) {
  const auto file = PdfFile::at(path);
  if (!file) return {};
  auto& [tag, name] = names_[path];
  if (tag == file->tag()) return name;
  // By its descriptor, since a name need not be text.
  QFile bytes;
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const bool opened =
      descriptor >= 0 && bytes.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
  const std::string sum = opened ? digestText(bytes) : std::string();
  if (sum.empty()) return {};
  tag = file->tag();
  name = kBeginning + sum + ".pdf";
  return name;
}

std::string OwnFolder::copyOf(const std::string& path) {
  const std::string name = folder_.empty() ? std::string() : nameFor(path);
  if (name.empty()) return path;
  const fs::path copy = fs::path(folder_) / name;
  std::error_code trouble;
  if (fs::exists(copy, trouble)) return copy.string();
  fs::create_directories(folder_, trouble);
  // Whole or not at all, however the service ends.
  const fs::path part = copy.string() + ".part";
  fs::copy_file(path, part, fs::copy_options::overwrite_existing, trouble);
  if (!trouble) fs::rename(part, copy, trouble);
  return trouble ? path : copy.string();
}

}  // namespace vellix::demo
