#include "platform/qt/PictureReading.hpp"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>

namespace vellix {
namespace {

constexpr int kMostPerSide = 20'000;
constexpr qint64 kMostPixels = 100'000'000;
constexpr qint64 kMostEncoded = qint64{64} << 20;
constexpr qint64 kSignature = 16;

// The reader's name of the format; empty for what is not wanted.
QByteArray formatOf(const QByteArray& start) {
  if (start.startsWith("\xFF\xD8\xFF")) return "jpeg";
  if (start.startsWith("\x89PNG\r\n\x1A\n")) return "png";
  if (start.startsWith("RIFF") && start.mid(8, 4) == "WEBP") return "webp";
  return {};
}

bool isAcceptable(QSize size) {
  return size.width() > 0 && size.height() > 0 && size.width() <= kMostPerSide &&
         size.height() <= kMostPerSide && qint64{size.width()} * size.height() <= kMostPixels;
}

// The library fills what is missing of a cut JPEG with grey and says nothing. So the segments are
// walked: one that is whole ends with its end mark, which cannot occur inside the coded pixels.
bool hasJpegEnd(const QByteArray& bytes) {
  const auto* data = reinterpret_cast<const unsigned char*>(bytes.constData());
  const qsizetype size = bytes.size();
  qsizetype at = 2;
  while (at + 1 < size) {
    const auto* found =
        static_cast<const unsigned char*>(std::memchr(data + at, 0xFF, size_t(size - at - 1)));
    if (!found) return false;
    at = found - data + 1;
    const unsigned char mark = data[at];
    if (mark == 0xFF) continue;  // fill byte: the next one is looked at as a mark's start
    ++at;
    if (mark == 0xD9) return true;
    const bool standsAlone = mark == 0x00 || mark == 0x01 || (mark >= 0xD0 && mark <= 0xD8);
    if (standsAlone) continue;
    if (at + 1 >= size) return false;
    at += data[at] * 256 + data[at + 1];
  }
  return false;
}

struct Reading {
  explicit Reading(QIODevice* device) {
    const QByteArray format = formatOf(device->peek(kSignature));
    if (format.isEmpty()) return;
    reader = std::make_unique<QImageReader>(device, format);
    reader->setAutoDetectImageFormat(false);
    reader->setAutoTransform(true);
    stored = reader->size();
    if (!isAcceptable(stored))
      reader.reset();
    else
      turned = reader->transformation().testFlag(QImageIOHandler::TransformationRotate90);
  }

  QSize shown() const { return turned ? stored.transposed() : stored; }

  std::unique_ptr<QImageReader> reader;  // null when it is no picture for us
  QSize stored;
  bool turned = false;
};

// The JPEG reader decodes at a half, quarter or eighth for much less than the whole. The size asked
// for is that of the whole picture, also where it is no multiple: pages that are equal but for
// their pixel sizes must lie on each other.
void askReduced(QImageReader& reader, QSize stored, int reduction) {
  const QSize reduced(stored.width() / reduction, stored.height() / reduction);
  if (!reduced.isEmpty()) reader.setScaledSize(reduced);
}

QImage inOurFormat(QImage image) {
  const auto format =
      image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  return std::move(image).convertToFormat(format);
}

}  // namespace

QSize reducedSize(QSize full, int reduction) {
  return {std::max(1, full.width() / reduction), std::max(1, full.height() / reduction)};
}

int reductionFor(QSize full, QSize shown) {
  for (const int reduction : kReductions) {
    const QSize reduced = reducedSize(full, reduction);
    if (reduced.width() >= shown.width() && reduced.height() >= shown.height()) return reduction;
  }
  return 1;
}

std::optional<QByteArray> encodedBytes(const Picture& encoded) {
  if (encoded.file.empty()) return QByteArray::fromStdString(encoded.bytes);
  QFile file(QString::fromStdString(encoded.file));
  if (!file.open(QIODevice::ReadOnly) || file.size() > kMostEncoded) return std::nullopt;
  return file.readAll();
}

std::optional<QSize> pictureSize(const Picture& encoded) {
  QFile file(QString::fromStdString(encoded.file));
  QByteArray bytes =
      QByteArray::fromRawData(encoded.bytes.data(), static_cast<qsizetype>(encoded.bytes.size()));
  QBuffer buffer(&bytes);
  QIODevice* device = encoded.file.empty() ? static_cast<QIODevice*>(&buffer) : &file;
  if (!device->open(QIODevice::ReadOnly)) return std::nullopt;
  const Reading reading(device);
  return reading.reader ? std::optional{reading.shown()} : std::nullopt;
}

QImage decodePicture(const QByteArray& bytes, int reduction) {
  QByteArray held = bytes;
  QBuffer buffer(&held);
  if (!buffer.open(QIODevice::ReadOnly)) return {};
  const Reading reading(&buffer);
  if (!reading.reader) return {};
  const bool jpeg = reading.reader->format() == "jpeg";
  if (jpeg && !hasJpegEnd(bytes)) return {};
  if (jpeg && reduction > 1) askReduced(*reading.reader, reading.stored, reduction);

  QImage image;
  if (!reading.reader->read(&image) || image.isNull()) return {};
  const QSize wanted = reducedSize(reading.shown(), reduction);
  if (image.size() != wanted) {
    image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  return inOurFormat(std::move(image));
}

}  // namespace vellix
