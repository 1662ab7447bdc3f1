#include "board/activity.hpp"

#include <algorithm>

#include "board/file_list.hpp"
#include "records/friendly_time.hpp"
#include "records/letter_case.hpp"
#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

// The worker tells of these, as a heading does rather than as somebody who acts.
bool isTold(const std::string& kind) {
  return kind == "synced" || kind == "new_file" || kind == "report_ready";
}

std::string sentence(const std::string& kind, const std::string& text) {
  static constexpr std::string_view kLowered[] = {"finding", "status", "report", "stop",
                                                  "assign",  "due",    "track"};
  if (kind == "comment") return "left a note: “" + text + "”";
  if (std::ranges::find(kLowered, kind) != std::end(kLowered)) return lowered(text);
  if (kind == "sync") return "started a sync";
  if (kind == "synced" || kind == "new_file") return "· " + text;
  if (kind == "report_ready") return "· Report ready";
  if (kind == "signin") return "signed in";
  if (kind == "photo") return "changed their photo";
  if (kind == "resolve") return "resolved a note";
  return text;
}

Int heldPage(Int page) { return std::max<Int>(page, 0); }

}  // namespace

std::string placeOf(const FileItem& file, const std::optional<Int>& page) {
  // Pages are counted from 0, and told from 1.
  return file.heading() + (page ? " · p" + Page{.i = heldPage(*page)}.name() : "");
}

std::vector<ActivityRow> activity(const Store& store, Moment now, const Calendar& calendar) {
  std::vector<ActivityRow> rows;
  if (!store.board()) return rows;
  rows.reserve(store.board()->events.size());
  for (const Event& event : store.board()->events) {
    ActivityRow row{.key = std::to_string(event.id),
                    .avatar = avatarOf(event.by, store),
                    .said = sentence(event.kind, wordsOf(event.text)),
                    .when = friendlyTime(momentOf(event.at), now, calendar)};
    const bool named = hasWords(event.by);
    if (named || !isTold(event.kind)) row.who = displayName(store, event.by);
    row.spoken = row.who + (row.who.empty() || row.said.empty() ? "" : " ") + row.said;
    const FileItem* ticket = event.file_id ? store.board()->files.find(*event.file_id) : nullptr;
    if (ticket) row.where = placeOf(*ticket, event.page);
    rows.push_back(std::move(row));
  }
  return rows;
}

bool openEvent(Store& store, const std::string& key) {
  if (!store.board()) return false;
  const auto& events = store.board()->events;
  const auto event =
      std::ranges::find(events, key, [](const Event& one) { return std::to_string(one.id); });
  if (event == events.end() || !event->file_id) return false;
  const std::string id = *event->file_id;
  const auto page = event->page;
  if (!store.board()->files.find(id)) return false;
  store.select({id});
  if (page) store.goToPage(id, heldPage(*page));
  return true;
}

}  // namespace vellix
