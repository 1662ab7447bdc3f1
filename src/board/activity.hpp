// Who did what: the board's events, each as one line.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "pieces/avatar.hpp"
#include "platform/ports/calendar.hpp"

namespace vellix {

struct ActivityRow {
  std::string key;  // the event's id
  AvatarView avatar;
  std::string who;  // may be empty
  std::string said;
  std::string when;
  std::string where;   // the ticket and the page in it; empty when the board has no such ticket
  std::string spoken;  // who and what in one
  bool operator==(const ActivityRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(ActivityRow, (), (key, avatar, who, said, when, where, spoken))

// In the board's order; none without a board.
std::vector<ActivityRow> activity(const Store& store, Moment now, const Calendar& calendar);

// The ticket, and the page in it as people count. What lies before the first page is the first.
std::string placeOf(const FileItem& file, const std::optional<Int>& page);

// Selects the event's ticket alone and goes to its page. False when the board has no such ticket.
bool openEvent(Store& store, const std::string& key);

}  // namespace vellix
