// Moments as the service tells them: milliseconds since 1970, in the machine's time zone.
#pragma once

namespace vellix::demo {

inline constexpr double kMinute = 60'000;
inline constexpr double kHour = 60 * kMinute;
inline constexpr double kDay = 24 * kHour;

double nowMs();
// `hour`:`minute` local time of the day that is `days` after the day of `now`.
double atLocal(double now, int days, int hour, int minute);

// The local day of a moment: 0 is 1 January 1970, whatever the clocks were moved by.
long localDay(double at);

}  // namespace vellix::demo
