#include "compare/Difference.hpp"

#include <QPainter>
#include <cstdint>

namespace vellix {
namespace {

// Pixels of 32 bits whose colours are as they look on black: opaque, or premultiplied.
QImage onBlack(const LaidPicture& picture, QSize ground) {
  const auto format =
      picture.image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  QImage image = picture.image.convertToFormat(format);
  if (!image.isNull() && image.size() != picture.place.size()) {
    image = image.scaled(picture.place.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  if (image.size() == ground && picture.place.topLeft().isNull()) return image;
  QImage whole(ground, QImage::Format_RGB32);
  whole.fill(Qt::black);
  if (image.isNull()) return whole;
  QPainter painter(&whole);
  painter.drawImage(picture.place.topLeft(), image);
  return whole;
}

// Plain loops over plain memory: the compiler makes vector instructions of them.
void subtract(const uchar* __restrict a, const uchar* __restrict b, uchar* __restrict out,
              int bytes) {
  for (int i = 0; i < bytes; ++i) {
    const uchar most = a[i] > b[i] ? a[i] : b[i];
    const uchar least = a[i] > b[i] ? b[i] : a[i];
    out[i] = static_cast<uchar>(most - least);
  }
}

void makeOpaque(std::uint32_t* pixels, int count) {
  for (int i = 0; i < count; ++i) pixels[i] |= 0xFF000000U;
}

}  // namespace

QImage difference(const LaidPicture& a, const LaidPicture& b, QSize ground) {
  if (ground.isEmpty()) return {};
  const QImage one = onBlack(a, ground);
  const QImage other = onBlack(b, ground);
  QImage out(ground, QImage::Format_RGB32);
  if (out.isNull()) return {};
  for (int y = 0; y < ground.height(); ++y) {
    uchar* line = out.scanLine(y);
    subtract(one.constScanLine(y), other.constScanLine(y), line, ground.width() * 4);
    makeOpaque(reinterpret_cast<std::uint32_t*>(line), ground.width());
  }
  return out;
}

}  // namespace vellix
