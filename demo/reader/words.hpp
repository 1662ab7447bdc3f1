// The words of a page, each with its place and how it is set.
#pragma once

#include <poppler-page.h>

#include <vector>

#include "pdf_reading.hpp"

namespace vellix::demo {

// In reading order; `size` is the page's, as shown, in points.
std::vector<PdfWord> wordsOf(const poppler::page& page, QSizeF size);

}  // namespace vellix::demo
