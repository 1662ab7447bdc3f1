#include "compare/crop.hpp"

#include <algorithm>
#include <cmath>

namespace vellix {
namespace {

constexpr double kCaption = 18;  // under the frame
constexpr double kMargin = 3;    // around a rectangle
constexpr double kBetween = 12;  // two crops

// No page is a thousand times as long as it is wide.
double shapeOf(double aspect) {
  return std::isfinite(aspect) && aspect > 0 ? std::clamp(aspect, 0.001, 1'000.0) : 1;
}

}  // namespace

Box cropAround(const std::optional<Box>& box, double aspect) {
  if (!box) return {0, 0, 1, 1};
  const double wanted = std::max(box->width * 1.9, 0.34);
  // No flatter than 2.6 to 1.
  const double high = std::max(box->height * 2.4, shapeOf(aspect) * wanted / 2.6);
  const double width = std::min(wanted, 1.0);
  const double height = std::min(high, 1.0);
  return {std::clamp(box->x + box->width / 2 - width / 2, 0.0, 1 - width),
          std::clamp(box->y + box->height / 2 - height / 2, 0.0, 1 - height), width, height};
}

CropLayout cropLayout(const Box& part, const std::vector<Box>& boxes, double aspect, Extent place) {
  const double shape = shapeOf(aspect);
  const double room = std::max(place.height - kCaption, 1.0);
  // The width of the whole page.
  const double scale =
      std::max(std::min(place.width / part.width, shape * room / part.height), 1.0);
  const double high = scale / shape;
  CropLayout layout{
      .frame = {(place.width - part.width * scale) / 2, (room - part.height * high) / 2,
                part.width * scale, part.height * high},
      .page = {-part.x * scale, -part.y * high, scale, high}};
  for (const Box& box : boxes) {
    layout.marks.push_back({scale * (box.x - part.x) - kMargin, high * (box.y - part.y) - kMargin,
                            scale * box.width + 2 * kMargin, high * box.height + 2 * kMargin});
  }
  return layout;
}

Extent cropPlace(double width, std::size_t crops) {
  const auto count = static_cast<double>(std::max<std::size_t>(crops, 1));
  const double each = (width - (count - 1) * kBetween) / count;
  return {each, std::clamp(each / 2.4 + 20, 120.0, 220.0)};
}

}  // namespace vellix
