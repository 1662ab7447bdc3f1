// Pictures of the demo's own pages.
#include <QBuffer>
#include <QImageWriter>

#include "paint.hpp"
#include "pictures.hpp"

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

}  // namespace vellix::demo
