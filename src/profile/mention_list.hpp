// The notes that a person was tagged in.
#pragma once

#include <string>
#include <vector>

#include "pieces/avatar.hpp"
#include "platform/ports/calendar.hpp"
#include "store/store.hpp"

namespace vellix {

struct MentionView {
  std::string key;     // made from all that is told of it: a note has no other here
  std::string ticket;  // its id; empty when the board has no such ticket, and nothing opens
  AvatarView avatar;   // of who wrote it
  std::string who;
  std::string text;
  std::string when;
  std::string where;   // the ticket and the page in it; empty without a ticket
  std::string spoken;  // what a screen reader says of it
  bool operator==(const MentionView&) const = default;
};
BOOST_DESCRIBE_STRUCT(MentionView, (), (key, ticket, avatar, who, text, when, where, spoken))

// In the order of the list. What is told twice stands there twice, under two keys.
std::vector<MentionView> mentionList(const Store& store, const std::vector<Mention>& mentions,
                                     Moment now, const Calendar& calendar);

}  // namespace vellix
