#include "profile/profile_page.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "store/people.hpp"

namespace vellix {
namespace {

std::optional<PillView> herePill(const BoardState& board, const std::string& email, Moment now) {
  const auto person = std::ranges::find(board.users, email, &Person::email);
  if (person == board.users.end() || !isHere(*person, now)) return std::nullopt;
  return PillView{.text = "In Vellix now", .icon = "circle.fill", .tone = "green"};
}

// Where a drawing in white is no clearer than one in ink.
constexpr double kHalfLight = 0.35;

// One of the three channels, as the eye takes it, from 0 to 1.
double lightOf(const std::string& color, std::size_t at) {
  int value = 0;
  std::from_chars(color.data() + at, color.data() + at + 2, value, 16);
  return std::pow(value / 255.0, 2.2);
}

}  // namespace

std::string inkOn(const std::string& color) {
  if (color.size() != 7) return {};
  const double light =
      0.2126 * lightOf(color, 1) + 0.7152 * lightOf(color, 3) + 0.0722 * lightOf(color, 5);
  return light > kHalfLight ? "#1d1917" : "#ffffff";
}

ProfileHeadView profileHead(const Store& store, const std::string& email, Moment now) {
  ProfileHeadView view{.email = email,
                       .avatar = avatarOf(email, store),
                       .ink = {},
                       .name = personName(store, email),
                       .here = {},
                       .changePhoto = {},
                       .changing = store.busy().contains("photo"),
                       .adding = {}};
  // Without a board nobody knows what is open.
  if (!store.board() || !figuresOf(store, email)) view.adding = "Adding it up…";
  view.ink = inkOn(view.avatar.color);
  if (const auto& board = store.board()) {
    view.here = herePill(*board, email, now);
    if (board->me.email == email) view.changePhoto = "Change my photo";
  }
  return view;
}

const PersonStats* figuresOf(const Store& store, const std::string& email) {
  if (!store.stats()) return nullptr;
  const auto found = store.stats()->users.find(email);
  return found == store.stats()->users.end() ? nullptr : &found->second;
}

}  // namespace vellix
