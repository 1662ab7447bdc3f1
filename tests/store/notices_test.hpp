// A reviewer, Ann, whose polls bring what she and Bo did.
#pragma once

#include "store/store_test.hpp"

namespace vellix {

inline const std::string kMe = "ann@tessarine.example";
inline const std::string kBo = "bo@tessarine.example";

inline Event eventOf(Int id, std::optional<std::string> by, std::string kind,
                     std::optional<std::string> text) {
  Event event;
  event.id = id;
  event.by = std::move(by);
  event.kind = std::move(kind);
  event.text = std::move(text);
  return event;
}

class NoticesTest : public StoreTest {
 protected:
  // A minute after the Store came up, so everything that follows is news.
  NoticesTest() {
    store();
    desk.time.advance(Milliseconds{60'000});
  }

  Event now(Event event) {
    event.at = wireOf(desk.time.now());
    return event;
  }
  void pollWith(std::vector<Event> events, std::vector<FileItem> files = {}) {
    BoardState board = boardOf(std::move(files));
    board.me = {kMe, "Ann"};
    board.users = {{.email = kMe, .name = "Ann"}, {.email = kBo, .name = "Bo"}};
    board.events = std::move(events);
    serveBoard(board, "\"b" + std::to_string(++tag_) + "\"");
    poll();
  }
  void beginAt(Int id) { pollWith({eventOf(id, std::nullopt, "synced", "Synced.")}); }

 private:
  int tag_ = 0;
};

}  // namespace vellix
