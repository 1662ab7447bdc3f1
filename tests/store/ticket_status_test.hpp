// A board of tickets with one of them on show.
#pragma once

#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {

inline FileItem dueAt(std::string id, std::optional<double> due, std::string status = "new") {
  FileItem file = ticketOf(std::move(id), std::move(status));
  file.due = due;
  return file;
}

class TicketStatus : public StoreTest {
 protected:
  static constexpr const char* kPost = "POST api/files/t1/status";

  void show(std::vector<FileItem> files, std::set<std::string> selected = {"t1"}) {
    for (const FileItem& file : files) routes.set("GET api/files/" + file.id, answerOf(304));
    store().board.set(boardOf(std::move(files)));
    store().selection.set(std::move(selected));
    store().focus.set("f1");
  }
  FileItem held(const std::string& id = "t1") {
    for (const FileItem& file : store().board()->files) {
      if (file.id == id) return file;
    }
    return {};
  }
  void mark(const std::string& status = "reviewed") {
    store().setStatus(held(), status);
    desk.time.run();
  }
  std::size_t posts() { return desk.http.count(kPost); }
  std::string lastBody() { return *desk.http.matching(kPost).back()->request.body; }
};

}  // namespace vellix
