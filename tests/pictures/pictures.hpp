// Pictures made for the tests, encoded.
#pragma once

#include <QImage>
#include <string>

#include "platform/ports/pictures.hpp"

namespace vellix {

// A gradient with some noise, so that every part of the encoded bytes matters.
QImage testImage(int width, int height, bool alpha = false);

std::string encodedAs(const char* format, const QImage& image);

// A PNG whose header tells this size, with next to nothing behind it.
std::string pngThatClaims(unsigned width, unsigned height);

Picture pictureOf(const std::string& key, const std::string& bytes);

}  // namespace vellix
