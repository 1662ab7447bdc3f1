// Art that is on both pages, at another place.
#pragma once

#include <QImage>
#include <vector>

#include "check/art_pieces.hpp"

namespace vellix::demo {

struct ArtMove {
  QRect from;  // in pixels
  QRect to;
};

// Finds it among what differs, and takes it out of that.
std::vector<ArtMove> takeMoves(Difference& difference, const ArtPage& proof,
                               const ArtPage& reference);

}  // namespace vellix::demo
