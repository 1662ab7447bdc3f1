#include "board/people_bar.hpp"

#include "store/people.hpp"

namespace vellix {

std::vector<PersonView> peopleBar(const Store& store, Moment now) {
  std::vector<PersonView> people;
  if (!store.board()) return people;
  for (const auto& person : store.board()->users) {
    people.push_back({.email = person.email,
                      .avatar = avatarOf(person.email, store),
                      .ring = store.profile() == person.email,
                      .here = isHere(person, now)});
  }
  return people;
}

}  // namespace vellix
