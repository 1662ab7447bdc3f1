// Words that tell how long ago something was hold for a minute. Main thread only.
#pragma once

#include <cmath>

#include "platform/ports/moment.hpp"

namespace vellix {

class Minute {
 public:
  void begin(Moment now) { minute_ = of(now); }
  bool over(Moment now) const { return of(now) != minute_; }

 private:
  static double of(Moment moment) { return std::floor(wireOf(moment) / 60'000); }

  double minute_ = 0;
};

}  // namespace vellix
