#include "profile/on_time_ring.hpp"

#include "profile/counts.hpp"

namespace vellix {

OnTimeRingView onTimeRing(const std::optional<Int>& rate) {
  OnTimeRingView ring{.fraction = fractionOf(rate.value_or(0), 100),
                      .value = rate ? std::to_string(*rate) + "%" : std::string{kNoFigure},
                      .label = "On time",
                      .note = "Reviewed within 48 hours of coming in, or the same day when urgent.",
                      .spoken = {}};
  ring.spoken = ring.label + ": " + (rate ? ring.value : std::string{kNoFigureSpoken});
  return ring;
}

}  // namespace vellix
