#include "compare/draft_place.hpp"

#include <algorithm>

namespace vellix {
namespace {

constexpr double kFromMark = 12;
constexpr double kFromEdge = 6;  // of the picture, or of the stage
constexpr double kHalfWidth = kDraftCard.width / 2;
constexpr double kHalfHeight = kDraftCard.height / 2;

// The lower bound wins.
double heldIn(double at, double length, double room) {
  return std::max(std::min(at, room - length - kFromEdge), kFromEdge);
}

}  // namespace

Spot draftCardCentre(const Box& mark, Extent picture) {
  const double width = picture.width;
  const double height = picture.height;
  double y = height * (mark.y + mark.height) + kFromMark + kHalfHeight;
  if (height - kFromEdge < y + kHalfHeight) {
    y = height * mark.y - kFromMark - kHalfHeight;
    if (y - kHalfHeight < kFromEdge) {
      y = std::min(std::max(height / 2, kHalfHeight + kFromEdge), height - kHalfHeight - kFromEdge);
    }
  }
  constexpr double kLeast = kHalfWidth + kFromEdge;
  if (width < 2 * kLeast) return {width / 2, y};
  const double middle = width * (mark.x + mark.x + mark.width) / 2;
  return {std::max(std::min(middle, width - kLeast), kLeast), y};
}

Spot draftCardCorner(const Box& mark, const Box& page, Extent stage) {
  const Spot centre = draftCardCentre(mark, {page.width, page.height});
  return {heldIn(page.x + centre.x - kHalfWidth, kDraftCard.width, stage.width),
          heldIn(page.y + centre.y - kHalfHeight, kDraftCard.height, stage.height)};
}

}  // namespace vellix
