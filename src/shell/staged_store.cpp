#include "shell/staged_store.hpp"

#include <algorithm>

namespace vellix {
namespace {

const std::string kReprint = "reprint";

void selectFirstTwo(Store& store) {
  std::set<std::string> ids;
  for (const auto& file : store.board()->files) {
    if (ids.size() < 2) ids.insert(file.id);
  }
  store.selection.set(std::move(ids));
}

const FileItem* askedTicket(const std::vector<FileItem>& files, const Arguments& arguments) {
  if (const auto id = argument(arguments, "--file")) {
    const auto named = std::ranges::find(files, *id, &FileItem::id);
    if (named != files.end()) return &*named;
  }
  if (hasFlag(arguments, "--reprints")) {
    const auto reprint = std::ranges::find(files, kReprint, &FileItem::track);
    if (reprint != files.end()) return &*reprint;
  }
  return files.empty() ? nullptr : &files.front();
}

void selectTicket(Store& store, const Arguments& arguments) {
  const FileItem* ticket = askedTicket(store.board()->files, arguments);
  if (!ticket) return;
  const std::string id = ticket->id;
  store.selection.set({id});
  const Finding* grave = nullptr;
  if (const auto detail = store.details().find(id); detail != store.details().end()) {
    const auto& findings = detail->second.findings;
    const auto high = std::ranges::find(findings, "high", &Finding::severity);
    if (high != findings.end()) grave = &*high;
  }
  store.page.edit([&](auto& pages) { pages[id] = grave ? grave->page : 0; });
  if (grave && hasFlag(arguments, "--focus")) store.focus.set(grave->id);
}

void stageDraft(Store& store) {
  const FileItem* file = store.currentFile();
  if (!file) return;
  const auto page = store.page().find(file->id);
  store.draft.set(DraftNote{.fileID = file->id,
                            .page = page == store.page().end() ? 0 : page->second,
                            .side = "supplier",
                            .x = 0.3,
                            .y = 0.35,
                            .w = 0.35,
                            .h = 0.1});
}

}  // namespace

void stageSample(Store& store, Sample sample, const Arguments& arguments, Moment now) {
  const auto asked = [&](std::string_view flag) { return hasFlag(arguments, flag); };
  store.signedIn.set(true);
  store.board.set(std::move(sample.board));
  store.details.set(std::move(sample.details));
  store.lastOK.set(now);
  if (asked("--reprints")) store.setQueue(kReprint);
  if (asked("--multi")) {
    selectFirstTwo(store);
  } else {
    selectTicket(store, arguments);
  }
  if (asked("--activity")) store.showActivity.set(true);
  if (asked("--draft")) stageDraft(store);
  if (asked("--profile")) {
    const std::string me = store.board()->me.email;
    store.profile.set(me);
    store.stats.set(madeUpStats(*store.board(), me, now));
  }
  if (const auto zoom = argument(arguments, "--zoom")) {
    if (const auto value = numberIn(*zoom)) store.zoom.set(*value);
  }
  if (asked("--narrow")) store.notesDrawer.set(true);
  if (asked("--history")) store.sideTab.set("history");
  if (asked("--follow")) store.reconcileSelection();
}

Stats madeUpStats(const BoardState& board, const std::string& person, Moment now) {
  constexpr double kWeek = 604'800'000;
  constexpr double kHour = 3'600'000;
  constexpr Int kCounts[] = {3, 5, 4, 7, 6, 2, 8, 4};
  const double at = wireOf(now);
  PersonStats stats{
      .reviewed = 39,
      .reviewed_week = 4,
      .on_time = 35,
      .on_time_rate = 89,
      .avg_hours = 6.4,
      .issues = 27,
      .fine = 61,
      .by_kind =
          {{"words", 9}, {"breaks", 6}, {"fonts", 4}, {"picture", 4}, {"barcode", 3}, {"size", 1}},
      .notes = 22,
      .streak = 4,
      .open = 5,
      .overdue = 1,
      .reprints = 2,
      .new_titles = 3};
  double start = at - kWeek * static_cast<double>(std::size(kCounts) - 1);
  for (const Int count : kCounts) {
    stats.weekly.push_back({.start = start, .count = count});
    start += kWeek;
  }
  if (board.users.size() > 1 && !board.files.empty()) {
    stats.mentions.push_back({.file_id = board.files.front().id,
                              .text = "Can you check the barcode on the back cover?",
                              .by = board.users[1].email,
                              .at = at - kHour});
  }
  return {.at = at, .users = {{person, std::move(stats)}}};
}

}  // namespace vellix
