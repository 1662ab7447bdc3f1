#include "platform/qt/ArrivingUpdate.hpp"

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <cerrno>
#include <cstdio>

namespace vellix {

bool ArrivingUpdate::open() {
  if (!broken_ && !file_) {
    const auto folder = QString::fromStdString(folder_);
    QDir().mkpath(folder);
    file_ = std::make_unique<QTemporaryFile>(folder + "/.vellix-XXXXXX");
    broken_ = !file_->open();
  }
  return !broken_;
}

bool ArrivingUpdate::write(std::string_view bytes) {
  if (!open()) return false;
  while (!bytes.empty()) {
    const auto count = ::write(file_->handle(), bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) {
      broken_ = true;
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool ArrivingUpdate::nameAs(const std::string& path) {
  if (!open() || ::fsync(file_->handle()) != 0) return false;
  const auto before = QFile::encodeName(file_->fileName());
  const auto after = QFile::encodeName(QString::fromStdString(path));
  if (before.isEmpty() || std::rename(before.constData(), after.constData()) != 0) return false;
  file_->setAutoRemove(false);
  return true;
}

}  // namespace vellix
