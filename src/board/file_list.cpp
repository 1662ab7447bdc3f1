#include "board/file_list.hpp"

#include <algorithm>
#include <array>
#include <limits>
#include <tuple>

namespace vellix {
namespace {

constexpr std::string_view kReviewed = "reviewed";
constexpr std::string_view kReprint = "reprint";

struct Status {
  std::string_view name;
  const char* title;
};
constexpr std::array kStatuses{Status{"new", "To review"}, Status{"in_review", "In review"},
                               Status{kReviewed, "Reviewed"}};

// What it is sorted by lies beside the pointer: reaching for each record costs more.
struct Placed {
  std::tuple<double, double, double> key;
  const FileItem* file;
};

Placed placed(const FileItem& file) {
  const double reviewed = file.status == kReviewed ? file.status_at.value_or(0) : 0;
  return {{-reviewed, file.due.value_or(std::numeric_limits<double>::infinity()),
           -file.received.value_or(0)},
          &file};
}

// What is counted over all tickets of a queue, and those that are shown.
struct Queue {
  std::size_t tickets = 0;
  std::size_t open = 0;
  std::size_t late = 0;
  std::array<std::vector<Placed>, kStatuses.size()> groups{};

  void count(const FileItem& file, Moment now) {
    ++tickets;
    if (file.status == kReviewed) return;
    ++open;
    if (file.due && momentOf(*file.due) < now) ++late;
  }
  void place(const FileItem& file) {
    const auto status = std::ranges::find(kStatuses, file.status, &Status::name);
    if (status == kStatuses.end()) return;
    groups[static_cast<std::size_t>(status - kStatuses.begin())].push_back(placed(file));
  }
};

QueueView queueView(const Queue& queue, std::string key, std::string label) {
  QueueView view{.key = std::move(key), .label = std::move(label)};
  if (queue.open > 0) view.count = std::to_string(queue.open);
  view.late = queue.late > 0;
  return view;
}

void nameTheEmptiness(FileListHead& view, const Store& store) {
  view.empty = true;
  if (!store.board() || store.board()->files.empty()) {
    view.emptyFirst = "Nothing to review.";
    view.emptySecond = "Press Sync to check supplier mail.";
    return;
  }
  view.emptyFirst =
      store.effectiveQueue() == kReprint ? "No reprints here." : "No new titles here.";
  view.emptySecond =
      store.mineOnly() ? "Turn off Only mine to see everyone's." : "Nothing waiting in this queue.";
}

FileGroup groupOf(const Status& status, std::size_t count, const Store& store, bool showReviewed) {
  const bool folds = status.name == kReviewed && store.prefs.foldReviewed();
  return {.status = std::string{status.name},
          .title = status.title,
          .folds = folds,
          .open = !folds || showReviewed,
          .count = folds ? std::to_string(count) : std::string{}};
}

void addGroup(FileLines& list, std::vector<Placed>& members, const Store& store) {
  const FileGroup& group = list.groups.back();
  list.lines.push_back({.group = &group});
  if (!group.open) return;
  std::ranges::stable_sort(members, {}, &Placed::key);
  const auto& selection = store.selection();
  for (const Placed& member : members) {
    list.lines.push_back(
        {.ticket = member.file, .group = &group, .selected = selection.contains(member.file->id)});
  }
}

}  // namespace

FileLine::Key FileLine::key() const {
  return {.header = !ticket, .name = ticket ? ticket->id : group->status};
}

bool FileLine::operator==(const FileLine& other) const {
  if (!ticket || !other.ticket) return ticket == other.ticket && *group == *other.group;
  return selected == other.selected && (ticket == other.ticket || *ticket == *other.ticket);
}

FileLines fileList(const Store& store, bool showReviewed, Moment now) {
  FileLines list;
  const auto& board = store.board();
  if (board) list.files = board->files;
  const bool reprints = store.effectiveQueue() == kReprint;
  std::array<Queue, 2> queues;
  for (const FileItem& file : std::as_const(list.files)) {
    if (store.mineOnly() && file.assignee != board->me.email) continue;
    const std::string_view track = file.track ? std::string_view{*file.track} : "new_title";
    if (track != kReprint && track != "new_title") continue;
    const bool reprint = track == kReprint;
    queues[reprint ? 1 : 0].count(file, now);
    if (file.due && file.status != kReviewed)
      list.steadyFor = std::min(list.steadyFor, dueSteadyFor(momentOf(*file.due), now));
    if (reprint == reprints) queues[reprint ? 1 : 0].place(file);
  }
  list.head.queues = {queueView(queues[0], "new_title", "New titles"),
                      queueView(queues[1], "reprint", "Reprints")};
  Queue& queue = queues[reprints ? 1 : 0];
  list.head.queue = list.head.queues[reprints ? 1 : 0].key;
  list.head.mineOnly = store.mineOnly();
  list.head.syncing = board && board->sync && board->sync->status == "running";
  if (queue.late > 0) list.head.overdue = std::to_string(queue.late) + " overdue";
  if (queue.tickets == 0) {
    nameTheEmptiness(list.head, store);
    return list;
  }
  list.groups.reserve(kStatuses.size());
  list.lines.reserve(queue.tickets + kStatuses.size());
  for (std::size_t at = 0; at < kStatuses.size(); ++at) {
    auto& members = queue.groups[at];
    if (members.empty()) continue;
    list.groups.push_back(groupOf(kStatuses[at], members.size(), store, showReviewed));
    addGroup(list, members, store);
  }
  return list;
}

bool isSteady(const FileLines& list, Moment made, Moment now, const Calendar& calendar) {
  const double passed = secondsBetween(made, now);
  return passed >= 0 && passed < list.steadyFor && calendar.dayOf(made) == calendar.dayOf(now);
}

FileListRow fileListRow(const FileLine& line, const Store& store, Moment now,
                        const Calendar& calendar) {
  FileListRow row;
  if (line.ticket) {
    row.key = "t" + line.ticket->id;
    row.ticket = fileRow(*line.ticket, store, now, calendar);
    row.ticket.selected = line.selected;
  } else {
    row.key = "g" + line.group->status;
    row.header = true;
    row.title = line.group->title;
    row.folds = line.group->folds;
    row.open = line.group->open;
    row.count = line.group->count;
  }
  return row;
}

int rowFrom(const std::vector<FileLine>& lines, int from, int by) {
  const int way = by < 0 ? -1 : 1;
  const int count = static_cast<int>(lines.size());
  int at = from;
  for (int row = from + way; by != 0 && row >= 0 && row < count; row += way) {
    const FileLine& next = lines[static_cast<std::size_t>(row)];
    if (!next.ticket && !next.group->folds) continue;
    at = row;
    by -= way;
  }
  return at;
}

int chosenRow(const std::vector<FileLine>& lines) {
  const auto found = std::ranges::find_if(lines, &FileLine::selected);
  if (found == lines.end() || std::any_of(found + 1, lines.end(), std::mem_fn(&FileLine::selected)))
    return -1;
  return static_cast<int>(found - lines.begin());
}

}  // namespace vellix
