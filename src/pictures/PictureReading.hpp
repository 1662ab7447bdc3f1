// Reading encoded pictures: their format by their first bytes, their size, their pixels. Any
// thread.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <optional>

#include "pictures/DecodingBudget.hpp"
#include "platform/ports/pictures.hpp"

namespace vellix {

// Pixels may be held at a whole fraction of a picture's size.
inline constexpr int kReductions[] = {8, 4, 2, 1};

// The size of a picture's pixels at a reduction; at least 1 in each direction.
QSize reducedSize(QSize full, int reduction);

// The greatest reduction whose pixels are still at least as many as are shown, in both directions.
int reductionFor(QSize full, QSize shown);

// The size that the picture has as it is shown, from its header. None when it is no JPEG, PNG or
// WebP, or larger than what is taken: 20,000 pixels a side, 100 million in all, encoded in 32 MB.
std::optional<QSize> pictureSize(const Picture& encoded);

// The encoded bytes, from the file when it has one, else the picture's own, which must outlive
// them. None when they cannot be read.
std::optional<QByteArray> encodedBytes(const Picture& encoded);

// What is shown comes as JPEG, PNG or WebP. Photos of a person's own may be HEIC as well, which is
// read where Qt has a reader of it.
enum class PictureFormats { shown, photos };
bool readsHeic();

// Whether the bytes begin like a picture of those formats, which may be broken behind that.
bool beginsLikePicture(const QByteArray& bytes, PictureFormats formats);

// The pixels at a reduction, opaque or with premultiplied alpha; at a greater one where these would
// take more than the budget has. A null image when the picture does not decode to its end, is coded
// in more scans than any encoder writes, or takes too much at every reduction. Waits for its share
// of the budget, which is `share`'s until the caller is done with the pixels.
QImage decodePicture(const QByteArray& bytes, int reduction, DecodingBudget& budget,
                     std::optional<DecodingBudget::Share>& share);

// The same of a photo, at the greatest reduction that has so many pixels where it has as many.
QImage decodePhoto(const QByteArray& bytes, QSize least, DecodingBudget& budget,
                   std::optional<DecodingBudget::Share>& share);

}  // namespace vellix
