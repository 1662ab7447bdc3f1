// Which of what differs between two pictures belongs together.
#pragma once

#include <QRect>
#include <vector>

#include "check/difference.hpp"

namespace vellix::demo {

struct Area {
  QRect place;         // in pixels
  bool faint = false;  // nothing in it differs plainly
};

// From the top on, without what is too small to be anything.
std::vector<Area> areasOf(const Difference& difference);

// Squares that belong together: from each of them the next is no more than `reach` squares away.
std::vector<std::vector<std::size_t>> together(const std::vector<bool>& cells, int columns,
                                               int reach);

// The place of one square, in pixels.
QRect squareOf(std::size_t cell, int columns);

// Joins those for which `near` holds until none is left for which it does; `put` puts the second
// into the first.
template <class Piece, class Near, class Put>
void join(std::vector<Piece>& pieces, Near near, Put put) {
  for (bool joined = true; joined;) {
    joined = false;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      for (std::size_t j = i + 1; j < pieces.size();) {
        if (!near(pieces[i], pieces[j])) {
          ++j;
          continue;
        }
        put(pieces[i], pieces[j]);
        pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(j));
        joined = true;
      }
    }
  }
}

}  // namespace vellix::demo
