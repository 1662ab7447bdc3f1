// A ticket on show, and notes about it.
#pragma once

#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {

class NoteTest : public StoreTest {
 protected:
  static constexpr const char* kDetail = "GET api/files/t1";

  FileItem file = ticketAt("t1", 1);

  void SetUp() override {
    store().board.set(boardOf({file}));
    store().selection.set({"t1"});
  }
  void write(std::string text, std::optional<std::string> finding = std::nullopt,
             std::vector<std::string> tags = {}) {
    store().addNote(std::move(text), file, 2, std::move(tags), std::move(finding));
    desk.time.run();
  }
  std::string body() { return desk.http.exchanges.at(0).request.body.value_or(""); }
};

}  // namespace vellix
