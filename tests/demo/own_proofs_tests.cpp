// Somebody's own PDFs on the board: checked by a sync, page by page, against what they came from.
#include <set>

#include "own_service.hpp"

namespace vellix::demo_tests {
namespace {

class OwnProofs : public OwnService {};

TEST_F(OwnProofs, AreTheBoardAndTellTheWordThatDiffers) {
  auto changed = kSecond;
  changed[0] = "He climbed the stair thrice to see whether the lamp";
  const auto proof = pdf("The Salt Road.pdf", {saying(kFirst), saying(changed), saying(kThird)});
  const auto sent = pdf("ours.pdf", {saying(kFirst), saying(kSecond), saying(kThird)});
  start({"--proof", proof, "--sent", sent});
  const FileDetail one = onlyOne();
  EXPECT_EQ(one.file.heading(), "The Salt Road");
  EXPECT_EQ(one.file.status, "new");
  EXPECT_EQ(one.file.filename, "The Salt Road.pdf");
  ASSERT_EQ(one.file.pages->size(), 3U);
  for (Int i = 0; i < 3; ++i) {
    const Page& page = (*one.file.pages)[static_cast<std::size_t>(i)];
    ASSERT_TRUE(page.refs && page.refs->contains("submitted")) << i;
    EXPECT_EQ(page.refs->at("submitted").i, i);
    EXPECT_EQ(sizeOfJpeg(get("/api/blob/" + *page.img)).first, static_cast<int>((*page.px)[0]));
    EXPECT_GT(sizeOfJpeg(get("/api/blob/" + *page.thumb)).first, 0);
    EXPECT_GT(sizeOfJpeg(get("/api/blob/" + *page.refs->at("submitted").img)).first, 0);
  }
  const auto found = real(one);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].kind, "words");
  EXPECT_EQ(found[0].page, 1);
  EXPECT_EQ(found[0].against, "submitted");
  EXPECT_NE(found[0].after->find("thrice"), std::string::npos);
  EXPECT_NE(found[0].before->find("twice"), std::string::npos);
  ASSERT_TRUE(found[0].box && found[0].ref_box);
  EXPECT_TRUE(lies(*found[0].box));
  EXPECT_EQ(one.file.summary, "One thing to look at on 1 of 3 pages.");
  EXPECT_EQ(one.file.tally->open, 1);
  // The other two pages passed.
  EXPECT_EQ(std::ranges::count(one.findings, "pass", &Finding::kind), 2);
}

TEST_F(OwnProofs, AreCheckedByASyncThatTellsItsSteps) {
  const auto proof = pdf("proof.pdf", {saying(kFirst)});
  start({"--proof", proof, "--sent", pdf("ours.pdf", {saying(kFirst)}), "--title", "Salt", "--due",
         "2031-05-06T08:30"});
  const BoardState now = checked();
  ASSERT_TRUE(now.sync && now.sync->steps && now.sync->summary);
  EXPECT_EQ(now.sync->status, "done");
  EXPECT_TRUE(std::ranges::count(*now.sync->steps, "Reading the words") == 1);
  EXPECT_EQ(now.sync->steps->back(), "Writing what was found");
  EXPECT_EQ(now.sync->summary->done, std::vector<std::string>{"Checked 1 proof, 1 page"});
  EXPECT_EQ(now.files.front().heading(), "Salt");
  EXPECT_EQ(now.files.front().summary, "Nothing differs on 1 page.");
  const auto log = get("/api/jobs/" + now.sync->id);
  EXPECT_NE(log.find("Comparing pages"), std::string::npos);

  // Once more there is nothing to do.
  syncAgain();
  const BoardState again = checked();
  EXPECT_EQ(again.sync->summary->done,
            std::vector<std::string>{"Looked at the files again. Nothing new."});
}

// What passed is what has nothing to decide: a head that is another one on every page has not.
TEST_F(OwnProofs, PassOnNoPageWhereSomethingIsSeen) {
  const auto with = [](const std::string& head, const std::vector<std::string>& lines) {
    WrittenPage page = saying(lines);
    page.lines.insert(page.lines.begin(), {.text = head, .y = 760, .size = 10});
    return page;
  };
  const std::vector<std::vector<std::string>> texts = {kFirst, kSecond, kThird};
  std::vector<WrittenPage> proof;
  std::vector<WrittenPage> sent;
  for (const auto& text : texts) {
    proof.push_back(with("The Salt Roads", text));
    sent.push_back(with("The Salt Road", text));
  }
  start({"--proof", pdf("proof.pdf", proof), "--sent", pdf("ours.pdf", sent)});
  const FileDetail one = onlyOne();
  std::set<Int> seen;
  for (const Finding& finding : real(one)) seen.insert(finding.page);
  EXPECT_EQ(seen, (std::set<Int>{0, 1, 2}));
  EXPECT_EQ(std::ranges::count(one.findings, "pass", &Finding::kind), 0);
}

