#include "pictures.hpp"

#include <QBuffer>
#include <QImageWriter>

#include "paint.hpp"

namespace vellix::demo {
namespace {

std::string jpegOf(const PageArt& page, int width) {
  QImage image;
  if (width == 0) {
    image = paintPage(page, 1);
  } else {
    // Painted larger and then scaled down, so that small type turns into an even grey.
    const double scale = static_cast<double>(width) / sizeOf(page).width();
    image = paintPage(page, scale * 3).scaledToWidth(width, Qt::SmoothTransformation);
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, "jpeg");
  writer.setQuality(width == 0 ? 90 : 86);
  if (!writer.write(image)) return {};
  return bytes.toStdString();
}

}  // namespace

void Pictures::add(const std::string& key, std::shared_ptr<const PageArt> page, int width) {
  const std::lock_guard lock(mutex_);
  entries_[key] = {std::move(page), width, false, {}};
}

void Pictures::put(const std::string& key, std::string bytes) {
  const std::lock_guard lock(mutex_);
  entries_[key] = {nullptr, 0, false, std::move(bytes)};
}

std::optional<std::string> Pictures::find(const std::string& key) {
  std::unique_lock lock(mutex_);
  auto found = entries_.find(key);
  if (found == entries_.end()) return std::nullopt;
  painted_.wait(lock, [&] { return !found->second.painting; });
  if (!found->second.bytes.empty() || !found->second.page) return found->second.bytes;
  found->second.painting = true;
  const auto page = found->second.page;
  const int width = found->second.width;
  lock.unlock();
  std::string bytes = jpegOf(*page, width);
  lock.lock();
  // The table may have grown meanwhile: look again.
  Entry& entry = entries_[key];
  entry.bytes = bytes;
  entry.painting = false;
  painted_.notify_all();
  return bytes;
}

std::vector<std::string> Pictures::keys() const {
  const std::lock_guard lock(mutex_);
  std::vector<std::string> all;
  for (const auto& [key, entry] : entries_) all.push_back(key);
  return all;
}

}  // namespace vellix::demo
