// Art that is on both pages, at another place.
#pragma once

#include <QImage>
#include <vector>

#include "check/difference.hpp"

namespace vellix::demo {

struct ArtMove {
  QRect from;  // in pixels
  QRect to;
};

// A page as it is looked at for art: its picture, and grey as large where it has words, 255 there.
struct ArtPage {
  const QImage& picture;
  const QImage& words;
};

// Finds it among what differs, and takes it out of that.
std::vector<ArtMove> takeMoves(Difference& difference, const ArtPage& proof,
                               const ArtPage& reference);

}  // namespace vellix::demo
