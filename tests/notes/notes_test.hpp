// A ticket on show with three pages and notes, as its notes' views see it.
#pragma once

#include "notes/composer.hpp"
#include "notes/note_row.hpp"
#include "store/store_test.hpp"

namespace vellix {

inline constexpr const char* kRenny = "renny@tessarine.example";  // is signed in
inline constexpr const char* kJorvas = "jorvas@tessarine.example";

inline Note noteOn(std::string id, std::optional<Int> page = 0) {
  Note note;
  note.id = std::move(id);
  note.file_id = "t1";
  note.page = page;
  note.text = "Too dark";
  note.by = kJorvas;
  return note;
}

class NotesTest : public StoreTest {
 protected:
  NotesTest() {
    detail.file.pages = pagesOf(3);
    detail.file.pages->at(1).label = "iv";
  }

  // Puts the ticket on show.
  void show() {
    BoardState board = boardOf({detail.file});
    board.users[1].color = "#1a84f0";
    store().board.set(std::move(board));
    store().selection.set({"t1"});
    store().details.set({{"t1", detail}});
  }
  NoteRowView row(const Note& note, Int number = 0) {
    return noteRow(store(), note, number, desk.time.now(), desk.calendar);
  }
  // What was sent to the service, one line a request.
  std::vector<std::string> sent() {
    desk.time.run();
    std::vector<std::string> all;
    for (const auto& exchange : desk.http.exchanges) {
      if (exchange.line().starts_with("POST")) {
        all.push_back(exchange.line() + " " + exchange.request.body.value_or(""));
      }
    }
    return all;
  }

  FileDetail detail = detailOf(ticketOf("t1"));
};

}  // namespace vellix
