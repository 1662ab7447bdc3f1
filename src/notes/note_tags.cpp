#include "notes/note_tags.hpp"

#include <algorithm>

#include "pieces/avatar.hpp"
#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {

std::vector<TagChipView> tagChips(const Store& store, const std::vector<std::string>& tags) {
  std::vector<TagChipView> chips;
  chips.reserve(tags.size());
  for (const auto& email : tags) {
    if (!hasWords(email)) continue;
    chips.push_back({email, personName(store, email), avatarOf(email, store).color});
  }
  return chips;
}

std::vector<TagEntryView> tagEntries(const Store& store, const std::vector<std::string>& tags) {
  std::vector<TagEntryView> entries;
  if (!store.board()) return entries;
  for (const Person& person : store.board()->users) {
    if (person.email == store.board()->me.email) continue;
    const std::string first = person.firstName();
    const std::string& shortName = !hasWords(first) ? person.email : first;
    const bool tagged = std::ranges::find(tags, person.email) != tags.end();
    entries.push_back({.key = person.email,
                       .text = shortName,
                       .checked = tagged,
                       .help = tagged ? "Tagged" : "Tag " + shortName});
  }
  return entries;
}

std::vector<std::string> withTagPressed(std::vector<std::string> tags, const std::string& email) {
  if (std::erase(tags, email) == 0) tags.push_back(email);
  return tags;
}

}  // namespace vellix
