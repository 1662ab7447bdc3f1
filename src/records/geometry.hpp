// Rectangles, points and sizes.
#pragma once

#include <boost/describe.hpp>
#include <optional>
#include <vector>

namespace vellix {

// Sizes in logical pixels.
struct Extent {
  double width = 0;
  double height = 0;
  bool operator==(const Extent&) const = default;
};
BOOST_DESCRIBE_STRUCT(Extent, (), (width, height))

// Logical pixels.
struct Spot {
  double x = 0;
  double y = 0;
  bool operator==(const Spot&) const = default;
};
BOOST_DESCRIBE_STRUCT(Spot, (), (x, y))

// A rectangle in logical pixels, or in fractions of a page's width and height where that is said.
struct Box {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  bool operator==(const Box&) const = default;
};
BOOST_DESCRIBE_STRUCT(Box, (), (x, y, width, height))

// The wire's rectangle: x, y, w, h as fractions of the page. None unless it is four finite numbers.
std::optional<Box> boxOf(const std::optional<std::vector<double>>& numbers);

}  // namespace vellix
