// Where a picture lies in its room, and how many of its pixels are shown there. Everything is in
// the device's pixels.
#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <utility>

namespace vellix {

enum class PictureFit {
  within,   // all of it is seen, in the middle
  over,     // it covers the room and is cropped
  exactly,  // it takes the room's own size, whatever its shape
};

struct PictureRoom {
  PictureRoom(QSize room = {}, PictureFit how = PictureFit::within, QSizeF pages = {})
      : size(room), fit(how), page(pages) {}

  QSize size;
  PictureFit fit = PictureFit::within;
  // Of a page: what one of any shape would be fitted into; the room is the part that this one
  // takes. Empty for what is no page.
  QSizeF page;

  bool operator==(const PictureRoom&) const = default;
};

// Pixels of a picture: all of its own, or fewer.
struct Pixels {
  Pixels() = default;
  Pixels(QImage all) : image(std::move(all)), whole(image.size()) {}
  Pixels(QImage some, QSize own) : image(std::move(some)), whole(own) {}

  bool isNull() const { return image.isNull(); }

  QImage image;
  QSize whole;  // the picture's own size
};

// Where a picture of this size lies; outside the room where it is cropped. One that misses a side
// by less than half a percent, or than a pixel, reaches it: the sizes of equal pages and of their
// rooms differ by roundings.
QRect fittedPlace(QSize whole, const PictureRoom& room);

// The pixels that are worth having there: as many as are shown, but never more than its own.
QSize exactSize(QSize whole, const PictureRoom& room);
bool isExact(const Pixels& pixels, const PictureRoom& room);
// Whether the first would look better there. Exact is best, then the fewest that are enough.
bool looksBetter(const Pixels& one, const Pixels& other, const PictureRoom& room);

// The room that a page with a picture of this size takes of what is there for pages.
PictureRoom roomOnPage(QSize whole, QSizeF page);

}  // namespace vellix
