// Days and their words, in the user's time zone and locale.
#pragma once

#include <string>

#include "platform/ports/moment.hpp"

namespace vellix {

class Calendar {
 public:
  virtual ~Calendar() = default;
  // Days since 1 January 1970 of the calendar day that the moment falls on.
  virtual int dayOf(Moment moment) const = 0;
  virtual std::string shortTime(Moment moment) const = 0;
  virtual std::string weekday(Moment moment) const = 0;
  virtual std::string shortWeekday(Moment moment) const = 0;
  virtual std::string monthAndDay(Moment moment) const = 0;  // abbreviated month, day of month
};

}  // namespace vellix
