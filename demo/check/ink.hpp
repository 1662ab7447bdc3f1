// What is drawn on a part of a picture.
#pragma once

#include <QColor>
#include <QImage>
#include <cstddef>

namespace vellix::demo {

// The three bytes of a pixel within the picture, which is RGB888.
inline const uchar* pixelAt(const QImage& picture, int x, int y) {
  return picture.constScanLine(y) + std::ptrdiff_t{3} * x;
}

// How far a colour is from another: the most of its three channels, 0 to 255.
int away(const uchar* pixel, QRgb from);

// The colour that most of a picture has.
QRgb groundOf(const QImage& picture);

// The colour around a place, or along the picture's own edge where the place leaves nothing.
QRgb groundAround(const QImage& picture, const QRect& place);

// How much the brightness changes from pixel to pixel in the mean, to the side and downwards;
// letters and bars have much of it, photographs and tints little.
double edgesIn(const QImage& picture, const QRect& place);

// How alike two pictures of one size are at a place in brightness: 1 the same but for contrast, 0
// unlike, less where light and dark are exchanged.
double likenessIn(const QImage& one, const QImage& other, const QRect& place);

}  // namespace vellix::demo
