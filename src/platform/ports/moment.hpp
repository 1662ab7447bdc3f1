// A point in time, in milliseconds since 1 January 1970 UTC, as the service counts it.
#pragma once

#include <chrono>

namespace vellix {

using Milliseconds = std::chrono::duration<double, std::milli>;
using Moment = std::chrono::time_point<std::chrono::system_clock, Milliseconds>;

inline Moment momentOf(double wire) { return Moment{Milliseconds{wire}}; }
inline double wireOf(Moment moment) { return moment.time_since_epoch().count(); }
inline double secondsBetween(Moment earlier, Moment later) {
  return (later - earlier).count() / 1000.0;
}

}  // namespace vellix
