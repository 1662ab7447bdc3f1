// What a staged Store shows, flag by flag.
#include "shell/staged_store.hpp"

#include "shell/closed_http.hpp"
#include "store/store_test.hpp"

namespace vellix {
namespace {

using Ids = std::set<std::string>;
const Moment kNow = momentOf(1'700'000'000'000);

FileItem trackedTicket(std::string id, std::string track) {
  FileItem file = ticketOf(std::move(id));
  file.track = std::move(track);
  return file;
}

Sample sampleOf(std::vector<FileItem> files) {
  Sample sample{.board = boardOf(std::move(files))};
  for (const FileItem& file : sample.board.files) sample.details[file.id] = detailOf(file);
  return sample;
}

// Two new titles and a reprint; the second ticket has findings, its first grave one on page 3.
Sample threeTickets() {
  Sample sample = sampleOf({trackedTicket("a", "new_title"), trackedTicket("b", "new_title"),
                            trackedTicket("c", "reprint")});
  sample.details["b"].findings = {findingOf("low", 1, "low"), findingOf("high", 3),
                                  findingOf("higher", 5)};
  return sample;
}

Task<> hold(Pending<HttpResult> pending, std::optional<HttpResult>* to) { *to = co_await pending; }

class StagedStore : public StoreTest {
 protected:
  StagedStore() : StoreTest(std::nullopt) { store().sample = true; }
  Store& stage(Arguments flags = {}, Sample sample = threeTickets()) {
    stageSample(store(), std::move(sample), flags, kNow);
    return store();
  }
  Int page(const std::string& id) { return store().page().at(id); }
};

TEST_F(StagedStore, ShowsTheFirstTicketOfTheSample) {
  stage();
  EXPECT_TRUE(store().signedIn());
  EXPECT_EQ(store().board(), threeTickets().board);
  EXPECT_EQ(store().details(), threeTickets().details);
  EXPECT_EQ(store().lastOK(), kNow);
  EXPECT_EQ(store().selection(), Ids{"a"});
  EXPECT_EQ(page("a"), 0);
  EXPECT_EQ(store().focus(), std::nullopt);
  EXPECT_EQ(store().queue(), "");
  EXPECT_FALSE(store().showActivity());
  EXPECT_FALSE(store().draft());
  EXPECT_FALSE(store().profile());
  EXPECT_FALSE(store().stats());
  EXPECT_EQ(store().zoom(), 1);
  EXPECT_FALSE(store().notesDrawer());
  EXPECT_EQ(store().sideTab(), "page");
}

TEST_F(StagedStore, ShowsAnEmptyBoard) {
  stage({"--draft", "--focus", "--multi"}, sampleOf({}));
  EXPECT_EQ(store().selection(), Ids{});
  EXPECT_FALSE(store().draft());
  stage({"--draft", "--focus", "--zoom", "2"}, sampleOf({}));
  EXPECT_EQ(store().selection(), Ids{});
  EXPECT_EQ(store().zoom(), 2);
}

TEST_F(StagedStore, ChoosesTheTicketThatIsAskedFor) {
  struct Case {
    Arguments flags;
    Ids selection;
  };
  const Case cases[] = {
      {{"--file", "b"}, {"b"}},
      {{"--file", "z"}, {"a"}},
      {{"--file"}, {"a"}},
      {{"--reprints"}, {"c"}},
      {{"--reprints", "--file", "b"}, {"b"}},
      {{"--reprints", "--file", "z"}, {"c"}},
      {{"--multi"}, {"a", "b"}},
      {{"--multi", "--file", "c"}, {"a", "b"}},
      {{"--multi", "--reprints"}, {"a", "b"}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(stage(c.flags).selection(), c.selection) << c.flags.back();
  }
}

TEST_F(StagedStore, FallsBackToTheFirstTicketWhereNoneIsAReprint) {
  stage({"--reprints"}, sampleOf({ticketOf("a"), trackedTicket("b", "new_title")}));
  EXPECT_EQ(store().selection(), Ids{"a"});
}

TEST_F(StagedStore, KeepsTheQueueOfReprints) {
  stage({"--reprints"});
  EXPECT_EQ(store().queue(), "reprint");
  EXPECT_EQ(desk.defaults.text("Queue"), "reprint");
}

TEST_F(StagedStore, OpensThePageOfTheFirstGraveFinding) {
  stage({"--file", "b"});
  EXPECT_EQ(page("b"), 3);
  EXPECT_EQ(store().focus(), std::nullopt);
  stage({"--file", "b", "--focus"});
  EXPECT_EQ(page("b"), 3);
  EXPECT_EQ(store().focus(), "high");
}

TEST_F(StagedStore, FocusesNothingWithoutAGraveFinding) {
  stage({"--focus"});
  EXPECT_EQ(page("a"), 0);
  EXPECT_EQ(store().focus(), std::nullopt);
  Sample bare = threeTickets();
  bare.details.clear();
  stage({"--focus", "--file", "b"}, std::move(bare));
  EXPECT_EQ(page("b"), 0);
}

TEST_F(StagedStore, LeavesPageAndFocusAloneWithTwoTickets) {
  stage({"--multi", "--focus", "--draft"});
  EXPECT_TRUE(store().page().empty());
  EXPECT_EQ(store().focus(), std::nullopt);
  EXPECT_FALSE(store().draft());
}

TEST_F(StagedStore, OpensThePanels) {
  stage({"--activity", "--narrow", "--history"});
  EXPECT_TRUE(store().showActivity());
  EXPECT_TRUE(store().notesDrawer());
  EXPECT_EQ(store().sideTab(), "history");
}

TEST_F(StagedStore, DraftsANoteOnTheCurrentPage) {
  stage({"--draft", "--file", "b"});
  ASSERT_TRUE(store().draft());
  EXPECT_EQ(store().draft()->fileID, "b");
  EXPECT_EQ(store().draft()->page, 3);
  EXPECT_EQ(store().draft()->side, "supplier");
  EXPECT_GT(store().draft()->w, 0);
  EXPECT_LE(store().draft()->y + store().draft()->h, 1);
}

TEST_F(StagedStore, ZoomsToAnyNumber) {
  for (const auto& [text, zoom] : std::map<std::string, double>{{"2.5", 2.5}, {"9", 9}}) {
    EXPECT_EQ(stage({"--zoom", text}).zoom(), zoom);
  }
  EXPECT_EQ(stage({"--zoom", "wide"}).zoom(), 9);
  EXPECT_EQ(stage({"--zoom"}).zoom(), 9);
}

TEST_F(StagedStore, ComparesInTheModeThatIsAskedFor) {
  EXPECT_EQ(stage().mode(), CompareMode::side);
  EXPECT_EQ(stage({"--mode", "overlay"}).mode(), CompareMode::overlay);
  EXPECT_EQ(stage({"--mode", "blink"}).mode(), CompareMode::blink);
  EXPECT_EQ(stage({"--mode", "sideways"}).mode(), CompareMode::side);
  EXPECT_EQ(stage({"--mode"}).mode(), CompareMode::side);
}

TEST_F(StagedStore, TellsOfTroubleAndOfWhatWasDone) {
  EXPECT_EQ(stage().problem(), std::nullopt);
  EXPECT_EQ(store().toast(), std::nullopt);
  EXPECT_EQ(stage({"--offline"}).problem(),
            "Can't reach the Vellix server right now. Trying again…");
  stage({"--toast"});
  ASSERT_TRUE(store().toast());
  EXPECT_EQ(store().toast()->undoLabel, "Undo");
}

TEST_F(StagedStore, FollowsTheSelectionRuleWhenTold) {
  store().queue.set("reprint");
  EXPECT_EQ(stage().selection(), Ids{"a"});
  EXPECT_EQ(stage({"--follow"}).selection(), Ids{"c"});
}

TEST_F(StagedStore, OpensOnesOwnProfileWithMadeUpFigures) {
  stage({"--profile"});
  EXPECT_EQ(store().profile(), "renny@tessarine.example");
  ASSERT_TRUE(store().stats());
  EXPECT_EQ(store().stats()->users.size(), 1U);
  const PersonStats& stats = store().stats()->users.at("renny@tessarine.example");
  EXPECT_EQ(stats.reviewed, 39);
  EXPECT_EQ(stats.on_time_rate, 89);
  EXPECT_EQ(stats.avg_hours, 6.4);
  EXPECT_EQ(stats.by_kind.size(), 6U);
  ASSERT_EQ(stats.weekly.size(), 8U);
  EXPECT_EQ(stats.weekly.back().start, wireOf(kNow));
  for (std::size_t i = 1; i < stats.weekly.size(); ++i) {
    EXPECT_EQ(stats.weekly[i].start - stats.weekly[i - 1].start, 604'800'000);
  }
  ASSERT_EQ(stats.mentions.size(), 1U);
  EXPECT_EQ(stats.mentions[0], (Mention{.file_id = "a",
                                        .text = "Can you check the barcode on the back cover?",
                                        .by = "jorvas@tessarine.example",
                                        .at = wireOf(kNow) - 3'600'000}));
}

TEST_F(StagedStore, OpensAProfileInItsOtherStates) {
  stage({"--profile", "adding"});
  EXPECT_EQ(store().profile(), "renny@tessarine.example");
  EXPECT_FALSE(store().stats());
  stage({"--profile", "empty"});
  const PersonStats& none = store().stats()->users.at("renny@tessarine.example");
  EXPECT_EQ(none.reviewed, 0);
  EXPECT_TRUE(none.mentions.empty());
  ASSERT_EQ(none.weekly.size(), 8U);
  for (const WeekCount& week : none.weekly) EXPECT_EQ(week.count, 0);
  stage({"--profile", "colleague"});
  EXPECT_EQ(store().profile(), "jorvas@tessarine.example");
  EXPECT_EQ(store().stats()->users.at("jorvas@tessarine.example").reviewed, 39);
  stage({"--profile", "--dark"});
  EXPECT_EQ(store().profile(), "renny@tessarine.example") << "the next flag is none of these";
  EXPECT_EQ(store().stats()->users.at("renny@tessarine.example").reviewed, 39);
}

TEST_F(StagedStore, MentionsNobodyWhereNobodyIs) {
  BoardState alone = boardOf({ticketOf("a")});
  alone.users.resize(1);
  EXPECT_TRUE(madeUpStats(alone, "r", kNow).users.at("r").mentions.empty());
  EXPECT_TRUE(madeUpStats(boardOf({}), "r", kNow).users.at("r").mentions.empty());
}

TEST_F(StagedStore, AsksTheServiceNothing) {
  stage({"--file", "b"});
  store().startLoop();
  desk.tasks.start(store().refresh());
  desk.time.run();
  EXPECT_FALSE(store().looping());
  EXPECT_TRUE(lines().empty());
}

TEST(ClosedNetwork, AnswersThatThereIsNone) {
  VirtualTime time;
  ClosedHttp http(time);
  std::optional<HttpResult> answer;
  TaskScope tasks;
  tasks.start(hold(http.send({.method = "GET", .url = "https://x.example/"}, {}), &answer));
  EXPECT_FALSE(answer);
  time.run();
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->error(), HttpError::notConnected);
}

}  // namespace
}  // namespace vellix
