#include <QByteArray>
#include <algorithm>
#include <filesystem>
#include <random>

#include "state_kept.hpp"

namespace vellix::demo {

std::string partKey(const std::string& prefix, std::size_t part) {
  std::string number = std::to_string(part);
  number.insert(0, 6 - std::min<std::size_t>(number.size(), 6), '0');
  return prefix + number;
}

std::string ticketKey(const std::string& id) { return "tickets/" + id; }

std::string versionKey(const std::string& id, Int number) {
  return partKey(ticketKey(id) + "/versions/", static_cast<std::size_t>(number));
}

std::string noteKey(const std::string& id, std::size_t place) {
  return partKey(ticketKey(id) + "/notes/", place);
}

std::string reportFile(const std::string& reportId) { return reportId + ".pdf"; }

std::string newUploadFile() {
  std::random_device dice;
  std::string name = "upload-";
  for (int i = 0; i < 16; ++i) name += "0123456789abcdef"[dice() % 16];
  return name + ".pdf";
}

std::string photoFile(const std::string& photoKey) {
  return "photo-" + std::filesystem::path(photoKey).filename().string();
}

std::string escapedPath(const std::string& path) {
  return QByteArray::fromStdString(path).toPercentEncoding("/ ").toStdString();
}

std::string pathOfEscaped(const std::string& text) {
  return QByteArray::fromPercentEncoding(QByteArray::fromStdString(text)).toStdString();
}

}  // namespace vellix::demo
