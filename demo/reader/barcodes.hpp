// The barcodes in a picture.
#pragma once

#include <QImage>
#include <vector>

#include "pdf_reading.hpp"

namespace vellix::demo {

// Their boxes are in pixels of the picture, which is grey, a byte a pixel. Only kinds that carry a
// digit or more to check them by are told, since letters can look like the others. The thinnest
// bar should have three pixels.
std::vector<PdfBarcode> barcodesIn(const QImage& picture);

}  // namespace vellix::demo
