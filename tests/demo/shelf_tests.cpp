// The shelf alone: what is put on it, what it refuses to open, and what a full disk does to it.
#include "shelf.hpp"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

#include "sandbox.hpp"

namespace vellix::demo {
namespace {

using demo_tests::contentOf;
using demo_tests::fill;
using demo_tests::Sandbox;

class ShelfTest : public testing::Test {
 protected:
  std::unique_ptr<Shelf> opened(const std::string& name = "state") {
    auto shelf = Shelf::open(sandbox_ / name);
    EXPECT_TRUE(shelf) << shelf.error();
    return shelf ? *std::move(shelf) : nullptr;
  }
  std::string refusal(const std::string& name = "state") {
    const auto shelf = Shelf::open(sandbox_ / name);
    return shelf ? "it was opened" : shelf.error();
  }
  // A database of somebody else's, or of another day's.
  void execute(const std::string& path, const char* sql) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(database);
  }
  std::string database() const { return sandbox_ / "state/board.db"; }

  Sandbox sandbox_;
};

mode_t modeOf(const std::string& path) {
  struct stat told{};
  return stat(path.c_str(), &told) == 0 ? told.st_mode & 0777 : 0;
}

TEST_F(ShelfTest, HoldsWhatWasPutOnIt) {
  {
    const auto shelf = opened();
    ASSERT_NE(shelf, nullptr);
    EXPECT_TRUE(shelf->isNew());
    shelf->put("a", "1");
    shelf->put("b/2", "two");
    shelf->put("b/1", std::string("one\0zero", 8));
    shelf->put("c", "");
    shelf->put("gone", "3");
    ASSERT_TRUE(shelf->keep());
    shelf->drop("gone");
    shelf->put("a", "another");
    ASSERT_TRUE(shelf->keep());
    shelf->put("never", "kept");
  }
  const auto shelf = opened();
  ASSERT_NE(shelf, nullptr);
  EXPECT_FALSE(shelf->isNew());
  EXPECT_EQ(shelf->keysUnder(""), (std::vector<std::string>{"a", "b/1", "b/2", "c"}));
  EXPECT_EQ(shelf->keysUnder("b/"), (std::vector<std::string>{"b/1", "b/2"}));
  ASSERT_NE(shelf->find("b/1"), nullptr);
  EXPECT_EQ(*shelf->find("b/1"), std::string("one\0zero", 8));
  EXPECT_EQ(*shelf->find("a"), "another");
  EXPECT_EQ(*shelf->find("c"), "");
  EXPECT_EQ(shelf->find("never"), nullptr);
}

TEST_F(ShelfTest, IsItsOwnersAlone) {
  const auto shelf = opened("a/b/state");
  ASSERT_NE(shelf, nullptr);
  ASSERT_TRUE(shelf->keepFile("photo-1.jpg", "picture"));
  EXPECT_EQ(modeOf(sandbox_ / "a/b/state"), 0700U);
  EXPECT_EQ(modeOf(sandbox_ / "a/b/state/board.db"), 0600U);
  EXPECT_EQ(modeOf(sandbox_ / "a/b/state/board.db-wal"), 0600U);
  EXPECT_EQ(modeOf(sandbox_ / "a/b/state/files"), 0700U);
  EXPECT_EQ(modeOf(shelf->pathOf("photo-1.jpg")), 0600U);
}

TEST_F(ShelfTest, IsHeldByOneAtATime) {
  auto shelf = opened();
  EXPECT_NE(refusal().find("Another service keeps its board in"), std::string::npos) << refusal();
  shelf.reset();
  EXPECT_NE(opened(), nullptr);
}

TEST_F(ShelfTest, LeavesWhatIsNoDatabaseAsItIs) {
  for (const std::string& bytes : {std::string("no database at all"), std::string(8192, 'x'),
                                   std::string("SQLite format 3"), std::string(1, '\0')}) {
    mkdir((sandbox_ / "state").c_str(), 0700);
    fill(database(), bytes);
    EXPECT_NE(refusal().find("is damaged, or no database at all"), std::string::npos) << refusal();
    EXPECT_EQ(contentOf(database()), bytes);
  }
}

TEST_F(ShelfTest, LeavesADamagedDatabaseAsItIs) {
  {
    const auto shelf = opened();
    for (int i = 0; i < 200; ++i) shelf->put("key " + std::to_string(i), std::string(500, 'a'));
    ASSERT_TRUE(shelf->keep());
  }
  std::string bytes = contentOf(database());
  ASSERT_GT(bytes.size(), 40'000U);
  for (std::size_t at = 4096; at < bytes.size(); at += 4096) bytes.replace(at, 64, 64, '\x7f');
  fill(database(), bytes);
  EXPECT_NE(refusal().find("is damaged"), std::string::npos) << refusal();
  EXPECT_EQ(contentOf(database()), bytes);
  bytes.resize(bytes.size() / 2);
  fill(database(), bytes);
  EXPECT_NE(refusal().find("is damaged"), std::string::npos) << refusal();
  EXPECT_EQ(contentOf(database()), bytes);
}

TEST_F(ShelfTest, LeavesAnotherProgramsDatabaseAsItIs) {
  mkdir((sandbox_ / "state").c_str(), 0700);
  execute(database(),
          "CREATE TABLE kept (key TEXT, text TEXT); INSERT INTO kept VALUES ('a', 'b')");
  const std::string bytes = contentOf(database());
  EXPECT_NE(refusal().find("belongs to another program"), std::string::npos) << refusal();
  EXPECT_EQ(contentOf(database()), bytes);
}

TEST_F(ShelfTest, LeavesANewerDatabaseAsItIs) {
  opened().reset();
  execute(database(), "PRAGMA user_version=2");
  const std::string bytes = contentOf(database());
  EXPECT_NE(refusal().find("was written by a newer version"), std::string::npos) << refusal();
  EXPECT_EQ(contentOf(database()), bytes);
}

TEST_F(ShelfTest, BeginsWhereItWasInterruptedBeforeTheFirstWord) {
  mkdir((sandbox_ / "state").c_str(), 0700);
  fill(database(), "");
  const auto shelf = opened();
  ASSERT_NE(shelf, nullptr);
  EXPECT_TRUE(shelf->isNew());
}

TEST_F(ShelfTest, SaysWhyThereIsNoFolder) {
  fill(sandbox_ / "file", "");
  EXPECT_NE(refusal("file").find("cannot be"), std::string::npos) << refusal("file");
  EXPECT_NE(refusal("file/state").find("cannot be made: "), std::string::npos);
}

TEST_F(ShelfTest, WritesFilesWholeOrNotAtAll) {
  const auto shelf = opened();
  ASSERT_TRUE(shelf->keepFile("report-1.pdf", "first"));
  ASSERT_TRUE(shelf->keepFile("report-1.pdf", "second"));
  EXPECT_EQ(shelf->fileOf("report-1.pdf"), "second");
  EXPECT_EQ(shelf->fileOf("report-2.pdf"), std::nullopt);
  // A folder lies where the file is to go.
  mkdir(shelf->pathOf("report-3.pdf").c_str(), 0700);
  const auto done = shelf->keepFile("report-3.pdf", "third");
  ASSERT_FALSE(done);
  EXPECT_NE(done.error().find("cannot be written"), std::string::npos) << done.error();
  EXPECT_FALSE(std::filesystem::exists(shelf->pathOf("report-3.pdf.half")));
}

TEST_F(ShelfTest, ClearsItsOwnLeftoversAndNothingElse) {
  const auto shelf = opened();
  for (const char* name : {"report-1.pdf", "photo-2.jpg", "upload-0a.pdf", "upload-0b.pdf"}) {
    ASSERT_TRUE(shelf->keepFile(name, "bytes"));
  }
  fill(shelf->pathOf("upload-0c.pdf.half"), "half");
  const std::vector<std::string> others = {"notes.txt", "upload-mine.pdf", "my report-1.pdf"};
  for (const std::string& name : others) fill(shelf->pathOf(name), "somebody's");
  shelf->removeFilesBut({"upload-0a.pdf", "photo-2.jpg"});
  EXPECT_TRUE(shelf->fileOf("upload-0a.pdf"));
  EXPECT_TRUE(shelf->fileOf("photo-2.jpg"));
  for (const char* name : {"report-1.pdf", "upload-0b.pdf", "upload-0c.pdf.half"}) {
    EXPECT_FALSE(shelf->fileOf(name)) << name;
  }
  for (const std::string& name : others) EXPECT_TRUE(shelf->fileOf(name)) << name;
}

// A bound on the size of files does what a full disk does, for this process alone.
TEST_F(ShelfTest, TellsWhenThereIsNoRoomAndGoesOnWhenThereIs) {
  const auto shelf = opened();
  shelf->put("a", "1");
  ASSERT_TRUE(shelf->keep());
  const auto old = signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit tight{65'536, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &tight);
  shelf->put("b", std::string(100'000, 'b'));
  const Kept full = shelf->keep();
  const Kept again = shelf->keep();
  const Kept file = shelf->keepFile("report-1.pdf", std::string(100'000, 'c'));
  setrlimit(RLIMIT_FSIZE, &before);
  signal(SIGXFSZ, old);
  EXPECT_FALSE(full);
  EXPECT_FALSE(again) << "it is tried again, and still not done";
  EXPECT_FALSE(file);
  EXPECT_FALSE(std::filesystem::exists(shelf->pathOf("report-1.pdf")));
  EXPECT_FALSE(std::filesystem::exists(shelf->pathOf("report-1.pdf.half")));
  EXPECT_TRUE(shelf->keep());
  EXPECT_EQ(shelf->find("b")->size(), 100'000U);
}

}  // namespace
}  // namespace vellix::demo
