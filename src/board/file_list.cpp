#include "board/file_list.hpp"

#include <algorithm>
#include <limits>

namespace vellix {
namespace {

using Tickets = std::vector<const FileItem*>;

// The dates lie beside the pointers while they are sorted: reaching for each record costs more.
void sortByDue(Tickets& tickets) {
  struct Dated {
    std::pair<double, double> key;
    const FileItem* file;
  };
  std::vector<Dated> dated;
  dated.reserve(tickets.size());
  for (const FileItem* file : tickets) {
    dated.push_back(
        {{file->due.value_or(std::numeric_limits<double>::infinity()), -file->received.value_or(0)},
         file});
  }
  std::ranges::stable_sort(dated, {}, &Dated::key);
  std::ranges::transform(dated, tickets.begin(), &Dated::file);
}

bool isLate(const FileItem& file, Moment now) {
  return file.status != "reviewed" && file.due && momentOf(*file.due) < now;
}

std::ptrdiff_t lateCount(const Tickets& tickets, Moment now) {
  return std::ranges::count_if(tickets, [&](const FileItem* file) { return isLate(*file, now); });
}

QueueView queueView(const Tickets& tickets, std::string key, std::string label, Moment now) {
  const auto open = std::ranges::count_if(
      tickets, [](const FileItem* file) { return file->status != "reviewed"; });
  QueueView view{.key = std::move(key), .label = std::move(label)};
  if (open > 0) view.count = std::to_string(open);
  view.late = lateCount(tickets, now) > 0;
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
      store.effectiveQueue() == "reprint" ? "No reprints here." : "No new titles here.";
  view.emptySecond =
      store.mineOnly() ? "Turn off Only mine to see everyone's." : "Nothing waiting in this queue.";
}

}  // namespace

FileListView fileList(const Store& store, bool showReviewed, Moment now, const Calendar& calendar) {
  FileListView view;
  const bool reprints = store.effectiveQueue() == "reprint";
  Tickets tickets = store.filesInQueue(reprints ? "reprint" : "new_title");
  const Tickets others = store.filesInQueue(reprints ? "new_title" : "reprint");
  view.head.queues = {queueView(reprints ? others : tickets, "new_title", "New titles", now),
                      queueView(reprints ? tickets : others, "reprint", "Reprints", now)};
  view.head.queue = view.head.queues[reprints ? 1 : 0].key;
  view.head.mineOnly = store.mineOnly();
  const auto& board = store.board();
  view.head.syncing = board && board->sync && board->sync->status == "running";
  if (const auto late = lateCount(tickets, now); late > 0) {
    view.head.overdue = std::to_string(late) + " overdue";
  }
  if (tickets.empty()) {
    nameTheEmptiness(view.head, store);
    return view;
  }
  sortByDue(tickets);
  view.rows.reserve(tickets.size() + 3);

  struct Group {
    const char* title;
    const char* status;
  };
  for (const Group& group : {Group{"To review", "new"}, Group{"In review", "in_review"},
                             Group{"Reviewed", "reviewed"}}) {
    Tickets members;
    std::ranges::copy_if(tickets, std::back_inserter(members),
                         [&](const FileItem* file) { return file->status == group.status; });
    if (members.empty()) continue;
    const bool reviewed = std::string_view{group.status} == "reviewed";
    if (reviewed) {
      std::ranges::stable_sort(members, std::greater{},
                               [](const FileItem* file) { return file->status_at.value_or(0); });
    }
    const bool folds = reviewed && store.prefs.foldReviewed();
    const bool open = !folds || showReviewed;
    view.rows.push_back({.key = std::string{"g"} + group.status,
                         .header = true,
                         .title = group.title,
                         .folds = folds,
                         .open = open,
                         .count = folds ? std::to_string(members.size()) : std::string{}});
    if (!open) continue;
    for (const FileItem* file : members) {
      FileListRow& row = view.rows.emplace_back();
      row.key = "t" + file->id;
      fillFileRow(row.ticket, *file, store, now, calendar);
    }
  }
  return view;
}

int rowFrom(const std::vector<FileListRow>& rows, int from, int by) {
  const int way = by < 0 ? -1 : 1;
  const int count = static_cast<int>(rows.size());
  int at = from;
  for (int row = from + way; by != 0 && row >= 0 && row < count; row += way) {
    const FileListRow& next = rows[static_cast<std::size_t>(row)];
    if (next.header && !next.folds) continue;
    at = row;
    by -= way;
  }
  return at;
}

int chosenRow(const std::vector<FileListRow>& rows) {
  const auto selected = [](const FileListRow& row) { return row.ticket.selected; };
  const auto found = std::ranges::find_if(rows, selected);
  if (found == rows.end() || std::any_of(found + 1, rows.end(), selected)) return -1;
  return static_cast<int>(found - rows.begin());
}

}  // namespace vellix
