// When a ticket's review is due: the button in its header, and what stands in the button's popover.
#pragma once

#include "board/due_dates.hpp"
#include "pieces/date_picker.hpp"
#include "store/store.hpp"

namespace vellix {

struct DueButtonView {
  std::string text;                 // of the chip, or in its place
  std::optional<DueChipView> chip;  // none: the text alone
  bool urgent = false;
  double earliest = 0;  // of what can be picked, to the minute; milliseconds since 1970
  double latest = 0;
  std::string late;  // in place of the picker, when there is nothing left to pick
  std::string explanation;
  std::string setBy;
  bool busy = false;
  bool operator==(const DueButtonView&) const = default;
};
BOOST_DESCRIBE_STRUCT(DueButtonView, (),
                      (text, chip, urgent, earliest, latest, late, explanation, setBy, busy))

DueButtonView dueButton(const Store& store, const FileItem& file, Moment now,
                        const Calendar& calendar);

// What the picker begins with.
Moment firstPick(const FileItem& file, Moment now);
// What is set, when `pick` is left for so long that it may have passed.
Moment dueToSet(const FileItem& file, Moment pick, Moment now);

}  // namespace vellix
