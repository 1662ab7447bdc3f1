// What is said of several tickets.
#include "ticket/multi_view.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

class MultiFiles : public StoreTest {
 protected:
  MultiFiles() {
    std::vector<FileItem> files;
    for (const char* title : {"The Lighthouse", "Harbour Bread", "Rain"}) {
      files.push_back(ticketOf(std::string("t") + std::to_string(files.size())));
      files.back().title = title;
    }
    store().board.set(boardOf(files));
  }
};

TEST_F(MultiFiles, AreCountedAndNamedInTheOrderOfTheBoard) {
  store().selection.set({"t2", "t0"});
  EXPECT_EQ(multiFiles(store()), (MultiFilesView{"2 files", "The Lighthouse · Rain"}));
  store().selection.set({"t2", "t0", "t1"});
  EXPECT_EQ(multiFiles(store()),
            (MultiFilesView{"3 files", "The Lighthouse · Harbour Bread · Rain"}));
}

TEST_F(MultiFiles, AreThoseThatAreStillOnTheBoard) {
  store().selection.set({"t2", "t0", "gone"});
  EXPECT_EQ(multiFiles(store()).heading, "2 files");
  store().board.set(std::nullopt);
  EXPECT_EQ(multiFiles(store()), (MultiFilesView{"0 files", ""}));
}

}  // namespace
}  // namespace vellix
