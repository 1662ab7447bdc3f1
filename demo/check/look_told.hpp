// What is said of a place at which two pages look different.
#pragma once

#include <vector>

#include "check/alignment.hpp"
#include "check/areas.hpp"
#include "check/art_moves.hpp"
#include "check/compared.hpp"
#include "check/same_words.hpp"

namespace vellix::demo {

// All of it is the caller's.
struct Pages {
  const Pair& pair;
  std::size_t page = 0;
  const Overlay& overlay;
  const QImage& reference;
  const std::vector<SameWord>& words;
  double perMillimetre = 0;  // pixels
};

Finding ofArea(const Pages& pages, const Area& area);
Finding ofMove(const Pages& pages, const ArtMove& move);
// One for all of them.
Finding throughout(const Pages& pages, const std::vector<Area>& areas,
                   const std::vector<ArtMove>& moves);
// The page as a whole, or but for some words.
Finding liesAside(const Pages& pages, bool all);

}  // namespace vellix::demo
