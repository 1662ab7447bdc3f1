#include "pictures/PictureReading.hpp"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <memory>
#include <utility>

#include "pictures/JpegMarks.hpp"

namespace vellix {
namespace {

constexpr int kMostPerSide = 20'000;
constexpr qint64 kMostPixels = 100'000'000;
// Each scan goes over all pixels again. Encoders write 10 of a colour picture, 18 of one in four
// inks, and hardly more when they look for the shortest form.
constexpr int kMostScans = 32;
constexpr qint64 kSignature = 16;
constexpr qint64 kOurs = 4;  // bytes a pixel, of the formats that we hold

const QByteArray kHeic = "heic";

// As its files name themselves: of one picture, of several, or in general.
bool isHeic(const QByteArray& start) {
  static const QByteArrayList kinds{"heic", "heix", "heim", "heis", "hevc", "hevx", "mif1", "msf1"};
  return start.mid(4, 4) == "ftyp" && kinds.contains(start.mid(8, 4));
}

// The reader's name of the format; empty for what is not wanted.
QByteArray formatOf(const QByteArray& start, PictureFormats formats) {
  if (start.startsWith("\xFF\xD8\xFF")) return "jpeg";
  if (start.startsWith("\x89PNG\r\n\x1A\n")) return "png";
  if (start.startsWith("RIFF") && start.mid(8, 4) == "WEBP") return "webp";
  if (formats == PictureFormats::photos && isHeic(start)) return kHeic;
  return {};
}

bool isAcceptable(QSize size) {
  return size.width() > 0 && size.height() > 0 && size.width() <= kMostPerSide &&
         size.height() <= kMostPerSide && qint64{size.width()} * size.height() <= kMostPixels;
}

struct Reading {
  explicit Reading(QIODevice* device, PictureFormats formats = PictureFormats::shown) {
    const QByteArray format = formatOf(device->peek(kSignature), formats);
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

// What decoding takes at its height, but for the picture's own bytes.
std::int64_t decodingBytes(const Reading& reading, const JpegMarks& marks, int reduction) {
  const QByteArray format = reading.reader->format();
  // The other readers decode the whole, whatever is asked for.
  const QSize size = format == "jpeg" ? reducedSize(reading.stored, reduction) : reading.stored;
  const qint64 pixels = qint64{size.width()} * size.height();
  const QImage::Format given = reading.reader->imageFormat();
  const qint64 bits =
      given == QImage::Format_Invalid ? 8 * kOurs : QImage::toPixelFormat(given).bitsPerPixel();
  qint64 bytes = pixels * bits / 8 + marks.coefficientBytes;
  // Formats of as many bits are made ours in place.
  if (bits != 8 * kOurs || reading.turned) bytes += pixels * kOurs;
  if (format == "webp" || format == kHeic) bytes += pixels * kOurs;  // its reader's own copy
  return bytes;
}

QImage inOurFormat(QImage image) {
  const auto format =
      image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  return std::move(image).convertToFormat(format);
}

// None when it takes too much at every reduction.
std::optional<int> affordable(const Reading& reading, const JpegMarks& marks, int reduction,
                              std::int64_t bytes) {
  const bool jpeg = reading.reader->format() == "jpeg";
  while (decodingBytes(reading, marks, reduction) > bytes) {
    if (!jpeg || reduction >= kReductions[0]) return std::nullopt;
    reduction *= 2;
  }
  return reduction;
}

QImage decode(const Reading& reading, const QByteArray& bytes, int wish, DecodingBudget& budget,
              std::optional<DecodingBudget::Share>& share) {
  const bool jpeg = reading.reader->format() == "jpeg";
  JpegMarks marks;
  if (jpeg) {
    marks = jpegMarks(bytes);
    // The library fills what is missing of a cut one with grey and says nothing.
    if (!marks.whole || marks.scans > kMostScans) return {};
  }
  const auto reduction = affordable(reading, marks, wish, budget.bytes());
  if (!reduction) return {};
  share.emplace(budget, decodingBytes(reading, marks, *reduction));
  if (jpeg && *reduction > 1) askReduced(*reading.reader, reading.stored, *reduction);

  QImage image;
  if (!reading.reader->read(&image) || image.isNull()) return {};
  const QSize wanted = reducedSize(reading.shown(), *reduction);
  if (image.size() != wanted) {
    image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  return inOurFormat(std::move(image));
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
  if (encoded.file.empty()) {
    return QByteArray::fromRawData(encoded.bytes.data(),
                                   static_cast<qsizetype>(encoded.bytes.size()));
  }
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
  if (!device->open(QIODevice::ReadOnly) || device->size() > kMostEncoded) return std::nullopt;
  const Reading reading(device);
  return reading.reader ? std::optional{reading.shown()} : std::nullopt;
}

bool readsHeic() { return QImageReader::supportedImageFormats().contains(kHeic); }

bool beginsLikePicture(const QByteArray& bytes, PictureFormats formats) {
  return !formatOf(bytes.first(std::min<qsizetype>(bytes.size(), kSignature)), formats).isEmpty();
}

QImage decodePicture(const QByteArray& bytes, int reduction, DecodingBudget& budget,
                     std::optional<DecodingBudget::Share>& share) {
  QByteArray held = bytes;
  QBuffer buffer(&held);
  if (!buffer.open(QIODevice::ReadOnly)) return {};
  const Reading reading(&buffer);
  return reading.reader ? decode(reading, bytes, reduction, budget, share) : QImage();
}

QImage decodePhoto(const QByteArray& bytes, QSize least, DecodingBudget& budget,
                   std::optional<DecodingBudget::Share>& share) {
  QByteArray held = bytes;
  QBuffer buffer(&held);
  if (!buffer.open(QIODevice::ReadOnly)) return {};
  const Reading reading(&buffer, PictureFormats::photos);
  if (!reading.reader) return {};
  return decode(reading, bytes, reductionFor(reading.shown(), least), budget, share);
}

}  // namespace vellix
