// A reviewer with one ticket on show, whose detail holds findings.
#pragma once

#include "store/store_test.hpp"

namespace vellix {

class FindingTest : public StoreTest {
 protected:
  void show(std::vector<Finding> findings, std::string focus = "f1") {
    const FileItem file = ticketAt("t1", 1);
    BoardState board = boardOf({file});
    store().board.set(board);
    store().selection.set({"t1"});
    store().details.set({{"t1", detailOf(file, findings)}});
    store().focus.set(std::move(focus));
  }
  // What the service holds from now on, under tags of their own.
  void serve(std::vector<Finding> findings, Int rev = 2) {
    const FileItem file = ticketAt("t1", rev);
    serveBoard(boardOf({file}), "\"b" + std::to_string(rev) + "\"");
    serveDetail(detailOf(file, std::move(findings)), "\"d" + std::to_string(rev) + "\"");
  }
  void decide(const Finding& finding, const std::string& state) {
    store().setFindingState(finding, state);
    desk.time.run();
  }
  Finding held(const std::string& id = "f1") {
    for (const Finding& finding : store().details().at("t1").findings) {
      if (finding.id == id) return finding;
    }
    return {};
  }
  std::size_t posts(const std::string& id = "f1") {
    return desk.http.count("POST api/findings/" + id);
  }
  static Finding stateOf(Finding finding, std::string state) {
    finding.state = std::move(state);
    return finding;
  }
};

}  // namespace vellix
