// How a page looks.
#pragma once

#include <poppler-page.h>

#include <QImage>

#include "pdf_reading.hpp"

namespace vellix::demo {

// In so many pixels, RGB888; null when it cannot be drawn.
QImage drawn(const poppler::page& page, QSize pixels);
// Small and grey; null when it cannot be drawn.
QImage sketchOf(const poppler::page& page);
// Its picture is null when it cannot be drawn.
PdfSight sightOf(const poppler::page& page);

}  // namespace vellix::demo
