#include "profile/mention_list.hpp"

#include <map>
#include <string_view>
#include <unordered_map>

#include "board/activity.hpp"
#include "records/friendly_time.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

// Lengths stand in front of the texts, so that no two mentions run together into one key.
std::string keyOf(const Mention& mention) {
  std::string key;
  for (const auto* text : {&mention.file_id, &mention.by, &mention.text}) {
    key += std::to_string(text->size()) + ":" + *text;
  }
  return key + (mention.page ? std::to_string(*mention.page) : "") + "@" +
         std::to_string(mention.at);
}

// Looked for in the board one by one, many mentions and many tickets would take long.
std::unordered_map<std::string_view, const FileItem*> ticketsOf(const Store& store) {
  std::unordered_map<std::string_view, const FileItem*> tickets;
  if (!store.board()) return tickets;
  for (const FileItem& file : store.board()->files) tickets.emplace(file.id, &file);
  return tickets;
}

}  // namespace

std::vector<MentionView> mentionList(const Store& store, const std::vector<Mention>& mentions,
                                     Moment now, const Calendar& calendar) {
  std::vector<MentionView> rows;
  rows.reserve(mentions.size());
  const auto tickets = ticketsOf(store);
  std::map<std::string, int> told;  // how often
  for (const Mention& mention : mentions) {
    std::string key = keyOf(mention);
    if (const int again = told[key]++; again > 0) key += "#" + std::to_string(again);
    const auto ticket = tickets.find(mention.file_id);
    const FileItem* file = ticket == tickets.end() ? nullptr : ticket->second;
    MentionView row{.key = std::move(key),
                    .ticket = file ? mention.file_id : "",
                    .avatar = avatarOf(mention.by, store),
                    .who = displayName(store, mention.by),
                    .text = mention.text,
                    .when = friendlyTime(momentOf(mention.at), now, calendar),
                    .where = file ? placeOf(*file, mention.page) : "",
                    .spoken = {}};
    row.spoken = row.who + ": " + row.text + ", " + row.when;
    if (file) row.spoken += ", " + row.where;
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace vellix
