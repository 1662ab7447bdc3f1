// The board, its details and its pictures as files.
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <algorithm>

#include "records/sample.hpp"
#include "service.hpp"

namespace vellix::demo {
namespace {

// A long proof stays out: its pictures would be most of the folder.
constexpr Int kMostPages = 100;

bool writeFile(const QDir& folder, const std::string& name, const std::string& bytes) {
  QSaveFile file(folder.filePath(QString::fromStdString(name)));
  if (!file.open(QIODevice::WriteOnly)) return false;
  const auto size = static_cast<qint64>(bytes.size());
  if (file.write(bytes.data(), size) != size) {
    file.cancelWriting();
    return false;
  }
  return file.commit();
}

}  // namespace

bool Service::writeSample(const std::string& folder) {
  const QDir where(QString::fromStdString(folder));
  if (!where.exists()) return false;
  Sample sample;
  sample.board = state_.boardFor(kRenny);
  std::vector<std::string> leftOut;
  sample.board.files.eraseIf([&](const FileItem& file) {
    if (file.page_count.value_or(0) <= kMostPages) return false;
    leftOut.push_back("/" + file.id + "/");
    return true;
  });
  for (const FileItem& file : sample.board.files) {
    if (auto detail = state_.detailOf(file.id, std::nullopt)) {
      sample.details[file.id] = std::move(*detail);
    }
  }
  const auto json = encode(sample);
  if (!json || !writeFile(where, "sample.json", *json)) return false;
  for (const std::string& key : pictures_.keys()) {
    const auto within = [&](const std::string& part) { return key.find(part) != key.npos; };
    if (std::ranges::any_of(leftOut, within)) continue;
    auto bytes = pictures_.find(key);
    std::string name = key;
    std::ranges::replace(name, '/', '_');
    if (!bytes || !writeFile(where, name, *bytes)) return false;
  }
  return true;
}

}  // namespace vellix::demo
