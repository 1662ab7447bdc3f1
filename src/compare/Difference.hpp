// The difference of two pictures. Any thread.
#pragma once

#include <QImage>
#include <QRect>

namespace vellix {

// A picture and where it lies on a ground, in the ground's pixels. It is scaled where its size is
// another.
struct LaidPicture {
  QImage image;
  QRect place;
};

// |a − b| of each channel over the whole ground, which is opaque. Both lie on black, so where only
// one reaches it is seen alone.
QImage difference(const LaidPicture& a, const LaidPicture& b, QSize ground);

}  // namespace vellix
