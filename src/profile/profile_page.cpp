#include "profile/profile_page.hpp"

#include <algorithm>

#include "store/people.hpp"

namespace vellix {
namespace {

std::optional<PillView> herePill(const BoardState& board, const std::string& email, Moment now) {
  const auto person = std::ranges::find(board.users, email, &Person::email);
  if (person == board.users.end() || !isHere(*person, now)) return std::nullopt;
  return PillView{.text = "In Vellix now", .icon = "circle.fill", .tone = "green"};
}

}  // namespace

ProfileHeadView profileHead(const Store& store, const std::string& email, Moment now) {
  ProfileHeadView view{.email = email,
                       .avatar = avatarOf(email, store),
                       .name = personName(store, email),
                       .here = {},
                       .changePhoto = {},
                       .changing = store.busy().contains("photo"),
                       .adding = figuresOf(store, email) ? "" : "Adding it up…"};
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
