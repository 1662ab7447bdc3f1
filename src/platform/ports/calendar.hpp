// Days and their words, in the user's time zone and locale.
#pragma once

#include <string>

#include "platform/ports/moment.hpp"

namespace vellix {

// A minute as the clock on the wall tells it.
struct WallTime {
  int day = 0;  // as dayOf() tells it
  int hour = 0;
  int minute = 0;
  bool operator==(const WallTime&) const = default;
};

class Calendar {
 public:
  virtual ~Calendar() = default;
  // Days since 1 January 1970 of the calendar day that the moment falls on.
  virtual int dayOf(Moment moment) const = 0;
  virtual std::string shortTime(Moment moment) const = 0;
  virtual std::string weekday(Moment moment) const = 0;
  virtual std::string shortWeekday(Moment moment) const = 0;
  virtual std::string monthAndDay(Moment moment) const = 0;  // abbreviated month, day of month
  // Abbreviated date with its year, and short time.
  virtual std::string dateAndTime(Moment moment) const = 0;

  virtual WallTime wallTime(Moment moment) const = 0;
  // The beginning of that minute. Where the clocks jump over it, as much later as they jump; where
  // it comes twice, the first.
  virtual Moment momentAt(const WallTime& time) const = 0;
  // What the two halves of the day are called; empty where the hours go on to 24.
  virtual std::string halfOfDay(bool afternoon) const = 0;
};

}  // namespace vellix
