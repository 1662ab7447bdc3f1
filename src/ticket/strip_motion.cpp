#include "ticket/strip_motion.hpp"

#include <cmath>

namespace vellix {
namespace {

bool shows(StripMotion::Span page, double y, double height) {
  return page.top > y - 1 && page.bottom < y + height + 1;
}

}  // namespace

void StripMotion::scroll(double y, double height) {
  if (!placing_ && std::abs(y - y_) > height / 2) rushing_ = true;
  y_ = y;
}

bool StripMotion::resize(double height, double y, std::optional<Span> current, bool gliding) {
  const bool first = height_ <= 0;
  const bool shown = current && shows(*current, y, height_);
  height_ = height;
  return !gliding && (first || shown);
}

bool glides(double from, double to, double height, bool wanted) {
  return wanted && std::abs(to - from) <= height;
}

}  // namespace vellix