TEST_F(OwnProofs, WithMoreWordsThanAreReadPassOnNoPage) {
  const WrittenPage full = fullPage();
  start({"--proof", pdf("proof.pdf", {full, full}), "--sent", pdf("ours.pdf", {full, full})});
  const FileDetail one = onlyOne();
  EXPECT_EQ(told(one, false), std::vector<std::string>{"submitted: Not every word was compared"});
  EXPECT_EQ(std::ranges::count(one.findings, "pass", &Finding::kind), 0);
}

TEST_F(OwnProofs, MatchPagesWhereOneCameInAndSayWhatHasNoPartner) {
  const auto extra = saying({"A page that nobody here has ever seen before today,",
                             "put in between the others by some mistake."});
  start({"--proof", pdf("proof.pdf", {saying(kFirst), extra, saying(kSecond), saying(kThird)}),
         "--sent", pdf("ours.pdf", {saying(kFirst), saying(kSecond), saying(kThird)})});
  const FileDetail one = onlyOne();
  const auto& pages = *one.file.pages;
  EXPECT_EQ(pages[0].refs->at("submitted").i, 0);
  EXPECT_FALSE(pages[1].refs->contains("submitted"));
  EXPECT_EQ(pages[2].refs->at("submitted").i, 1);
  EXPECT_EQ(pages[2].refs->at("submitted").label, "2") << "and not the proof’s own name for it";
  EXPECT_EQ(pages[3].refs->at("submitted").i, 2);
  ASSERT_NE(one.file.ref("submitted"), nullptr);
  EXPECT_EQ(one.file.ref("submitted")->note, "ours.pdf has no page like this one.");
  EXPECT_EQ(one.file.ref("submitted")->matched, 3);
  const auto found = real(one);
  ASSERT_EQ(found.size(), 1U);
  // Of the kind that is shown where there is nothing beside the page.
  EXPECT_EQ(found[0].kind, "missing_page");
  EXPECT_EQ(found[0].page, 1);
}

TEST_F(OwnProofs, AreReportedOnAsAPdfOfWhatWasMarked) {
  start({"--proof", pdf("proof.pdf", {saying(kFirst), saying(kSecond)}), "--sent",
         pdf("ours.pdf", {saying(kFirst), saying(kThird)})});
  const FileDetail one = onlyOne();
  const auto found = real(one);
  ASSERT_FALSE(found.empty());
  EXPECT_EQ(post("/api/findings/" + found[0].id, R"({"state":"issue"})"), "{}");
  EXPECT_EQ(post("/api/jobs", R"({"kind":"report","file_ids":[")" + one.file.id + R"("]})"), "{}");
  BoardState now;
  for (int i = 0; i < 600 && now.reports.empty(); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    now = board();
  }
  ASSERT_EQ(now.reports.size(), 1U);
  EXPECT_TRUE(get("/api/reports/" + now.reports[0].id + "/pdf").starts_with("%PDF-"));
  ASSERT_TRUE(now.jobs.front().summary);
  EXPECT_EQ(now.jobs.front().summary->done,
            (std::vector<std::string>{"Made a report on proof", "Marked 1 real issue"}));
  // No order, and so nothing that was filed under one.
  EXPECT_FALSE(now.jobs.front().summary->changed);
}

TEST_F(OwnProofs, CanBeCheckedWithoutABoard) {
  const auto proof = pdf("proof.pdf", {saying(kSecond)});
  const auto sent = pdf("sent.pdf", {saying(kSecond)});
  const Ended ended = endOf({"--check", proof, sent});
  const std::string& same = ended.announced;
  EXPECT_EQ(ended.status, 0) << ended.said;
  EXPECT_NE(same.find(R"("pages":1)"), std::string::npos) << same;
  EXPECT_NE(same.find(R"("kind":"pass")"), std::string::npos);
  EXPECT_EQ(same.find(R"("state":"open")"), std::string::npos);
}

}  // namespace
}  // namespace vellix::demo_tests
