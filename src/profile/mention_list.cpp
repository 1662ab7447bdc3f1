#include "profile/mention_list.hpp"

#include <map>

#include "approval/sheet_ticket.hpp"
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

}  // namespace

std::vector<MentionView> mentionList(const Store& store, const std::vector<Mention>& mentions,
                                     Moment now, const Calendar& calendar) {
  std::vector<MentionView> rows;
  rows.reserve(mentions.size());
  std::map<std::string, int> told;  // how often
  for (const Mention& mention : mentions) {
    std::string key = keyOf(mention);
    if (const int again = told[key]++; again > 0) key += "#" + std::to_string(again);
    const FileItem* file = ticketOnBoard(store, mention.file_id);
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
