#include "compare/hand_zoom.hpp"

#include <cmath>

namespace vellix {
namespace {

constexpr double kSmallestPinch = 0.01;

}  // namespace

void HandZoom::pinch(double magnification) {
  const bool any = std::isfinite(magnification) && magnification > 0;
  if (any && (start_ || std::abs(magnification - 1) >= kSmallestPinch)) {
    if (!start_) start_ = store_.zoom();
    store_.zoomTo(*start_ * magnification);
  }
  brought_ = store_.zoom();
}

void HandZoom::wheel(double notches) {
  store_.zoomTo(store_.zoom() * std::pow(Store::kZoomIn, notches));
  brought_ = store_.zoom();
}

bool HandZoom::holds() {
  if (brought_ != store_.zoom()) brought_.reset();
  return brought_.has_value();
}

}  // namespace vellix
