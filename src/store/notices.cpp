// What tells the user of others' doings: one toast a poll, and the badge on the icon.
#include <algorithm>

#include "records/words.hpp"

#include "store/store.hpp"

namespace vellix {
namespace {

// The full name; everywhere else a person goes by the first.
std::string personName(const std::string& email, const BoardState& board) {
  const auto found = std::ranges::find(board.users, email, &Person::email);
  return found == board.users.end() || !hasWords(found->name) ? email : found->name;
}

std::string without(std::string text, const std::string& part) {
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at)) {
    text.erase(at, part.size());
  }
  return text;
}

// The worker's own doings are told in their own words.
bool ofTheWorker(const std::string& kind) {
  return kind == "synced" || kind == "new_file" || kind == "report_ready";
}

std::string noticeText(const Event& event, const BoardState& board) {
  const std::string who = hasWords(event.by) ? personName(*event.by, board) : "Vellix";
  const std::string tagged = "Tagged " + board.me.name;
  if (event.kind == "tag" && event.text && event.text->starts_with(tagged)) {
    return who + " tagged you: " + without(*event.text, tagged + ": ");
  }
  if (hasWords(event.by) && !ofTheWorker(event.kind)) {
    return who + ": " + wordsOr(event.text, "made a change");
  }
  return wordsOr(event.text, "Something new came in.");
}

}  // namespace

Int Store::openCount() const {
  if (!board()) return 0;
  return std::ranges::count_if(board()->files, [this](const FileItem& file) {
    return file.status != "reviewed" && file.assignee == board()->me.email;
  });
}

// However many events are new, only the newest is told.
void Store::noticeNewEvents(const BoardState& fresh) {
  const Int seen = seenEvent;
  seenEvent = std::max(seen, fresh.events.empty() ? 0 : fresh.events.front().id);
  // The first board of a run brings only what happened before.
  if (seen <= 0 || !prefs.liveToasts()) return;
  const auto news = std::ranges::find_if(fresh.events, [&](const Event& event) {
    return event.id > seen && event.by != fresh.me.email && momentOf(event.at) > started;
  });
  if (news != fresh.events.end()) toast.set(Toast{noticeText(*news, fresh)});
}

void Store::updateBadge() {
  const Int count = prefs.dockBadge() ? openCount() : 0;
  ports_.badge.show(count > 0 ? std::optional{count} : std::nullopt);
}

}  // namespace vellix
