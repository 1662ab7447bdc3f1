#include "pictures/pictures.hpp"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImageWriter>
#include <QtEndian>
#include <array>
#include <cstdint>

namespace vellix {
namespace {

std::uint32_t crc32(const QByteArray& bytes) {
  std::uint32_t crc = 0xFFFFFFFFU;
  for (const char c : bytes) {
    crc ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) ? 0xEDB88320U : 0);
  }
  return ~crc;
}

QByteArray bigEndian(std::uint32_t value) {
  QByteArray out(4, '\0');
  qToBigEndian(value, out.data());
  return out;
}

QByteArray chunk(const QByteArray& kind, const QByteArray& data) {
  return bigEndian(static_cast<std::uint32_t>(data.size())) + kind + data +
         bigEndian(crc32(kind + data));
}

}  // namespace

QImage testImage(int width, int height, bool alpha) {
  QImage image(width, height, alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  std::uint32_t noise = 12345;
  for (int y = 0; y < height; ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < width; ++x) {
      noise = noise * 1664525U + 1013904223U;
      line[x] =
          qRgba(255 * x / width, 255 * y / height, int(noise >> 26), alpha ? 255 * x / width : 255);
    }
  }
  return image;
}

std::string encodedAs(const char* format, const QImage& image) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  if (!writer.write(image)) ADD_FAILURE() << "cannot write " << format;
  return buffer.data().toStdString();
}

std::string pngThatClaims(unsigned width, unsigned height) {
  const QByteArray header = bigEndian(width) + bigEndian(height) + QByteArray("\x08\x02\0\0\0", 5);
  const QByteArray all = QByteArray("\x89PNG\r\n\x1A\n", 8) + chunk("IHDR", header) +
                         chunk("IDAT", qCompress(QByteArray(100, '\0')).mid(4)) + chunk("IEND", {});
  return all.toStdString();
}

Picture pictureOf(const std::string& key, const std::string& bytes) {
  Picture picture;
  picture.key = key;
  picture.bytes = bytes;
  return picture;
}

}  // namespace vellix
