// What is drawn on a page besides its words, piece by piece.
#pragma once

#include <QRect>
#include <vector>

#include "check/difference.hpp"

namespace vellix::demo {

// A page as it is looked at for art: its picture, and grey as large where it has words, 255 there.
struct ArtPage {
  const QImage& picture;
  const QImage& words;
};

// Whatever is drawn no more than some pixels apart.
struct ArtPiece {
  QRect place;                     // in pixels
  int ink = 0;                     // how many of them are drawn
  std::vector<std::size_t> cells;  // of the difference, each once
  bool differs = false;            // in some of them
};

// The one that takes the most room first.
std::vector<ArtPiece> piecesOf(const ArtPage& page, const Difference& difference);

}  // namespace vellix::demo
