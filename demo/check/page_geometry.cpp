#include "page_geometry.hpp"

#include <algorithm>
#include <limits>

namespace vellix::demo {
namespace {

constexpr double kElsewhere = -1;

bool sideBySide(const QRectF& one, const QRectF& other) {
  const double common = std::min(one.bottom(), other.bottom()) - std::max(one.top(), other.top());
  return common > std::min(one.height(), other.height()) / 2;
}

bool oneOverTheOther(const QRectF& one, const QRectF& other) {
  return std::min(one.right(), other.right()) > std::max(one.left(), other.left());
}

// From the middle of one to that of the other, as far as that lies in this direction.
double ahead(double from, double to) { return to > from ? to - from : kElsewhere; }

}  // namespace

PageGeometry::PageGeometry(const Flow& flow, std::size_t pages) : flow_(flow), pages_(pages) {
  for (std::size_t i = 0; i < flow.size(); ++i) {
    pages_[flow[i].first.page].push_back(static_cast<std::uint32_t>(i));
  }
}

std::optional<std::uint32_t> PageGeometry::nearest(std::size_t word, const auto& distance) const {
  const FlowPart& from = flow_[word].first;
  std::optional<std::uint32_t> found;
  double least = std::numeric_limits<double>::max();
  for (const std::uint32_t other : pages_[from.page]) {
    const QRectF& box = flow_[other].first.box;
    if (other == word || box.isEmpty()) continue;
    const double far = distance(from.box, box);
    if (far <= 0 || far >= least) continue;
    least = far;
    found = other;
  }
  return found;
}

std::optional<std::uint32_t> PageGeometry::left(std::size_t word) const {
  return nearest(word, [](const QRectF& from, const QRectF& to) {
    return sideBySide(from, to) ? ahead(-from.center().x(), -to.center().x()) : kElsewhere;
  });
}

std::optional<std::uint32_t> PageGeometry::right(std::size_t word) const {
  return nearest(word, [](const QRectF& from, const QRectF& to) {
    return sideBySide(from, to) ? ahead(from.center().x(), to.center().x()) : kElsewhere;
  });
}

std::optional<std::uint32_t> PageGeometry::above(std::size_t word) const {
  return nearest(word, [](const QRectF& from, const QRectF& to) {
    return oneOverTheOther(from, to) && !sideBySide(from, to)
               ? ahead(-from.center().y(), -to.center().y())
               : kElsewhere;
  });
}

std::optional<std::uint32_t> PageGeometry::below(std::size_t word) const {
  return nearest(word, [](const QRectF& from, const QRectF& to) {
    return oneOverTheOther(from, to) && !sideBySide(from, to)
               ? ahead(from.center().y(), to.center().y())
               : kElsewhere;
  });
}

}  // namespace vellix::demo
