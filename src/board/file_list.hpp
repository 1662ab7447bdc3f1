// The tickets of one queue, sorted, cut into groups, as they are shown.
#pragma once

#include <string>
#include <vector>

#include "board/file_row.hpp"
#include "store/store.hpp"

namespace vellix {

// A line of the list: the header of a group, or a ticket.
struct FileListRow {
  std::string key;  // identity among the lines
  bool header = false;
  std::string title;   // of a header
  bool folds = false;  // the header is a button that folds its group
  bool open = false;
  std::string count;  // beside a folding header
  FileRowView ticket;
  bool operator==(const FileListRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(FileListRow, (), (key, header, title, folds, open, count, ticket))

// One of the two queues, as a button.
struct QueueView {
  std::string key;
  std::string label;
  std::string count;  // empty when nothing is open
  bool late = false;
  bool operator==(const QueueView&) const = default;
};
BOOST_DESCRIBE_STRUCT(QueueView, (), (key, label, count, late))

// What stands over the list, and in its place when it is empty.
struct FileListHead {
  std::vector<QueueView> queues;
  std::string queue;  // the key of the one on show
  bool mineOnly = false;
  std::string overdue;  // empty when none is
  bool empty = false;
  std::string emptyFirst;
  std::string emptySecond;
  bool syncing = false;  // the mark over the list moves
  bool operator==(const FileListHead&) const = default;
};
BOOST_DESCRIBE_STRUCT(FileListHead, (),
                      (queues, queue, mineOnly, overdue, empty, emptyFirst, emptySecond, syncing))

struct FileListView {
  FileListHead head;
  std::vector<FileListRow> rows;
};

FileListView fileList(const Store& store, bool showReviewed, Moment now, const Calendar& calendar);

// The row that the keyboard comes to, so many on from that one or, below 0, back, as far as there
// are any; -1 stands before all of them. It goes past headers that are no buttons. Where there is
// none in that direction, `from` itself.
int rowFrom(const std::vector<FileListRow>& rows, int from, int by);

// The row of the one ticket that is selected; -1 where that is not in the list, or there are more.
int chosenRow(const std::vector<FileListRow>& rows);

}  // namespace vellix
