#include "shell/staged_store.hpp"

#include <algorithm>

#include "compare/canvas_view.hpp"

namespace vellix {
namespace {

const std::string kReprint = "reprint";

void selectFirstTwo(Staged& staged) {
  for (const auto& file : staged.sample->board.files) {
    if (staged.selection.size() < 2) staged.selection.insert(file.id);
  }
}

const FileItem* askedTicket(const SharedList<FileItem>& files, const Arguments& arguments) {
  if (const auto id = argument(arguments, "--file")) {
    if (const FileItem* named = files.find(*id)) return named;
  }
  if (hasFlag(arguments, "--reprints")) {
    const auto reprint = std::ranges::find(files, kReprint, &FileItem::track);
    if (reprint != files.end()) return &*reprint;
  }
  return files.empty() ? nullptr : &files.front();
}

void selectTicket(Staged& staged, const Arguments& arguments) {
  const FileItem* ticket = askedTicket(staged.sample->board.files, arguments);
  if (!ticket) return;
  staged.selection = {ticket->id};
  const Finding* grave = nullptr;
  const auto& details = staged.sample->details;
  if (const auto detail = details.find(ticket->id); detail != details.end()) {
    const auto& findings = detail->second.findings;
    const auto high = std::ranges::find(findings, "high", &Finding::severity);
    if (high != findings.end()) grave = &*high;
  }
  staged.page[ticket->id] = grave ? grave->page : 0;
  if (grave && hasFlag(arguments, "--focus")) staged.focus = grave->id;
}

void stageDraft(Staged& staged) {
  if (staged.selection.size() != 1) return;
  const std::string& ticket = *staged.selection.begin();
  const auto page = staged.page.find(ticket);
  staged.draft = DraftNote{.fileID = ticket,
                           .page = page == staged.page.end() ? 0 : page->second,
                           .side = "supplier",
                           .x = 0.3,
                           .y = 0.35,
                           .w = 0.35,
                           .h = 0.1};
}

// A page that has just begun, and that of somebody else, are to be looked at as well.
void stageProfile(Staged& staged, std::string_view which, Moment now) {
  const BoardState& board = staged.sample->board;
  std::string person = board.me.email;
  if (which == "colleague") {
    const auto other = std::ranges::find_if(
        board.users, [&](const Person& each) { return each.email != board.me.email; });
    if (other != board.users.end()) person = other->email;
  }
  staged.profile = person;
  if (which == "adding") return;
  staged.stats = madeUpStats(board, person, now);
  if (which != "empty") return;
  PersonStats none;
  for (const WeekCount& week : staged.stats->users[person].weekly) {
    none.weekly.push_back({.start = week.start});
  }
  staged.stats->users[person] = std::move(none);
}

}  // namespace

void stageSample(Store& store, Sample sample, const Arguments& arguments, Moment now) {
  const auto asked = [&](std::string_view flag) { return hasFlag(arguments, flag); };
  Staged staged{.sample = std::move(sample), .lastOK = now};
  if (asked("--multi")) {
    selectFirstTwo(staged);
  } else {
    selectTicket(staged, arguments);
  }
  staged.showActivity = asked("--activity");
  if (asked("--draft")) stageDraft(staged);
  if (asked("--profile")) stageProfile(staged, argument(arguments, "--profile").value_or(""), now);
  if (const auto zoom = argument(arguments, "--zoom")) staged.zoom = numberIn(*zoom);
  staged.mode = modeOf(argument(arguments, "--mode").value_or("")).value_or(staged.mode);
  if (asked("--offline")) staged.problem = "Can't reach the Vellix server right now. Trying again…";
  if (asked("--toast")) staged.toast = Toast{"Marked reviewed.", "Undo", [] {}};
  staged.notesDrawer = asked("--narrow");
  if (asked("--history")) staged.sideTab = "history";
  if (asked("--reprints")) store.setQueue(kReprint);
  store.stage(std::move(staged));
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
