// Zooming by hand: a pinch, or the wheel with the Command key. Main thread only.
#pragma once

#include <optional>

#include "store/store.hpp"

namespace vellix {

class HandZoom {
 public:
  // The Store must outlive it.
  explicit HandZoom(Store& store) : store_(store) {}

  // A magnification since the pinch began; the smallest ones are no pinch yet.
  void pinch(double magnification);
  void endPinch() { start_.reset(); }
  // By so many notches of a wheel.
  void wheel(double notches);

  // The zoom is where a hand has brought it. Once something else has moved it, it no longer is.
  bool holds();

 private:
  Store& store_;
  std::optional<double> start_;    // zoom at which the pinch began
  std::optional<double> brought_;  // zoom where a hand has brought it
};

}  // namespace vellix
