// Somebody's own PDFs on the board: checked by a sync, page by page, against what they came from.
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

#include "demo_service.hpp"
#include "written_pdf.hpp"

namespace vellix::demo_tests {
namespace {

namespace fs = std::filesystem;

// What the service says on both its outputs, and how it ends.
std::pair<std::string, int> toldBy(const std::string& arguments) {
  const std::string command =
      std::string(DEMO_SERVICE) + " --until-stdin-closes " + arguments + " </dev/null 2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  std::string all;
  std::array<char, 4096> piece{};
  while (const std::size_t got = std::fread(piece.data(), 1, piece.size(), pipe)) {
    all.append(piece.data(), got);
  }
  return {all, WEXITSTATUS(pclose(pipe))};
}

WrittenPage saying(const std::vector<std::string>& lines) {
  WrittenPage page;
  double y = 700;
  for (const std::string& line : lines) {
    page.lines.push_back({.text = line, .y = y, .size = 14});
    y -= 20;
  }
  return page;
}

const std::vector<std::string> kFirst = {"The harbour light had counted ships for eighty years",
                                         "and never once written down a name."};
const std::vector<std::string> kSecond = {"He climbed the stair twice to see whether the lamp",
                                          "had been turned, and found it burning."};
const std::vector<std::string> kThird = {"They are going to build it after all, she said at last,",
                                         "straight over the flats."};

class OwnProofs : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (fs::temp_directory_path() / "vellix-own-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    folder_ = name;
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string written(const std::string& name, const std::string& bytes) {
    const std::string path = folder_ / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }
  std::string pdf(const std::string& name, const std::vector<WrittenPage>& pages) {
    return written(name, writtenPdf(pages));
  }
  void start(std::vector<std::string> arguments) {
    service_ = std::make_unique<RunningService>(arguments);
    ASSERT_GT(service_->port(), 0);
    client_ = std::make_unique<httplib::Client>("127.0.0.1", service_->port());
    client_->set_read_timeout(30);
    const auto signedIn =
        decode<SignInAnswer>(post("/api/login/exchange", R"({"code":"demo-renny","state":""})"));
    ASSERT_TRUE(signedIn);
    token_ = signedIn->token;
  }
  httplib::Headers headers() const { return {{"Authorization", "Bearer " + token_}}; }
  std::string post(const std::string& path, const std::string& body) {
    const auto answer = client_->Post(path, headers(), body, "application/json");
    return answer && answer->status == 200 ? answer->body : std::string();
  }
  std::string get(const std::string& path) {
    const auto answer = client_->Get(path, headers());
    return answer && answer->status == 200 ? answer->body : std::string();
  }
  BoardState board() { return decode<BoardState>(get("/api/state")).value_or(BoardState{}); }
  FileDetail detail(const std::string& id, const std::string& query = {}) {
    return decode<FileDetail>(get("/api/files/" + id + query)).value_or(FileDetail{});
  }
  // The board once its sync has ended.
  BoardState checked() {
    for (int i = 0; i < 600; ++i) {
      const BoardState now = board();
      if (now.sync && !now.sync->active()) return now;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    ADD_FAILURE() << "the sync did not end";
    return {};
  }
  FileDetail onlyOne() {
    const BoardState now = checked();
    if (now.files.size() != 1) {
      ADD_FAILURE() << now.files.size() << " tickets";
      return {};
    }
    return detail(now.files.front().id);
  }

  fs::path folder_;
  std::unique_ptr<RunningService> service_;
  std::unique_ptr<httplib::Client> client_;
  std::string token_;
};

std::vector<Finding> real(const FileDetail& detail) {
  std::vector<Finding> all;
  std::ranges::copy_if(detail.findings, std::back_inserter(all), [](const Finding& finding) {
    return finding.kind != "pass" && finding.kind != "expected";
  });
  return all;
}

// What is expected, and what is not, as "role: title".
std::vector<std::string> told(const FileDetail& detail, bool expected) {
  std::vector<std::string> all;
  for (const Finding& finding : detail.findings) {
    if (finding.kind == "pass" || (finding.kind == "expected") != expected) continue;
    all.push_back(finding.against + ": " + finding.title);
  }
  return all;
}

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
  EXPECT_EQ(post("/api/jobs", R"({"kind":"sync"})"), "{}");
  const BoardState again = checked();
  EXPECT_EQ(again.sync->summary->done,
            std::vector<std::string>{"Looked at the files again. Nothing new."});
}

TEST_F(OwnProofs, BecomeANewVersionWhenAnotherFileLiesThere) {
  const auto proof = pdf("proof.pdf", {saying(kFirst), saying(kSecond)});
  start({"--proof", proof, "--sent", pdf("ours.pdf", {saying(kFirst), saying(kThird)})});
  const FileDetail before = onlyOne();
  EXPECT_EQ(before.version, 1);
  EXPECT_FALSE(real(before).empty());
  // As programs do that save: another file takes its place.
  const auto next = pdf("next.pdf", {saying(kFirst), saying(kThird)});
  fs::rename(next, proof);
  EXPECT_EQ(post("/api/jobs", R"({"kind":"sync"})"), "{}");
  const FileDetail after = onlyOne();
  EXPECT_EQ(after.version, 2);
  EXPECT_TRUE(real(after).empty()) << real(after).front().title;
  EXPECT_EQ(detail(after.file.id, "?v=1").findings.size(), before.findings.size());
  // The pages of the first are still those of the file that lay there.
  EXPECT_FALSE(get("/api/blob/" + *(*before.file.pages)[1].img).empty());
}

TEST_F(OwnProofs, KeepTheVersionBeforeWhenTheirFileIsWrittenOver) {
  const auto proof = pdf("proof.pdf", {saying(kFirst), saying(kSecond)});
  start({"--proof", proof, "--sent", pdf("ours.pdf", {saying(kFirst), saying(kThird)}), "--pages",
         folder_ / "pages"});
  const FileDetail before = onlyOne();
  (void)pdf("proof.pdf", {saying(kFirst), saying(kThird)});
  EXPECT_EQ(post("/api/jobs", R"({"kind":"sync"})"), "{}");
  const FileDetail after = onlyOne();
  EXPECT_EQ(after.version, 2);
  // Against the first as it was: what was wrong there came through.
  ASSERT_EQ(told(after, true).size(), 1U);
  EXPECT_TRUE(told(after, true)[0].starts_with("previous: Repaired: "));
  EXPECT_FALSE(get("/api/blob/" + *(*before.file.pages)[1].img).empty());
}

TEST_F(OwnProofs, AreCheckedAnewAgainstAnotherReference) {
  const auto sent = pdf("ours.pdf", {saying(kFirst), saying(kSecond)});
  start({"--proof", pdf("proof.pdf", {saying(kFirst), saying(kSecond)}), "--sent", sent});
  EXPECT_TRUE(real(onlyOne()).empty());
  fs::rename(pdf("next.pdf", {saying(kFirst), saying(kThird)}), sent);
  EXPECT_EQ(post("/api/jobs", R"({"kind":"sync"})"), "{}");
  const FileDetail after = onlyOne();
  EXPECT_EQ(after.version, 1);
  EXPECT_FALSE(real(after).empty());
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

TEST_F(OwnProofs, ExpectOfTheFbcWhatOurFileHasToo) {
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
TEST_F(OwnProofs, TellOfARevisionWhatCameThroughAndWhatDidNot) {
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

TEST_F(OwnProofs, ShowAPageThatTheVersionBeforeLacksBesideOurs) {
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

TEST_F(OwnProofs, AStoppedSyncGoesOnWithTheNextOne) {
  std::vector<WrittenPage> many(200, saying(kFirst));
  start({"--proof", pdf("proof.pdf", many), "--sent", pdf("ours.pdf", many)});
  const std::string id = board().sync->id;
  EXPECT_EQ(post("/api/jobs/" + id + "/stop", "{}"), "{}");
  const FileDetail stopped = onlyOne();
  EXPECT_EQ(board().sync->status, "stopped");
  EXPECT_EQ(stopped.versions->back().status, "failed");
  EXPECT_EQ(stopped.file.summary, "The check was stopped. The next sync checks it.");
  EXPECT_EQ(stopped.file.pages->size(), 200U);
  EXPECT_EQ(post("/api/jobs", R"({"kind":"sync"})"), "{}");
  const FileDetail done = onlyOne();
  EXPECT_EQ(done.versions->back().status, "done");
  EXPECT_EQ(done.file.summary, "Nothing differs on 200 pages.");
}

TEST_F(OwnProofs, WithNothingToCompareWithSaySo) {
  start({"--proof", pdf("proof.pdf", {saying(kFirst)})});
  const FileDetail one = onlyOne();
  EXPECT_EQ(one.file.summary, "There is no file that it could be compared with.");
  EXPECT_EQ(one.file.ref("submitted")->note, "None was given to compare with.");
  EXPECT_EQ(one.versions->back().status, "done");
}

TEST_F(OwnProofs, ThatAreDamagedHaveAVersionThatFailed) {
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

TEST_F(OwnProofs, AnUploadedRevisionIsCheckedAgainstAllThereIs) {
  start({"--proof", pdf("proof.pdf", {saying(kSecond)}), "--sent",
         pdf("ours.pdf", {saying(kFirst)})});
  const FileDetail one = onlyOne();
  auto all = headers();
  all.emplace("x-filename", "better.pdf");
  const auto answer = client_->Put("/api/files/" + one.file.id + "/versions", all,
                                   writtenPdf({saying(kFirst)}), "application/pdf");
  ASSERT_TRUE(answer && answer->status == 200);
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
  EXPECT_EQ(post("/api/jobs", R"({"kind":"sync"})"), "{}");
  EXPECT_EQ(onlyOne().version, 2);
}

TEST_F(OwnProofs, ThatCannotBeTakenOnAreToldAtTheStart) {
  const auto good = pdf("good.pdf", {saying(kFirst)});
  const auto locked = written("locked.pdf", writtenPdf({saying(kFirst)}, true));
  const auto said = [&](const std::string& arguments) {
    const auto [text, code] = toldBy(arguments);
    EXPECT_NE(code, 0) << arguments;
    return text;
  };
  EXPECT_NE(said("--proof " + locked)
                .find(locked + " is locked with a password. Save a copy that opens without."),
            std::string::npos);
  EXPECT_NE(said("--proof " + good + " --sent " + locked).find("is locked with a password"),
            std::string::npos);
  EXPECT_NE(said("--proof " + good + " --previous " + written("bad.pdf", "no PDF"))
                .find("bad.pdf: The PDF is damaged and did not open."),
            std::string::npos);
  EXPECT_NE(said("--proof /nowhere/at-all.pdf").find("/nowhere/at-all.pdf cannot be opened."),
            std::string::npos);
  EXPECT_NE(said("--sent " + good).find("--sent belongs behind a --proof."), std::string::npos);
  EXPECT_NE(said("--due 2026-12-01").find("--due belongs behind a --proof."), std::string::npos);
  EXPECT_NE(said("--proof " + good + " --due soon").find("--due is a day such as 2026-12-01"),
            std::string::npos);
  EXPECT_NE(said("--proof " + good + " --sent " + good + " --sent " + good)
                .find("--sent stands twice for one --proof."),
            std::string::npos);
  EXPECT_NE(said("--proof " + good + " --proof " + good).find("good.pdf is given twice."),
            std::string::npos);
  EXPECT_NE(said("--proof").find("usage:"), std::string::npos);
  EXPECT_NE(said("--prove " + good).find("usage:"), std::string::npos);
  EXPECT_NE(said("--check " + good).find("--check needs two PDFs."), std::string::npos);
  EXPECT_NE(said("--check " + good + " " + locked).find("locked with a password"),
            std::string::npos);
}

TEST_F(OwnProofs, CanBeCheckedWithoutABoard) {
  const auto proof = pdf("proof.pdf", {saying(kSecond)});
  const auto sent = pdf("sent.pdf", {saying(kSecond)});
  const auto [same, code] = toldBy("--check " + proof + " " + sent);
  EXPECT_EQ(code, 0);
  EXPECT_NE(same.find(R"("pages":1)"), std::string::npos) << same;
  EXPECT_NE(same.find(R"("kind":"pass")"), std::string::npos);
  EXPECT_EQ(same.find(R"("state":"open")"), std::string::npos);
}

}  // namespace
}  // namespace vellix::demo_tests
