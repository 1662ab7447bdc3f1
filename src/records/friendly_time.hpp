// How long ago something was, in words.
#pragma once

#include <string>

#include "platform/ports/calendar.hpp"

namespace vellix {

std::string friendlyTime(Moment date, Moment now, const Calendar& calendar);

}  // namespace vellix
