// Uploaded PDFs after a crash: read again, checked again, or told to be gone.
#include <filesystem>

#include "kept_service.hpp"

namespace vellix::demo_tests {
namespace {

namespace fs = std::filesystem;

class KeptUploads : public KeptService {
 protected:
  std::vector<std::string> files() const {
    std::vector<std::string> all;
    for (const auto& entry : fs::directory_iterator(folder() + "/files")) {
      const std::string name = entry.path().filename();
      if (name.starts_with("upload-")) all.push_back(entry.path());
    }
    return all;
  }
};

TEST_F(KeptUploads, AreCheckedAfterAllWhenTheyWereBeing) {
  ASSERT_EQ(statusOf(post("/demo/waits", R"({"checks":true})")), 200);
  ASSERT_EQ(statusOf(put("salt-text", textOf("/demo/proof?file_id=salt-text"))), 200);
  ASSERT_TRUE(
      eventually([&](const BoardState&) { return !detail("salt-text").file.pages->empty(); }));
  const FileDetail shown = detail("salt-text");
  EXPECT_EQ(shown.versions->back().status, "checking");
  restart();
  ASSERT_TRUE(checked("salt-text"));
  const FileDetail now = detail("salt-text");
  EXPECT_EQ(now.versions->back().status, "done");
  EXPECT_EQ(now.file.pages, shown.file.pages) << "each page once";
  EXPECT_EQ(now.findings.size(), 1U);
  EXPECT_EQ(now.findings.front().title, "Not repaired: A line ends early");
}

// Hit at moments that nobody chose: whatever came of it then, it ends.
TEST_F(KeptUploads, EndTheirCheckWheneverTheServiceFell) {
  for (const int ms : {0, 20, 60, 150, 400}) {
    const auto versions = detail("bread-text").versions->size();
    ASSERT_EQ(statusOf(put("bread-text", writtenPdf({pageSaying("One"), pageSaying("Two")}))), 200);
    std::this_thread::sleep_for(std::chrono::milliseconds(ms));
    restart();
    ASSERT_TRUE(checked("bread-text")) << ms;
    const FileDetail now = detail("bread-text");
    EXPECT_EQ(now.versions->size(), versions + 1);
    EXPECT_EQ(now.versions->back().status, "done");
    EXPECT_EQ(now.file.pages->size(), 2U);
    EXPECT_EQ(now.history->back().kind, "checked");
  }
  EXPECT_EQ(files().size(), 5U);
}

TEST_F(KeptUploads, CanBeComparedWithOneOfBefore) {
  ASSERT_EQ(statusOf(put("bread-text", writtenPdf({pageSaying("Salt and water")}))), 200);
  ASSERT_TRUE(checked("bread-text"));
  restart();
  ASSERT_EQ(statusOf(put("bread-text", writtenPdf({pageSaying("Salt and sugar")}))), 200);
  ASSERT_TRUE(checked("bread-text"));
  const FileDetail now = detail("bread-text");
  ASSERT_FALSE(now.findings.empty());
  EXPECT_EQ(now.findings.front().before, "Salt and water");
  EXPECT_EQ(now.findings.front().after, "Salt and sugar");
  EXPECT_EQ(now.findings.front().against, "previous");
}

TEST_F(KeptUploads, MoveWithTheirFolder) {
  ASSERT_EQ(statusOf(put("bread-text", writtenPdf({pageSaying("Salt")}))), 200);
  ASSERT_TRUE(checked("bread-text"));
  const auto before = everything();
  const std::string page = textOf("/api/blob/files/bread-text/v2/p001.jpg");
  const std::string port = std::to_string(running_->port());
  running_->kill();
  fs::rename(folder(), sandbox_ / "elsewhere");
  running_ = std::make_unique<RunningService>(
      std::vector<std::string>{"--port", port, "--state", sandbox_ / "elsewhere"});
  expectSame(before, everything());
  EXPECT_EQ(textOf("/api/blob/files/bread-text/v2/p001.jpg"), page);
}

TEST_F(KeptUploads, AreToldToBeGoneWhileTheyAre) {
  ASSERT_EQ(statusOf(put("bread-text", writtenPdf({pageSaying("Salt")}))), 200);
  ASSERT_TRUE(checked("bread-text"));
  const auto before = everything();
  ASSERT_EQ(files().size(), 1U);
  const std::string file = files().front();
  fs::rename(file, sandbox_ / "away.pdf");
  restart();
  const FileDetail now = detail("bread-text");
  EXPECT_EQ(now.versions->back().status, "failed");
  const std::string gone = file + " is gone. The pages of this version cannot be shown.";
  EXPECT_EQ(now.versions->back().summary, gone);
  EXPECT_EQ(now.file.summary, gone);
  EXPECT_EQ(statusOf(get("/api/blob/files/bread-text/v2/p001.jpg")), 404);
  EXPECT_EQ(statusOf(get("/demo/proof?file_id=bread-text")), 404);
  fs::rename(sandbox_ / "away.pdf", file);
  restart();
  expectSame(before, everything());
  EXPECT_EQ(textOf("/api/blob/files/bread-text/v2/p001.jpg").substr(0, 2), "\xFF\xD8");
}

TEST_F(KeptUploads, ThatWereRefusedLeaveNothingBehind) {
  EXPECT_EQ(statusOf(put("nowhere", writtenPdf({pageSaying("Salt")}))), 404);
  restart();
  EXPECT_TRUE(files().empty());
}

}  // namespace
}  // namespace vellix::demo_tests
