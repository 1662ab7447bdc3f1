// The ground of the approval tests: a board with a ticket on show, its approvers and its detail.
#pragma once

#include "store/store_test.hpp"

namespace vellix {

inline constexpr const char* kRenny = "renny@tessarine.example";    // signed in
inline constexpr const char* kJorvas = "jorvas@tessarine.example";  // a colleague
inline constexpr const char* kMara = "mara@tessarine.example";      // approvers
inline constexpr const char* kOlo = "olo@tessarine.example";
inline constexpr const char* kTeva = "teva@tessarine.example";

inline Version versionOf(Int n, std::string status = "done") {
  Version version;
  version.n = n;
  version.kind = n == 1 ? "proof" : "revision";
  version.status = std::move(status);
  return version;
}

inline ShareInfo shareOf(std::optional<std::string> url, bool enabled = true) {
  return {.enabled = enabled, .url = std::move(url)};
}

class ApprovalTest : public StoreTest {
 protected:
  ApprovalTest() {
    board = boardOf({ticketOf("t1"), ticketOf("t2")});
    board.approvers = std::vector<Guest>{{.email = kMara, .name = "Mara Quell"},
                                         {.email = kOlo, .name = "Olo Brandt"},
                                         {.email = kTeva}};
    publish();
    store().selection.set({"t1"});
  }

  FileItem& file() { return board.files.front(); }
  void publish() {
    store().board.set(board);
    desk.time.run();
  }
  void show(FileDetail detail) {
    store().details.edit([&](auto& all) { all[detail.file.id] = std::move(detail); });
    desk.time.run();
  }
  double minutesAgo(double minutes) {
    return wireOf(desk.time.now() - Milliseconds{minutes * 60'000});
  }
  // "POST api/approvers {...}" of each that was sent beside polls.
  std::vector<std::string> asked() {
    desk.time.run();
    std::vector<std::string> all;
    for (const auto& each : desk.http.exchanges) {
      if (!each.line().starts_with("GET ")) {
        all.push_back(each.line() + " " + each.request.body.value_or(""));
      }
    }
    return all;
  }

  BoardState board;
};

}  // namespace vellix
