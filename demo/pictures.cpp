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
  add(key, [page = std::move(page), width] { return jpegOf(*page, width); });
}

void Pictures::add(const std::string& key, std::function<std::string()> paint) {
  const std::lock_guard lock(mutex_);
  entries_[key] = {std::move(paint), false, {}};
}

void Pictures::put(const std::string& key, std::string bytes) {
  const std::lock_guard lock(mutex_);
  entries_[key] = {nullptr, false, std::move(bytes)};
}

std::optional<std::string> Pictures::find(const std::string& key) {
  std::unique_lock lock(mutex_);
  const auto found = entries_.find(key);
  if (found == entries_.end()) return std::nullopt;
  Entry& entry = found->second;  // stays where it is, however the table grows meanwhile
  painted_.wait(lock, [&] { return !entry.painting; });
  if (!entry.bytes.empty() || !entry.paint) return entry.bytes;
  entry.painting = true;
  const auto paint = entry.paint;
  lock.unlock();
  std::string bytes = paint();
  lock.lock();
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
