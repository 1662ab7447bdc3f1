// Where two pages look different outside their words.
#pragma once

#include <QImage>
#include <vector>

#include "pdf_reading.hpp"

namespace vellix::demo {

// In fractions of the page; the sketches are grey and need not have the same shape. Pages that
// differ in too many places differ as a whole.
std::vector<QRectF> artChanges(const QImage& old, const QImage& now,
                               const std::vector<PdfWord>& oldWords,
                               const std::vector<PdfWord>& newWords);

}  // namespace vellix::demo
