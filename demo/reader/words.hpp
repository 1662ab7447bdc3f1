// The words of a page, each with its place and how it is set.
#pragma once

#include <poppler-page.h>

#include "pdf_reading.hpp"

namespace vellix::demo {

// Puts them into `entry`, whose size is there.
void tellWords(const poppler::page& page, PdfPage& entry);

}  // namespace vellix::demo
