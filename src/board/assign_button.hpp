// Who reviews a ticket: the button in its header, and the choices in the button's popover.
#pragma once

#include <vector>

#include "pieces/avatar.hpp"

namespace vellix {

struct ReviewerView {
  std::string email;
  AvatarView avatar;
  std::string name;
  std::string usually;
  bool chosen = false;
  bool operator==(const ReviewerView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ReviewerView, (), (email, avatar, name, usually, chosen))

struct AssignButtonView {
  std::string text;
  std::optional<AvatarView> avatar;  // none: nobody reviews it
  std::vector<ReviewerView> people;  // in the board's order
  std::string move;                  // to the other queue
  bool busy = false;
  bool operator==(const AssignButtonView&) const = default;
};
BOOST_DESCRIBE_STRUCT(AssignButtonView, (), (text, avatar, people, move, busy))

AssignButtonView assignButton(const Store& store, const FileItem& file);

// A press on a person's row. The present reviewer is not assigned again.
void chooseReviewer(Store& store, const FileItem& file, const std::string& email);
void moveToOtherQueue(Store& store, const FileItem& file);

}  // namespace vellix
