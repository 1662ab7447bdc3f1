// Where the card stands in which a note at a place of a page is written.
#pragma once

#include <boost/describe.hpp>

#include "records/geometry.hpp"

namespace vellix {

inline constexpr Extent kDraftCard{290, 190};

struct DraftPlaceView {
  bool here = false;  // a pane has the place that is written about
  double x = 0;       // of the card's corner, in the stage's content
  double y = 0;
  bool operator==(const DraftPlaceView&) const = default;
};
BOOST_DESCRIBE_STRUCT(DraftPlaceView, (), (here, x, y))

// Its centre on a picture of this size, for a mark given in fractions of the page: below the mark,
// or above it, or where neither has room, over it.
Spot draftCardCentre(const Box& mark, Extent picture);
// Its top left corner, on a stage of this size, for a page that lies there. What the stage would
// cut off is moved in.
Spot draftCardCorner(const Box& mark, const Box& page, Extent stage);

}  // namespace vellix
