// The cut-outs of a page that the loupe shows. No new picture is made: a crop is the whole page,
// larger and clipped.
#pragma once

#include <boost/describe.hpp>
#include <optional>
#include <vector>

#include "records/geometry.hpp"

namespace vellix {

// The part of the page around a rectangle, in fractions; the whole page when there is none.
Box cropAround(const std::optional<Box>& box, double aspect);

// How a crop lies in its place, in logical pixels. `page` is the whole picture in the frame's
// coordinates.
struct CropLayout {
  Box frame;
  Box page;
  std::vector<Box> marks;  // in the frame's coordinates
  bool operator==(const CropLayout&) const = default;
};
BOOST_DESCRIBE_STRUCT(CropLayout, (), (frame, page, marks))
CropLayout cropLayout(const Box& part, const std::vector<Box>& boxes, double aspect, Extent place);

// The width of each of so many crops side by side, and the height of their strip.
Extent cropPlace(double width, std::size_t crops);

}  // namespace vellix
