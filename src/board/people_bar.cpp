#include "board/people_bar.hpp"

#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

std::string labelOf(const Person& person, const Me& me) {
  if (person.email == me.email) return "Your page and stats";
  const std::string first = person.firstName();
  return (hasWords(first) ? first : person.email) + "'s page and stats";
}

}  // namespace

std::vector<PersonView> peopleBar(const Store& store, Moment now) {
  std::vector<PersonView> people;
  if (!store.board()) return people;
  for (const auto& person : store.board()->users) {
    people.push_back({.email = person.email,
                      .avatar = avatarOf(person.email, store),
                      .label = labelOf(person, store.board()->me),
                      .ring = store.profile() == person.email,
                      .here = isHere(person, now)});
  }
  return people;
}

void togglePage(Store& store, const std::string& email) {
  const bool open = store.profile() == email;
  store.openProfile(open ? std::nullopt : std::optional{email});
}

}  // namespace vellix
