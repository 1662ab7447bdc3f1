// The tickets of one queue, sorted, cut into groups, as they are shown.
#pragma once

#include <string>
#include <string_view>
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

// A group of the list, by the status of its tickets.
struct FileGroup {
  std::string status;
  std::string title;
  bool folds = false;
  bool open = false;
  std::string count;
  bool operator==(const FileGroup&) const = default;
};

// What a line of the list is made of: a ticket, or the header of a group.
struct FileLine {
  const FileItem* ticket = nullptr;  // null for a header
  const FileGroup* group = nullptr;
  bool selected = false;
  // The ticket's id, or the group's status.
  struct Key {
    bool header = false;
    std::string_view name;
    bool operator==(const Key&) const = default;
  };
  Key key() const;
  bool operator==(const FileLine& other) const;
};
BOOST_DESCRIBE_STRUCT(FileLine::Key, (), (header, name))

struct FileLines {
  FileListHead head;
  std::vector<FileLine> lines;
  // What the lines point to.
  SharedList<FileItem> files;
  std::vector<FileGroup> groups;
  double steadyFor = 60;  // seconds, see `isSteady`
};

FileLines fileList(const Store& store, bool showReviewed, Moment now);
// Time alone has changed nothing of the list, nor of its rows, between when it was made and now. It
// is never steady for more than a minute: the zone may change, too.
bool isSteady(const FileLines& list, Moment made, Moment now, const Calendar& calendar);

FileListRow fileListRow(const FileLine& line, const Store& store, Moment now,
                        const Calendar& calendar);

// The line that the keyboard comes to, so many on from that one or, below 0, back, as far as there
// are any; -1 stands before all of them. It goes past headers that are no buttons. Where there is
// none in that direction, `from` itself.
int rowFrom(const std::vector<FileLine>& lines, int from, int by);

// The line of the one ticket that is selected; -1 where that is not in the list, or there are more.
int chosenRow(const std::vector<FileLine>& lines);

}  // namespace vellix
