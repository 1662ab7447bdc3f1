#include "compare/marks.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vellix {
namespace {

constexpr double kMargin = 3;        // around a finding's rectangle, on each side
constexpr double kSmallestMark = 8;  // logical pixels
constexpr double kReach = 24;        // further outside a page than anything is shown
constexpr double kClick = 6;         // a shorter drag in both directions is a click

double fraction(double at, double whole) {
  return whole > 0 ? std::clamp(at / whole, 0.0, 1.0) : 0;
}

}  // namespace

Box boxMark(const Box& box, Extent picture) {
  return {box.x * picture.width - kMargin, box.y * picture.height - kMargin,
          std::max(box.width * picture.width + 2 * kMargin, kSmallestMark),
          std::max(box.height * picture.height + 2 * kMargin, kSmallestMark)};
}

Box areaMark(const Box& area, Extent picture) {
  const double width = std::max(area.width * picture.width, kSmallestMark);
  const double height = std::max(area.height * picture.height, kSmallestMark);
  return {(area.x + area.width / 2) * picture.width - width / 2,
          (area.y + area.height / 2) * picture.height - height / 2, width, height};
}

Box inSight(const Box& mark, Extent picture) {
  const auto cut = [](double from, double length, double room) {
    const double first = std::clamp(from, -kReach, room + kReach);
    return std::pair{first,
                     std::max(std::clamp(from + length, -kReach, room + kReach) - first, 1.0)};
  };
  const auto [x, width] = cut(mark.x, mark.width, picture.width);
  const auto [y, height] = cut(mark.y, mark.height, picture.height);
  return {x, y, width, height};
}

std::vector<Box> boxesOn(const std::optional<std::string>& role, const Finding& finding) {
  if (!role || !finding.ref_box) return boxesOf(finding);
  const auto box = boxOf(finding.ref_box);
  return box ? std::vector{*box} : std::vector<Box>{};
}

std::vector<Box> boxesOf(const Finding& finding) {
  std::vector<Box> boxes;
  if (!finding.boxes || finding.boxes->empty()) {
    if (const auto box = boxOf(finding.box)) boxes.push_back(*box);
    return boxes;
  }
  for (const auto& numbers : *finding.boxes) {
    if (const auto box = boxOf(numbers)) boxes.push_back(*box);
  }
  return boxes;
}

Box between(Spot one, Spot other) {
  return {std::min(one.x, other.x), std::min(one.y, other.y), std::abs(one.x - other.x),
          std::abs(one.y - other.y)};
}

DraftNote drawn(Spot from, Spot to, Extent picture) {
  const Box drag = between(from, to);
  DraftNote note;
  if (drag.width < kClick && drag.height < kClick) {
    note.x = fraction(from.x, picture.width);
    note.y = fraction(from.y, picture.height);
    return note;
  }
  note.x = fraction(drag.x, picture.width);
  note.y = fraction(drag.y, picture.height);
  // Not shortened where it leaves the page: x + w may pass 1.
  note.w = fraction(drag.width, picture.width);
  note.h = fraction(drag.height, picture.height);
  return note;
}

}  // namespace vellix
