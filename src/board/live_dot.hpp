// How fresh the board is, in a pill.
#pragma once

#include <string>

#include "platform/ports/calendar.hpp"
#include "store/store.hpp"

namespace vellix {

struct LiveDotView {
  std::string text;
  std::string icon;  // empty while it spins
  std::string tone;
  bool spinning = false;
  std::string help;
  bool operator==(const LiveDotView&) const = default;
};
BOOST_DESCRIBE_STRUCT(LiveDotView, (), (text, icon, tone, spinning, help))

LiveDotView liveDot(const Store& store, Moment now, const Calendar& calendar);

}  // namespace vellix
