// The face that views write in. Main thread only.
#pragma once

#include <QString>

namespace vellix {

inline constexpr qreal kRowSize = 13;  // of the letters of a row, in logical pixels
inline constexpr qreal kLineHeight = 1.35;

QString familyOfViews();
// Turns a size in logical pixels into points.
qreal pointsPerPixel();

}  // namespace vellix
