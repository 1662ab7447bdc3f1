// Somebody's own proofs that come again, and what they are compared with then.
#include "own_service.hpp"

namespace vellix::demo_tests {
namespace {

class OwnRevisions : public OwnService {};

TEST_F(OwnRevisions, BecomeANewVersionWhenAnotherFileLiesThere) {
  const auto proof = pdf("proof.pdf", {saying(kFirst), saying(kSecond)});
  start({"--proof", proof, "--sent", pdf("ours.pdf", {saying(kFirst), saying(kThird)})});
  const FileDetail before = onlyOne();
  EXPECT_EQ(before.version, 1);
  EXPECT_FALSE(real(before).empty());
  // As programs do that save: another file takes its place.
  const auto next = pdf("next.pdf", {saying(kFirst), saying(kThird)});
  std::filesystem::rename(next, proof);
  syncAgain();
  const FileDetail after = onlyOne();
  EXPECT_EQ(after.version, 2);
  EXPECT_TRUE(real(after).empty()) << real(after).front().title;
  EXPECT_EQ(detail(after.file.id, "?v=1").findings.size(), before.findings.size());
  // The pages of the first are still those of the file that lay there.
  EXPECT_FALSE(get("/api/blob/" + *(*before.file.pages)[1].img).empty());
}

TEST_F(OwnRevisions, KeepTheVersionBeforeWhenTheirFileIsWrittenOver) {
  const auto proof = pdf("proof.pdf", {saying(kFirst), saying(kSecond)});
  start({"--proof", proof, "--sent", pdf("ours.pdf", {saying(kFirst), saying(kThird)}), "--pages",
         sandbox_ / "pages"});
  const FileDetail before = onlyOne();
  (void)pdf("proof.pdf", {saying(kFirst), saying(kThird)});
  syncAgain();
  const FileDetail after = onlyOne();
  EXPECT_EQ(after.version, 2);
  // Against the first as it was: what was wrong there came through.
  ASSERT_EQ(told(after, true).size(), 1U);
  EXPECT_TRUE(told(after, true)[0].starts_with("previous: Repaired: "));
  EXPECT_FALSE(get("/api/blob/" + *(*before.file.pages)[1].img).empty());
}

TEST_F(OwnRevisions, AreCheckedAnewAgainstAnotherReference) {
  const auto sent = pdf("ours.pdf", {saying(kFirst), saying(kSecond)});
  start({"--proof", pdf("proof.pdf", {saying(kFirst), saying(kSecond)}), "--sent", sent});
  EXPECT_TRUE(real(onlyOne()).empty());
  std::filesystem::rename(pdf("next.pdf", {saying(kFirst), saying(kThird)}), sent);
  syncAgain();
  const FileDetail after = onlyOne();
  EXPECT_EQ(after.version, 1);
  EXPECT_FALSE(real(after).empty());
}

TEST_F(OwnRevisions, ExpectOfTheFbcWhatOurFileHasToo) {
  auto edited = kSecond;
  edited[0] = "He climbed the stair thrice to see whether the lamp";
  start({"--proof", pdf("proof.pdf", {saying(kFirst), saying(edited)}), "--sent",
         pdf("ours.pdf", {saying(kFirst), saying(edited)}), "--fbc",
         pdf("fbc.pdf", {saying(kFirst), saying(kSecond)})});
  const FileDetail one = onlyOne();
  EXPECT_EQ(one.version, 1);
  EXPECT_EQ(told(one, false), std::vector<std::string>{});
  EXPECT_EQ(told(one, true), std::vector<std::string>{"fbc: Our edit: One word changed"});
}

// A revision is shown beside the version before it alone, so all that is told is told there.
TEST_F(OwnRevisions, TellOfARevisionWhatCameThroughAndWhatDidNot) {
  auto repaired = kFirst;
  repaired[0] = "The harbour light had counted sheep for eighty years";
  auto wrong = kSecond;
  wrong[0] = "He climbed the stair thrice to see whether the lamp";
  start({"--proof", pdf("proof.pdf", {saying(kFirst), saying(wrong)}), "--sent",
         pdf("ours.pdf", {saying(kFirst), saying(kSecond)}), "--previous",
         pdf("old.pdf", {saying(repaired), saying(wrong)})});
  const FileDetail one = onlyOne();
  EXPECT_EQ(one.version, 2);
  EXPECT_EQ(one.versions->front().filename, "old.pdf");
  EXPECT_EQ(one.versions->front().status, "done");
  EXPECT_EQ(told(one, true), std::vector<std::string>{"previous: Repaired: One word changed"});
  EXPECT_EQ(told(one, false),
            std::vector<std::string>{"previous: Not as in our file: One word changed"});
  EXPECT_EQ(detail(one.file.id, "?v=1").file.pages->size(), 2U);
}

TEST_F(OwnRevisions, SayThatTheyAreNotComparedWithTheFbc) {
  const std::vector<std::string> given = {"--proof",    pdf("proof.pdf", {saying(kFirst)}),
                                          "--sent",     pdf("ours.pdf", {saying(kFirst)}),
                                          "--previous", pdf("old.pdf", {saying(kFirst)}),
                                          "--fbc",      pdf("fbc.pdf", {saying(kSecond)})};
  const std::string why =
      "fbc.pdf was not compared: a revision is shown beside the version before it, where the FBC "
      "has no place.";
  EXPECT_NE(endOf(given).said.find(why + "\n"), std::string::npos);
  start(given);
  const FileDetail one = onlyOne();
  EXPECT_EQ(one.file.summary, "Nothing differs on 1 page. " + why);
  ASSERT_NE(one.file.ref("fbc"), nullptr);
  EXPECT_EQ(one.file.ref("fbc")->note, why);
  // It is not among what the version was checked against.
  ASSERT_TRUE(one.origin && one.origin->refs);
  EXPECT_EQ(std::ranges::count(*one.origin->refs, "fbc", &Ref::role), 0);
  EXPECT_EQ(one.origin->refs->size(), 2U);
}

// What was not compared is not said to differ.
TEST_F(OwnRevisions, SayBesideTheVersionBeforeWhatWasNotCompared) {
  start({"--proof", pdf("proof.pdf", {fullPage()}), "--sent", pdf("ours.pdf", {fullPage()}),
         "--previous", pdf("old.pdf", {fullPage()})});
  const FileDetail one = onlyOne();
  EXPECT_EQ(told(one, false), std::vector<std::string>(2, "previous: Not every word was compared"));
}

TEST_F(OwnRevisions, AreTheSuppliers) {
  start({"--proof", pdf("proof.pdf", {saying(kFirst)}), "--previous",
         pdf("old.pdf", {saying(kFirst)})});
  FileDetail one = onlyOne();
  EXPECT_EQ(one.versions->back().by, "supplier");
  ASSERT_EQ(there_->statusOf(there_->put(one.file.id, writtenPdf({saying(kFirst)}))), 200);
  one = detail(one.file.id);
  EXPECT_EQ(one.versions->back().by, "renny@tessarine.example");
}

TEST_F(OwnRevisions, OutdateAnApproval) {
  const auto proof = pdf("proof.pdf", {saying(kFirst)});
  start({"--proof", proof, "--sent", pdf("ours.pdf", {saying(kFirst)})});
  const std::string id = onlyOne().file.id;
  EXPECT_NE(post("/api/files/" + id + "/approval",
                 R"({"action":"request","approvers":["mira@tessarine.example"]})"),
            "");
  ASSERT_TRUE(detail(id).approval);
  EXPECT_NE(detail(id).approval->state, "revised");
  std::filesystem::rename(pdf("next.pdf", {saying(kSecond)}), proof);
  syncAgain();
  const FileDetail after = onlyOne();
  EXPECT_EQ(after.version, 2);
  EXPECT_EQ(after.approval->state, "revised");
  EXPECT_EQ(after.approval->version, 1);
  EXPECT_EQ(after.file.approval, "revised");
}

TEST_F(OwnRevisions, ShowAPageThatTheVersionBeforeLacksBesideOurs) {
  auto wrong = kThird;
  wrong[0] = "They are going to burn it after all, she said at last,";
  start({"--proof", pdf("proof.pdf", {saying(kFirst), saying(wrong)}), "--sent",
         pdf("ours.pdf", {saying(kFirst), saying(kThird)}), "--previous",
         pdf("old.pdf", {saying(kFirst)})});
  const FileDetail one = onlyOne();
  const auto& refs = *(*one.file.pages)[1].refs;
  ASSERT_TRUE(refs.contains("previous"));
  EXPECT_EQ(refs.at("previous").img, refs.at("submitted").img);
  EXPECT_EQ(refs.at("previous").label, "2 of our file");
  const auto all = told(one, false);
  EXPECT_EQ(std::ranges::count(all, "previous: Not as in our file: One word changed"), 1);
}

TEST_F(OwnRevisions, AnUploadedRevisionIsCheckedAgainstAllThereIs) {
  start({"--proof", pdf("proof.pdf", {saying(kSecond)}), "--sent",
         pdf("ours.pdf", {saying(kFirst)})});
  const FileDetail one = onlyOne();
  ASSERT_EQ(there_->statusOf(there_->put(one.file.id, writtenPdf({saying(kFirst)}))), 200);
  FileDetail now;
  for (int i = 0; i < 600; ++i) {
    now = detail(one.file.id);
    if (now.versions->back().status == "done") break;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  EXPECT_EQ(now.version, 2);
  EXPECT_EQ(now.versions->back().status, "done");
  EXPECT_TRUE(real(now).empty());
  EXPECT_NE(now.file.ref("submitted"), nullptr);
  EXPECT_NE(now.file.ref("previous"), nullptr);
  // What lies at the proof's path is still the first version, and no third one.
  (void)checked();
  syncAgain();
  EXPECT_EQ(onlyOne().version, 2);
}

}  // namespace
}  // namespace vellix::demo_tests
