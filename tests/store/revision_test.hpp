// A ticket whose next version is sent.
#pragma once

#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {

class RevisionTest : public StoreTest {
 protected:
  static constexpr const char* kPut = "PUT api/files/t1/versions";
  static constexpr const char* kDetailLine = "GET api/files/t1";
  static constexpr const char* kPdf = "/home/renny/The Light.pdf";
  static constexpr const char* kNotSent = "The upload didn't go through. Try again.";

  FileItem file = ticketAt("t1", 1, 3);

  void SetUp() override {
    desk.files.sizes[kPdf] = 1'000;
    store().board.set(boardOf({file, ticketAt("t2", 1)}));
    store().selection.set({"t1"});
    store().details.set({{"t1", detailOf(file)}});
    desk.time.run();
  }
  void upload(const std::string& path = kPdf, const std::string& note = "") {
    store().uploadRevision(file, path, note);
    desk.time.run();
  }
  FileItem nextVersion() {
    FileItem next = file;
    next.version = file.versionNumber() + 1;
    next.rev = 2;
    return next;
  }
};

}  // namespace vellix
