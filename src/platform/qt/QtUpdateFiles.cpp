#include "platform/qt/QtUpdateFiles.hpp"

#include <unistd.h>

#include <QDir>
#include <QStandardPaths>
#include <QStorageInfo>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/qt/ArrivingUpdate.hpp"
#include "platform/qt/renew_folder.hpp"

namespace vellix {
namespace {

namespace fs = std::filesystem;
using Text = std::optional<std::string>;

std::string cachesFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation).toStdString();
}

bool isSingleName(const std::string& name) {
  return !name.empty() && name != "." && name != ".." &&
         name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
}

bool roomAt(const std::string& stage, std::int64_t bytes) {
  fs::path nearest = stage;
  std::error_code error;
  while (!fs::is_directory(nearest, error) && nearest.has_relative_path()) {
    nearest = nearest.parent_path();
  }
  const QStorageInfo storage(QString::fromStdString(nearest.string()));
  return storage.isValid() && storage.bytesAvailable() >= bytes;
}

}  // namespace

std::string QtUpdateFiles::stage() const { return cachesFolder() + "/SorelUpdate"; }

std::string QtUpdateFiles::temporaryFolder() const { return QDir::tempPath().toStdString(); }

Pending<bool> QtUpdateFiles::hasRoomFor(std::int64_t bytes) {
  return errands_.run<bool>([stage = stage(), bytes] { return roomAt(stage, bytes); }, false);
}

std::shared_ptr<ArrivingFile> QtUpdateFiles::begin() {
  return std::make_shared<ArrivingUpdate>(cachesFolder());
}

Pending<bool> QtUpdateFiles::renewStage() {
  return errands_.run<bool>([stage = stage()] { return renewFolder(stage); }, false);
}

Pending<bool> QtUpdateFiles::putIntoStage(std::shared_ptr<ArrivingFile> file, std::string name) {
  return errands_.run<bool>(
      [file = std::static_pointer_cast<ArrivingUpdate>(std::move(file)), stage = stage(),
       name = std::move(name)] { return isSingleName(name) && file->nameAs(stage + '/' + name); },
      false);
}

Pending<bool> QtUpdateFiles::exists(std::string path) {
  return errands_.run<bool>(
      [path = std::move(path)] {
        std::error_code error;
        return fs::exists(path, error);
      },
      false);
}

Pending<Text> QtUpdateFiles::textIn(std::string propertyList, std::string key) {
  return errands_.run<Text>([reader = reader_, path = std::move(propertyList),
                             key = std::move(key)] { return reader(path, key); },
                            std::nullopt);
}

bool QtUpdateFiles::isWritable(const std::string& path) const {
  return ::access(path.c_str(), W_OK) == 0;
}

bool QtUpdateFiles::write(const std::string& path, const std::string& text) {
  const auto folder = fs::path(path).parent_path();
  std::error_code error;
  ArrivingUpdate file(folder.string());
  return fs::is_directory(folder, error) && file.write(text) && file.nameAs(path);
}

}  // namespace vellix
