// The PDF that the reader was given, by poppler.
#pragma once

#include <poppler-document.h>
#include <poppler-page.h>

#include <QSizeF>
#include <memory>

namespace vellix::demo {

inline constexpr const char* kInput = "/proc/self/fd/0";

using PdfDocument = std::unique_ptr<poppler::document>;

// Null when it cannot be opened, or not without a password.
PdfDocument readable();

// As shown, in points; a page without any is taken for a common one.
QSizeF sizeOf(const poppler::page& page);

}  // namespace vellix::demo
