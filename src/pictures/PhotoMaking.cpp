#include "pictures/PhotoMaking.hpp"

#include <QBuffer>
#include <QColorSpace>
#include <QImageWriter>
#include <QPainter>
#include <algorithm>
#include <optional>

#include "pictures/PictureReading.hpp"

namespace vellix {
namespace {

constexpr QSize kPhoto(kPhotoSide, kPhotoSide);
constexpr int kQuality = 85;
constexpr qsizetype kPixel = 4;  // bytes, of what was decoded

// Of the photo's size, and in the colours that everybody shows.
QImage squareOf(const QImage& whole) {
  const QRect part = centredSquare(whole.size());
  // Not copied: it may be as large as decoding may take.
  const QImage there(whole.constScanLine(part.y()) + part.x() * kPixel, part.width(), part.height(),
                     whole.bytesPerLine(), whole.format());
  QImage square = there.scaled(kPhoto, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  const QColorSpace colours = whole.colorSpace();
  if (colours.isValid()) {
    square.setColorSpace(colours);
    square.convertToColorSpace(QColorSpace::SRgb);
  }
  return square;
}

// On white, and without what else the file told of it.
QImage flat(const QImage& square) {
  QImage photo(kPhoto, QImage::Format_RGB32);
  photo.fill(Qt::white);
  QPainter(&photo).drawImage(0, 0, square);
  return photo;
}

}  // namespace

QRect centredSquare(QSize whole) {
  const int side = std::min(whole.width(), whole.height());
  return {(whole.width() - side) / 2, (whole.height() - side) / 2, side, side};
}

PhotoResult makePhoto(const QByteArray& bytes, DecodingBudget& budget) {
  if (!beginsLikePicture(bytes, PictureFormats::photos)) {
    return std::unexpected(PhotoFailure::notLoaded);
  }
  std::optional<DecodingBudget::Share> share;
  const QImage whole = decodePhoto(bytes, kPhoto, budget, share);
  if (whole.isNull()) return std::unexpected(PhotoFailure::notMade);
  QBuffer jpeg;
  QImageWriter writer(&jpeg, "jpeg");
  writer.setQuality(kQuality);
  if (!writer.write(flat(squareOf(whole)))) return std::unexpected(PhotoFailure::notMade);
  return jpeg.data().toStdString();
}

}  // namespace vellix
