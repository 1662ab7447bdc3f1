#include "compare/stage.hpp"

#include <algorithm>
#include <cmath>

namespace vellix {
namespace {

constexpr double kSide = 18;           // left and right of the panes
constexpr double kTop = 14;            // above and below them
constexpr double kBetween = 16;        // two panes
constexpr double kCaption = 22;        // the caption's line, and 6 to the picture
constexpr double kScrollsFrom = 1.01;  // a pinch may stop just above fit
constexpr double kFlattest = 0.2;      // aspect
constexpr double kInSight = 24;        // around a mark

double held(double scroll, double content, double stage) {
  return std::clamp(scroll, 0.0, std::max(0.0, content - stage));
}

// The pane at this place of the content; between two, the one before.
std::size_t paneAt(const StageLayout& layout, double x) {
  std::size_t at = 0;
  for (std::size_t i = 1; i < layout.panes.size(); ++i) {
    if (layout.panes[i].x <= x && layout.panes[i].x > layout.panes[at].x) at = i;
  }
  return at;
}

}  // namespace

Extent paneRoom(Extent stage, std::size_t panes) {
  const auto count = static_cast<double>(std::max<std::size_t>(panes, 1));
  return {(stage.width - 2 * kSide - (count - 1) * kBetween) / count,
          stage.height - 2 * kTop - kCaption};
}

Extent fittedImage(Extent room, double aspect, double zoom) {
  const double shape = std::isnan(aspect) ? kFlattest : std::max(aspect, kFlattest);
  Extent fitted{room.width, room.width / shape};
  if (room.height < fitted.height) fitted = {room.height * shape, room.height};
  return {zoom * std::max(fitted.width, 1.0), zoom * std::max(fitted.height, 1.0)};
}

StageLayout stageLayout(Extent stage, const std::vector<StagePane>& panes, double zoom,
                        bool alone) {
  const Extent room = paneRoom(stage, alone ? 1 : panes.size());
  StageLayout layout{.scrolls = zoom > kScrollsFrom,
                     .room = {zoom * room.width, zoom * room.height}};
  double x = kSide;
  Extent content;
  for (const auto& pane : panes) {
    const Extent picture = pane.pictured ? fittedImage(room, pane.aspect, zoom) : room;
    const double width = std::max(room.width, picture.width);
    // A page begins on a whole pixel, so that type stays sharp.
    const double left = std::round(x + (width - picture.width) / 2);
    layout.panes.push_back({.x = x,
                            .y = kTop,
                            .width = width,
                            .height = kCaption + picture.height,
                            .page = {left, kTop + kCaption, picture.width, picture.height}});
    content.width = std::max(content.width, x + width + kSide);
    content.height = std::max(content.height, 2 * kTop + kCaption + picture.height);
    if (!alone) x += width + kBetween;
  }
  layout.width = layout.scrolls ? std::max(stage.width, std::ceil(content.width)) : stage.width;
  layout.height = layout.scrolls ? std::max(stage.height, std::ceil(content.height)) : stage.height;
  return layout;
}

std::optional<Anchor> anchorAt(const StageLayout& layout, Spot scroll, Spot spot) {
  if (layout.panes.empty()) return std::nullopt;
  const std::size_t at = paneAt(layout, spot.x + scroll.x);
  const Box& page = layout.panes[at].page;
  if (!(page.width > 0 && page.height > 0)) return std::nullopt;
  return Anchor{
      spot,
      at,
      {(spot.x + scroll.x - page.x) / page.width, (spot.y + scroll.y - page.y) / page.height}};
}

Spot anchored(const std::optional<Anchor>& anchor, Spot scroll, const StageLayout& layout,
              Extent stage) {
  if (!layout.scrolls) return {};
  Spot to = scroll;
  if (anchor && anchor->pane < layout.panes.size()) {
    const Box& page = layout.panes[anchor->pane].page;
    to = {page.x + anchor->place.x * page.width - anchor->spot.x,
          page.y + anchor->place.y * page.height - anchor->spot.y};
  }
  return {held(to.x, layout.width, stage.width), held(to.y, layout.height, stage.height)};
}

Spot revealed(const StageLayout& layout, Spot scroll, const std::vector<Box>& marks, Extent seen) {
  if (!layout.scrolls || marks.empty()) return scroll;
  // How far a mark reaches out of what is in sight.
  const auto away = [](double at, double length, double from, double room) {
    const double air = length + 2 * kInSight <= room ? kInSight : 0;
    const double within = std::min(length, room);
    return std::max({0.0, from - (at + length - within - air), at + within + air - (from + room)});
  };
  const auto distance = [&](const Box& mark) {
    return away(mark.x, mark.width, scroll.x, seen.width) +
           away(mark.y, mark.height, scroll.y, seen.height);
  };
  const Box& nearest = *std::ranges::min_element(marks, {}, distance);
  const auto along = [&](double at, double length, double from, double room, double content) {
    if (away(at, length, from, room) <= 0) return from;
    return held(at + length / 2 - room / 2, content, room);
  };
  return {along(nearest.x, nearest.width, scroll.x, seen.width, layout.width),
          along(nearest.y, nearest.height, scroll.y, seen.height, layout.height)};
}

}  // namespace vellix
