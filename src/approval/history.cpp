#include "approval/history.hpp"

#include <algorithm>
#include <array>

#include "approval/approval_round.hpp"
#include "approval/version_chips.hpp"
#include "records/friendly_time.hpp"
#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

struct KindLook {
  std::string_view kind;
  std::string_view icon;
  std::string_view tone;
};
constexpr std::array kLooks{
    KindLook{"new_file", "paperplane", "gray"},
    KindLook{"checked", "magnifyingglass", "blue"},
    KindLook{"comment", "text.bubble", "gray"},
    KindLook{"tag", "at", "gray"},
    KindLook{"finding", "exclamationmark.triangle", "gray"},
    KindLook{"status", "checkmark.circle", "gray"},
    KindLook{"assign", "person", "gray"},
    KindLook{"due", "clock", "gray"},
    KindLook{"track", "arrow.triangle.2.circlepath", "gray"},
    KindLook{"share", "link", "gray"},
    KindLook{"approval", "clock", "amber"},
    KindLook{"approved", "checkmark.seal", "green"},
    KindLook{"approved_all", "checkmark.seal", "green"},
    KindLook{"changes", "arrow.uturn.backward", "red"},
    KindLook{"sent", "paperplane", "green"},
    KindLook{"version", "arrow.up.doc", "blue"},
    KindLook{"resolve", "checkmark", "gray"},
};
constexpr KindLook kOtherLook{"", "circle", "gray"};

const KindLook& lookOf(std::string_view kind) {
  const auto* found = std::ranges::find(kLooks, kind, &KindLook::kind);
  return found == kLooks.end() ? kOtherLook : *found;
}

std::string actorOf(const Store& store, const Event& event) {
  if (hasWords(event.by)) return displayName(store, event.by);
  return event.kind == "new_file" ? std::string{kWorker} : "Vellix";
}

std::string saidIn(const Event& event) {
  const std::string text = wordsOf(event.text);
  return event.kind == "comment" ? "Left a note: “" + text + "”" : text;
}

HistoryRowView rowOf(const Store& store, const Event& event, Moment now, const Calendar& calendar) {
  const KindLook& look = lookOf(event.kind);
  HistoryRowView row{.key = std::to_string(event.id),
                     .icon = std::string{look.icon},
                     .tone = std::string{look.tone},
                     .who = actorOf(store, event),
                     .said = saidIn(event),
                     .when = friendlyTime(momentOf(event.at), now, calendar),
                     .spoken = {}};
  row.spoken = row.who;
  if (!row.said.empty()) row.spoken += ", " + row.said;
  row.spoken += ", " + row.when;
  return row;
}

// By time. Where it is not told when a version came, what happened may be of either.
bool belongs(const Event& event, const std::vector<Version>& versions, std::size_t i) {
  const auto& from = versions[i].at;
  const bool begun = i == 0 ? event.at >= 0 : !from || *from <= event.at;
  const bool last = i + 1 == versions.size();
  return begun && (last || !versions[i + 1].at || event.at < *versions[i + 1].at);
}

std::string headOf(const Store& store, const FileDetail& detail, const Version& version) {
  return versionName(version.n) + " · " + versionCaption(store, detail.file, version);
}

}  // namespace

HistoryView history(const Store& store, const FileDetail& detail, Moment now,
                    const Calendar& calendar) {
  static const std::vector<Version> kNoVersions;
  static const std::vector<Event> kNoEvents;
  const auto& versions = detail.versions ? *detail.versions : kNoVersions;
  const auto& events = detail.history ? *detail.history : kNoEvents;
  HistoryView view{
      .count = std::to_string(versions.size()) + (versions.size() == 1 ? " version" : " versions"),
      .blocks = {},
      .nothing = events.empty() ? "Nothing yet." : ""};
  for (std::size_t i = 0; i < versions.size(); ++i) {
    HistoryBlockView block{.key = std::to_string(versions[i].n),
                           .head = headOf(store, detail, versions[i]),
                           .note = wordsOf(versions[i].note),
                           .rows = {}};
    for (const Event& event : events) {
      if (belongs(event, versions, i)) block.rows.push_back(rowOf(store, event, now, calendar));
    }
    view.blocks.push_back(std::move(block));
  }
  // What happened is told also where it cannot be told to which version.
  if (versions.empty() && !events.empty()) {
    HistoryBlockView all{.key = "all", .head = {}, .note = {}, .rows = {}};
    for (const Event& event : events) all.rows.push_back(rowOf(store, event, now, calendar));
    view.blocks.push_back(std::move(all));
  }
  return view;
}

}  // namespace vellix
