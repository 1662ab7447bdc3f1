#include "store/people.hpp"

#include <algorithm>

namespace vellix {
namespace {

constexpr double kPresence = 720'000;  // milliseconds

}  // namespace

bool isHere(const Person& person, Moment now) {
  return wireOf(now) - kPresence < person.last_seen.value_or(0);
}

std::string personName(const Store& store, const std::string& email) {
  if (!store.board()) return email;
  const auto& users = store.board()->users;
  const auto person = std::ranges::find(users, email, &Person::email);
  return person == users.end() || person->name.empty() ? email : person->name;
}

std::string authorName(const Store& store, const std::optional<std::string>& email) {
  return email && !email->empty() ? personName(store, *email) : std::string{kWorker};
}

}  // namespace vellix
