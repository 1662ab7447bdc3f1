// Somebody's own PDFs that cannot be read, and checks that do not come to their end.
#include <chrono>

#include "own_service.hpp"

namespace vellix::demo_tests {
namespace {

class OwnFailures : public OwnService {};

TEST_F(OwnFailures, AStoppedSyncGoesOnWithTheNextOne) {
  std::vector<WrittenPage> many(200, saying(kFirst));
  start({"--proof", pdf("proof.pdf", many), "--sent", pdf("ours.pdf", many)});
  const std::string id = board().sync->id;
  EXPECT_EQ(post("/api/jobs/" + id + "/stop", "{}"), "{}");
  const FileDetail stopped = onlyOne();
  EXPECT_EQ(board().sync->status, "stopped");
  EXPECT_EQ(stopped.versions->back().status, "failed");
  EXPECT_EQ(stopped.file.summary, "The check was stopped. The next sync checks it.");
  EXPECT_EQ(stopped.file.pages->size(), 200U);
  syncAgain();
  const FileDetail done = onlyOne();
  EXPECT_EQ(done.versions->back().status, "done");
  EXPECT_EQ(done.file.summary, "Nothing differs on 200 pages.");
}

TEST_F(OwnFailures, WithNothingToCompareWithSaySo) {
  start({"--proof", pdf("proof.pdf", {saying(kFirst)})});
  const FileDetail one = onlyOne();
  EXPECT_EQ(one.file.summary, "There is no file that it could be compared with.");
  EXPECT_EQ(one.file.ref("submitted")->note, "None was given to compare with.");
  EXPECT_EQ(one.versions->back().status, "done");
}

TEST_F(OwnFailures, ThatAreDamagedHaveAVersionThatFailed) {
  start({"--proof", written("proof.pdf", "%PDF-1.4\nnothing of the kind"), "--sent",
         pdf("ours.pdf", {saying(kFirst)}), "--proof", pdf("good.pdf", {saying(kFirst)}), "--sent",
         written("bad.pdf", "no PDF at all")});
  const BoardState now = checked();
  ASSERT_EQ(now.files.size(), 2U);
  const FileDetail damaged = detail(now.files[0].id);
  EXPECT_EQ(damaged.versions->back().status, "failed");
  EXPECT_EQ(damaged.versions->back().summary,
            "The PDF is damaged and did not open. Upload it again.");
  const FileDetail good = detail(now.files[1].id);
  EXPECT_EQ(good.file.ref("submitted")->note, "bad.pdf did not open.");
  EXPECT_EQ(good.versions->back().status, "done");
  EXPECT_NE(good.file.summary->find("bad.pdf did not open. Nothing was compared with it."),
            std::string::npos);
}

TEST_F(OwnFailures, OfWhatTheyAreComparedWithAreTold) {
  const auto sent = pdf("ours.pdf", {saying(kFirst)});
  const auto fbc = pdf("fbc.pdf", {saying(kFirst)});
  start({"--proof", pdf("proof.pdf", {saying(kFirst)}), "--sent", sent, "--fbc", fbc});
  EXPECT_EQ(onlyOne().file.summary, "Nothing differs on 1 page.");
  (void)written("fbc.pdf", "no PDF any more");
  syncAgain();
  EXPECT_EQ(onlyOne().file.summary,
            "Nothing differs on 1 page. fbc.pdf did not open. Nothing was compared with it.");
  (void)written("fbc.pdf", writtenPdf({saying(kFirst)}, true));
  std::filesystem::remove(sent);
  syncAgain();
  const FileDetail one = onlyOne();
  EXPECT_EQ(one.file.summary,
            "There is no file that it could be compared with. ours.pdf cannot be opened any more. "
            "Nothing was compared with it. fbc.pdf is locked with a password. Nothing was compared "
            "with it.");
  EXPECT_EQ(one.file.ref("submitted")->note, "ours.pdf cannot be opened any more.");
  EXPECT_FALSE(one.file.ref("fbc")->matched);
  EXPECT_EQ(std::ranges::count(one.findings, "pass", &Finding::kind), 0);
}

// Names may be any bytes; what is told is text.
TEST_F(OwnFailures, AreNoneWhereNamesAreNoText) {
  const auto proof = pdf("pr\xF6\xF6\xFF.pdf", {saying(kFirst)});
  const auto sent = pdf("\xFCnsere.pdf", {saying(kSecond)});
  const std::string state = sandbox_ / "state";
  start({"--proof", proof, "--sent", sent, "--state", state});
  const FileDetail one = onlyOne();
  EXPECT_EQ(one.file.heading(), "pr\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(one.file.filename, "pr\uFFFD\uFFFD\uFFFD.pdf");
  ASSERT_NE(one.file.ref("submitted"), nullptr);
  EXPECT_EQ(one.file.ref("submitted")->name, "\uFFFDnsere.pdf");
  EXPECT_FALSE(real(one).empty());
  // They are found again on another day.
  service_->kill();
  std::filesystem::rename(pdf("next.pdf", {saying(kSecond)}), proof);
  start({"--state", state});
  const FileDetail after = onlyOne();
  EXPECT_EQ(after.file.id, one.file.id);
  EXPECT_EQ(after.version, 2);
  EXPECT_TRUE(real(after).empty());
  std::filesystem::remove(proof);
  syncAgain();
  EXPECT_EQ(checked().sync->summary->check,
            std::vector<std::string>{sandbox_ / "pr\uFFFD\uFFFD\uFFFD.pdf cannot be opened."});
}

TEST_F(OwnFailures, ThatCannotBeTakenOnAreToldAtTheStart) {
  const auto good = pdf("good.pdf", {saying(kFirst)});
  const auto locked = written("locked.pdf", writtenPdf({saying(kFirst)}, true));
  const auto bad = written("bad.pdf", "no PDF");
  const auto says = [](const std::vector<std::string>& arguments, const std::string& what) {
    const Ended ended = endOf(arguments);
    EXPECT_NE(ended.status, 0) << what;
    EXPECT_NE(ended.said.find(what), std::string::npos) << ended.said;
  };
  const std::string isLocked =
      locked + " is locked with a password. Save a copy that opens without.";
  says({"--proof", locked}, isLocked);
  for (const char* role : {"--sent", "--previous", "--fbc"}) {
    says({"--proof", good, role, locked}, isLocked);
    says({"--proof", good, role, "/nowhere/at-all.pdf"}, "/nowhere/at-all.pdf cannot be opened.");
    says({"--proof", good, role, good, role, good},
         std::string(role) + " stands twice for one --proof.");
    says({role, good}, std::string(role) + " belongs behind a --proof.");
  }
  says({"--proof", good, "--previous", bad}, bad + ": The PDF is damaged and did not open.");
  says({"--proof", "/nowhere/at-all.pdf"}, "/nowhere/at-all.pdf cannot be opened.");
  says({"--due", "2026-12-01"}, "--due belongs behind a --proof.");
  says({"--proof", good, "--due", "soon"}, "--due is a day such as 2026-12-01");
  says({"--proof", good, "--proof", good}, "good.pdf is given twice.");
  says({"--proof"}, "usage:");
  says({"--prove", good}, "usage:");
  says({"--check", good}, "--check needs two PDFs.");
  says({"--check", good, locked}, "locked with a password");
}

// What takes seconds to read is damaged, and large.
class OwnLargeFailures : public OwnFailures {
 protected:
  // How long the longest answer took, as a part of the whole sync.
  double longestWait() {
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    syncAgain();
    Clock::duration longest{};
    for (bool active = true; active;) {
      const auto asked = Clock::now();
      active = board().sync->active();
      longest = std::max(longest, Clock::now() - asked);
    }
    return std::chrono::duration<double>(longest) / (Clock::now() - begin);
  }
  // In the place of that file.
  void becomesLarge(const std::string& path) {
    const auto large = written("large.pdf", "%PDF-1.4\n");
    std::filesystem::resize_file(large, 200 << 20);
    std::filesystem::rename(large, path);
  }
};

TEST_F(OwnLargeFailures, HoldUpNoAnswer) {
  const auto proof = pdf("proof.pdf", {saying(kFirst)});
  const auto sent = pdf("ours.pdf", {saying(kFirst)});
  start({"--proof", proof, "--sent", sent});
  (void)onlyOne();
  becomesLarge(sent);
  EXPECT_LT(longestWait(), 0.3);
  EXPECT_EQ(onlyOne().file.summary,
            "There is no file that it could be compared with. ours.pdf did not open. Nothing was "
            "compared with it.");
  becomesLarge(proof);
  EXPECT_LT(longestWait(), 0.3);
  EXPECT_EQ(onlyOne().versions->back().status, "failed");
}

}  // namespace
}  // namespace vellix::demo_tests
