#include "platform/qt/QtPictureFiles.hpp"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <algorithm>
#include <filesystem>
#include <system_error>

namespace vellix {
namespace {

constexpr std::size_t kLongestName = 255;

bool isControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < 0x20 || code == 0x7f;
}

bool isPlainName(const std::string& name) {
  if (name.empty() || name.size() > kLongestName || name == "." || name == "..") return false;
  if (name.find_first_of("/\\") != std::string::npos) return false;
  if (std::any_of(name.begin(), name.end(), isControl)) return false;
  // What is not UTF-8 would be written under another name than it is asked for.
  return QString::fromStdString(name).toStdString() == name;
}

}  // namespace

std::string pictureCachePath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation).toStdString() +
         "/Sorel/img";
}

QtPictureFiles::QtPictureFiles(const std::string& folder)
    : folder_(QDir(QString::fromStdString(folder)).absolutePath().toStdString()) {
  QDir().mkpath(QString::fromStdString(folder_));
}

std::string QtPictureFiles::find(const std::string& name) const {
  if (!isPlainName(name)) return {};
  const std::string path = folder_ + '/' + name;
  const QFileInfo file(QString::fromStdString(path));
  return !file.isSymLink() && file.isFile() && file.isReadable() ? path : std::string();
}

std::string QtPictureFiles::write(const std::string& name, const std::string& bytes) {
  if (!isPlainName(name)) return {};
  std::string path = folder_ + '/' + name;
  if (QFileInfo(QString::fromStdString(path)).isSymLink()) return {};

  // Whole or not at all, but not forced to the disk: that would hold the window up, and what a
  // crash tears is fetched anew.
  QTemporaryFile file(QString::fromStdString(folder_ + "/.writing-XXXXXX"));
  if (!file.open()) return {};
  // On a full disk the write is short and nothing else tells of it.
  const auto size = static_cast<qint64>(bytes.size());
  if (file.write(bytes.data(), size) != size || !file.flush()) return {};
  file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
  std::error_code failure;
  std::filesystem::rename(file.fileName().toStdString(), path, failure);
  if (failure) return {};
  file.setAutoRemove(false);
  return path;
}

}  // namespace vellix
