// Where the panes stand on the stage, and how it is scrolled. Logical pixels.
#pragma once

#include <boost/describe.hpp>
#include <optional>
#include <vector>

#include "records/geometry.hpp"

namespace vellix {

// The room of each of so many panes.
Extent paneRoom(Extent stage, std::size_t panes);
Extent fittedImage(Extent room, double aspect, double zoom);

// One pane: its column, and the picture in it, both in the content's coordinates. Where there is no
// picture the rectangle is the room for the words in its place.
struct PanePlace {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  Box page;
  bool operator==(const PanePlace&) const = default;
};
BOOST_DESCRIBE_STRUCT(PanePlace, (), (x, y, width, height, page))

struct StageLayout {
  double width = 0;  // of the content
  double height = 0;
  bool scrolls = false;
  std::vector<PanePlace> panes;
  Extent room;  // of each pane, zoomed: what a page of any shape is fitted into
  bool operator==(const StageLayout&) const = default;
};
BOOST_DESCRIBE_STRUCT(StageLayout, (), (width, height, scrolls, panes, room))

struct StagePane {
  double aspect = 0;
  bool pictured = true;
};
// `alone`: the panes take turns, each with the whole stage to itself.
StageLayout stageLayout(Extent stage, const std::vector<StagePane>& panes, double zoom, bool alone);

// A spot of the stage and what lies under it: a place on a pane's page, in fractions. While it is
// zoomed about, it is the same place even where the content's end has held it back.
struct Anchor {
  Spot spot;
  std::size_t pane = 0;
  Spot place;
};
// None while nothing has been laid out.
std::optional<Anchor> anchorAt(const StageLayout& layout, Spot scroll, Spot spot);
// How far the content must be scrolled for the anchor to lie where it did, as nearly as it can.
Spot anchored(const std::optional<Anchor>& anchor, Spot scroll, const StageLayout& layout,
              Extent stage);
// How far to scroll to have one of these marks in sight, which lie in the content's coordinates:
// not at all when one is, else to the nearest. `seen` is the part of the stage that nothing covers.
Spot revealed(const StageLayout& layout, Spot scroll, const std::vector<Box>& marks, Extent seen);

}  // namespace vellix
