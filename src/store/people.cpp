#include "store/people.hpp"

#include <algorithm>

#include "records/letter_case.hpp"
#include "records/words.hpp"

namespace vellix {
namespace {

constexpr double kPresence = 720'000;  // milliseconds
constexpr std::string_view kReprintsMailbox = "jorvas";

std::string firstWord(const std::string& name) {
  return Person{.email = {}, .name = name}.firstName();
}

const Guest* outsider(const BoardState& board, const std::string& email) {
  for (const auto* list : {&board.approvers, &board.guests}) {
    if (!*list) continue;
    const auto found = std::ranges::find(**list, email, &Guest::email);
    if (found != (*list)->end()) return &*found;
  }
  return nullptr;
}

}  // namespace

bool isHere(const Person& person, Moment now) {
  return wireOf(now) - kPresence < person.last_seen.value_or(0);
}

bool handlesReprints(std::string_view email) { return email.starts_with(kReprintsMailbox); }

std::string personName(const Store& store, const std::string& email) {
  if (!store.board()) return email;
  const auto& users = store.board()->users;
  const auto person = std::ranges::find(users, email, &Person::email);
  return person == users.end() || !hasWords(person->name) ? email : person->name;
}

std::string displayName(const Store& store, const std::optional<std::string>& email) {
  if (!hasWords(email)) return std::string{kWorker};
  if (const auto& board = store.board()) {
    if (*email == board->me.email) return "You";
    const auto person = std::ranges::find(board->users, *email, &Person::email);
    if (person != board->users.end() && hasWords(person->name)) return person->firstName();
    if (const Guest* guest = outsider(*board, *email)) return firstWord(guest->shownName());
  }
  return capitalised(email->substr(0, email->find('@')));
}

std::string joinNames(const Store& store, const std::vector<std::string>& emails) {
  std::string names;
  for (std::size_t i = 0; i < emails.size(); ++i) {
    if (i > 0) names += i + 1 == emails.size() ? " and " : ", ";
    names += displayName(store, emails[i]);
  }
  return names;
}

}  // namespace vellix
