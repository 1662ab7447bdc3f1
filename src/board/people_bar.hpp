// The people at the foot of the column.
#pragma once

#include <vector>

#include "pieces/avatar.hpp"

namespace vellix {

struct PersonView {
  std::string email;
  AvatarView avatar;
  std::string label;  // of the button that the person is
  bool ring = false;  // this person's profile is open
  bool here = false;
  bool operator==(const PersonView&) const = default;
};
BOOST_DESCRIBE_STRUCT(PersonView, (), (email, avatar, label, ring, here))

// In the board's order.
std::vector<PersonView> peopleBar(const Store& store, Moment now);

// Opens that person's page, or closes it where it is open.
void togglePage(Store& store, const std::string& email);

}  // namespace vellix
