// Where the marks of findings and notes stand on a picture, and what a drag over it draws.
#pragma once

#include <string>
#include <vector>

#include "records/geometry.hpp"
#include "records/records.hpp"

namespace vellix {

// The mark of a rectangle given in fractions of the page, on a picture of this size.
Box boxMark(const Box& box, Extent picture);
// The mark of a note's area. A small one grows about its centre.
Box areaMark(const Box& area, Extent picture);
// A mark without what lies so far outside its picture that nobody can see it.
Box inSight(const Box& mark, Extent picture);

// The rectangles that a pane draws for a finding, in fractions of the page. The supplier's pane is
// the one without a role.
std::vector<Box> boxesOn(const std::optional<std::string>& role, const Finding& finding);
// Those of the finding's own page, whatever the pane.
std::vector<Box> boxesOf(const Finding& finding);

// The rectangle between two spots, as it is previewed while the pointer is held.
Box between(Spot one, Spot other);
// The note that a drag from one spot of a picture to another begins; a short one is a click. Only
// its place is filled in.
DraftNote drawn(Spot from, Spot to, Extent picture);

}  // namespace vellix
