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
  std::string name;
  std::optional<PillView> here;
  std::string changePhoto;  // on its button; empty on the pages of others
  bool changing = false;    // a photo is on its way
  std::string adding;       // said in place of the figures until they are there
  bool operator==(const ProfileHeadView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ProfileHeadView, (),
                      (email, avatar, name, here, changePhoto, changing, adding))

// Who is not, or no longer, on the board goes by the address.
ProfileHeadView profileHead(const Store& store, const std::string& email, Moment now);

// Null when the service has told none of that person. Owned by the Store.
const PersonStats* figuresOf(const Store& store, const std::string& email);

}  // namespace vellix
