// The head of a person's page, and where its figures come from.
#pragma once

#include <optional>
#include <string>

#include "pieces/avatar.hpp"
#include "pieces/vocabulary.hpp"
#include "store/store.hpp"

namespace vellix {

struct ProfileHeadView {
  std::string email;
  AvatarView avatar;  // its colour is that of the whole page
  std::string ink;    // what is read on that colour, "#rrggbb"; empty with it
  std::string name;
  std::optional<PillView> here;
  std::string changePhoto;  // on its button; empty on the pages of others
  bool changing = false;    // a photo is on its way
  std::string adding;       // said in place of the figures until they are there
  bool operator==(const ProfileHeadView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ProfileHeadView, (),
                      (email, avatar, ink, name, here, changePhoto, changing, adding))

// What stands around the rows of the page; all but the open tickets empty without figures.
struct ProfileWordsView {
  std::string open;        // over the open tickets
  std::string noneOpen;    // in their place
  std::string noIssues;    // in the place of the bars
  std::string milestones;  // over them
  bool operator==(const ProfileWordsView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ProfileWordsView, (), (open, noneOpen, noIssues, milestones))

// Dark on a light colour, "#rrggbb", and light on a dark one. Nothing on none.
std::string inkOn(const std::string& color);

// Who is not, or no longer, on the board goes by the address.
ProfileHeadView profileHead(const Store& store, const std::string& email, Moment now);

// Null when the service has told none of that person. Owned by the Store.
const PersonStats* figuresOf(const Store& store, const std::string& email);

}  // namespace vellix
