// Somebody's own proofs, reviewed on two days.
#include "kept_service.hpp"

namespace vellix::demo_tests {
namespace {

class KeptOwn : public testing::Test {
 protected:
  void SetUp() override {
    fill(proof_, writtenPdf({pageSaying("Salt and water"), pageSaying("Bread")}));
    fill(sent_, writtenPdf({pageSaying("Salt and sugar"), pageSaying("Bread")}));
    start({"--proof", proof_, "--sent", sent_});
    there_->signIn();
  }
  void start(std::vector<std::string> more) {
    if (running_) running_->kill();
    const std::string token = there_ ? there_->token() : "";
    more.insert(more.end(), {"--state", sandbox_ / "state"});
    running_ = std::make_unique<RunningService>(more);
    ASSERT_GT(running_->port(), 0) << running_->announced();
    there_ = std::make_unique<Elsewhere>(running_->port(), token);
  }
  // The one ticket, once nothing of it is checked any more.
  FileDetail ticket() {
    EXPECT_TRUE(there_->eventually([](const BoardState& now) {
      return now.files.size() == 1 && now.sync && now.sync->status == "done";
    }));
    const BoardState now = there_->board();
    return now.files.empty() ? FileDetail{} : there_->detail(now.files[0].id);
  }
  static const Finding* changed(const FileDetail& detail) {
    const auto found = std::ranges::find_if(detail.findings, [](const Finding& finding) {
      return finding.kind == "words" && finding.page == 0;
    });
    return found == detail.findings.end() ? nullptr : &*found;
  }
  int pictureOf(const std::optional<std::string>& key) {
    return there_->statusOf(there_->get("/api/blob/" + key.value_or("none")));
  }

  Sandbox sandbox_;
  const std::string proof_ = sandbox_ / "proof.pdf";
  const std::string sent_ = sandbox_ / "sent.pdf";
  std::unique_ptr<RunningService> running_;
  std::unique_ptr<Elsewhere> there_;
};

TEST_F(KeptOwn, KeepWhatWasDecided) {
  const FileDetail first = ticket();
  const Finding* finding = changed(first);
  ASSERT_NE(finding, nullptr);
  ASSERT_EQ(there_->statusOf(there_->post("/api/findings/" + finding->id, R"({"state":"issue"})")),
            200);
  for (const bool named : {true, false}) {
    start(named ? std::vector<std::string>{"--proof", proof_, "--sent", sent_}
                : std::vector<std::string>{});
    const FileDetail now = ticket();
    ASSERT_NE(changed(now), nullptr);
    EXPECT_EQ(changed(now)->id, finding->id);
    EXPECT_EQ(changed(now)->state, "issue");
    EXPECT_EQ(changed(now)->state_by, "renny@tessarine.example");
    EXPECT_EQ(now.findings.size(), first.findings.size());
    EXPECT_EQ(now.versions->size(), 1U);
    EXPECT_EQ(now.file.pages, first.file.pages);
    EXPECT_EQ(pictureOf(now.file.pages->at(1).img), 200);
    EXPECT_EQ(pictureOf(now.file.pages->at(1).refs->at("submitted").img), 200);
  }
}

TEST_F(KeptOwn, HaveAVersionMoreWhenTheFileIsAnotherByNow) {
  const FileDetail first = ticket();
  running_->kill();
  // Written over, and not put in its place.
  fill(proof_, writtenPdf({pageSaying("Salt and sugar"), pageSaying("Bread"), pageSaying("Oil")}));
  start({});
  const FileDetail now = ticket();
  ASSERT_EQ(now.versions->size(), 2U);
  EXPECT_EQ(now.versions->at(0).status, "done");
  EXPECT_EQ(now.file.pages->size(), 3U);
  EXPECT_EQ(pictureOf(now.file.pages->at(2).img), 200);
  EXPECT_EQ(pictureOf(first.file.pages->at(0).img), 200) << "the first is as it was";
}

TEST_F(KeptOwn, StayAsTheyWereWhenTheFileIsGone) {
  const FileDetail first = ticket();
  running_->kill();
  std::filesystem::remove(proof_);
  start({});
  const FileDetail now = ticket();
  EXPECT_EQ(now.file.summary, first.file.summary);
  EXPECT_EQ(now.findings, first.findings);
  EXPECT_EQ(pictureOf(now.file.pages->at(0).img), 200);
}

TEST_F(KeptOwn, StayAsTheyWereWhenTheFileIsOnlyTouched) {
  const FileDetail first = ticket();
  running_->kill();
  std::filesystem::last_write_time(proof_, std::filesystem::file_time_type::clock::now());
  start({});
  const FileDetail now = ticket();
  EXPECT_EQ(now.versions->size(), 1U);
  EXPECT_EQ(now.findings, first.findings);
}

// Its check was still to be made when the service fell.
TEST_F(KeptOwn, StartWithoutAVersionWhoseFileIsLost) {
  const std::string copies = sandbox_ / "state/files";
  running_->kill();
  for (const auto& entry : std::filesystem::directory_iterator(copies)) {
    std::filesystem::remove(entry.path());
  }
  fill(proof_, "no PDF any more");
  start({});
  const FileDetail now = ticket();
  ASSERT_FALSE(now.versions->empty());
  EXPECT_EQ(now.versions->at(0).status, "failed");
  EXPECT_NE(now.versions->at(0).summary->find("is gone"), std::string::npos);
}

TEST(KeptBooks, AreSyncedBesideSomebodysOwnProof) {
  const Sandbox sandbox;
  const std::string proof = sandbox / "proof.pdf";
  fill(proof, writtenPdf({pageSaying("Salt")}));
  std::vector<std::string> arguments = {"--state", sandbox / "state"};
  std::size_t before = 0;
  {
    const RunningService books(arguments);
    Elsewhere there(books.port(), "");
    there.signIn();
    before = there.board().files.size();
  }
  arguments.insert(arguments.end(), {"--proof", proof});
  const RunningService both(arguments);
  Elsewhere there(both.port(), "");
  there.signIn();
  ASSERT_TRUE(there.eventually([](const BoardState& now) {
    return now.sync->id != "job-sync-0" && now.sync->status == "done";
  }));
  const BoardState now = there.board();
  EXPECT_EQ(now.files.size(), before + 2) << "one of the books' came in, and one is somebody's own";
  EXPECT_EQ(
      now.sync->summary->done,
      (std::vector<std::string>{"Read the supplier mail: 1 new proof", "Checked 1 proof, 1 page"}));
  EXPECT_EQ(now.sync->result->new_files, 2);
  const auto own = std::ranges::find(now.files, "proof", &FileItem::heading);
  ASSERT_NE(own, now.files.end());
  EXPECT_EQ(there.detail(own->id).versions->back().status, "done");
  // With nothing new among the books only the files are looked at.
  ASSERT_EQ(there.statusOf(there.post("/api/jobs", R"({"kind":"sync"})")), 200);
  const std::string first = now.sync->id;
  ASSERT_TRUE(there.eventually([&](const BoardState& later) {
    return later.sync->id != first && later.sync->status == "done";
  }));
  EXPECT_EQ(there.board().sync->summary->done,
            std::vector<std::string>{"Looked at the files again. Nothing new."});
}

}  // namespace
}  // namespace vellix::demo_tests
