// Where barcodes may be, found in little time so that only there a page is drawn large.
#pragma once

#include <QImage>
#include <vector>

namespace vellix::demo {

// In pixels of the picture, which is grey, a byte a pixel, at about a pixel for the thinnest bar.
// What is found need be no barcode; square codes are found up to about 2.7 pixels a module.
std::vector<QRect> barcodePlaces(const QImage& grey);

}  // namespace vellix::demo
