#include "profile/open_list.hpp"

#include "approval/sheet_ticket.hpp"
#include "board/file_row.hpp"
#include "records/words.hpp"

namespace vellix {
namespace {

bool isOpenFor(const FileItem& file, const std::string& email) {
  return hasWords(file.assignee) && file.assignee == email && file.status != "reviewed";
}

OpenTicketView rowOf(FileRowView row) {
  OpenTicketView view{.id = std::move(row.id),
                      .heading = std::move(row.heading),
                      .subline = std::move(row.subline),
                      .thumb = std::move(row.thumb),
                      .due = std::move(row.due),
                      .approval = std::move(row.approval),
                      .spoken = {}};
  view.spoken = view.heading;
  if (!view.subline.empty()) view.spoken += ", " + view.subline;
  if (view.due) view.spoken += ", " + view.due->text;
  if (view.approval) view.spoken += ", " + view.approval->text;
  return view;
}

}  // namespace

OpenListView openList(const Store& store, const std::string& email, Moment now,
                      const Calendar& calendar) {
  OpenListView view;
  if (store.board()) {
    for (const FileItem& file : store.board()->files) {
      if (!isOpenFor(file, email)) continue;
      view.rows.push_back(rowOf(fileRow(file, store, now, calendar)));
    }
  }
  view.title = view.rows.empty() ? "Nothing open" : "Open now";
  if (view.rows.empty()) view.none = "All caught up.";
  return view;
}

bool selectFromProfile(Store& store, const std::string& ticket) {
  if (!ticketOnBoard(store, ticket)) return false;
  store.select({ticket});
  return true;
}

}  // namespace vellix
