// EAN-13 symbols.
#pragma once

#include <QPainter>
#include <string>

namespace vellix::demo {

// The digit that makes the first twelve of `digits` a valid number.
char checkDigit(const std::string& digits);

// The 95 modules of the symbol for 13 digits, '1' for a bar; empty when they are not 13 digits.
// The last digit is drawn as it stands, right or wrong.
std::string modulesOf(const std::string& digits);

// Draws the symbol with its white ground and its digits into `box`.
void paintBarcode(QPainter& painter, const QRectF& box, const std::string& digits);

}  // namespace vellix::demo
