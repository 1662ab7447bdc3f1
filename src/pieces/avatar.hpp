// A person as a circle: the letter, the colour and the photo that stand for an address everywhere.
#pragma once

#include <optional>
#include <string>

#include "store/store.hpp"

namespace vellix {

struct AvatarView {
  std::string letter;  // one character as it was written; it is drawn as a capital
  std::string color;   // "#rrggbb", or empty for the muted default
  std::string photo;   // blob key; empty when there is none
  std::string help;
  bool operator==(const AvatarView&) const = default;
};
BOOST_DESCRIBE_STRUCT(AvatarView, (), (letter, color, photo, help))

// No address stands for the worker on the Mac mini.
AvatarView avatarOf(const std::optional<std::string>& email, const Store& store);

}  // namespace vellix
