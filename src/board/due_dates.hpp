// A due date in words, long, short and tiny.
#pragma once

#include <optional>
#include <string>

#include "platform/ports/calendar.hpp"
#include "records/records.hpp"

namespace vellix {

std::string dueText(Moment date, Moment now, const Calendar& calendar);
std::string dueTextShort(Moment date, Moment now, const Calendar& calendar);
std::string dueTextTiny(Moment date, Moment now, const Calendar& calendar);

struct DueChipView {
  std::string text;  // the longest that fits of the three is shown
  std::string shortText;
  std::string tinyText;
  std::string icon;
  std::string tone;
  bool operator==(const DueChipView&) const = default;
};
BOOST_DESCRIBE_STRUCT(DueChipView, (), (text, shortText, tinyText, icon, tone))

// The seconds from now on in which neither what these say nor the tone of the chip changes, if the
// day does not.
double dueSteadyFor(Moment date, Moment now);

// None for a ticket that is reviewed or has no due date.
std::optional<DueChipView> dueChip(const FileItem& file, Moment now, const Calendar& calendar);

}  // namespace vellix
