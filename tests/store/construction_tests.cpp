// How the Store comes to life.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class NewStore : public StoreTest {};

TEST_F(NewStore, HasTheInitialValueOfEveryField) {
  const Store& store = this->store();
  EXPECT_TRUE(store.signedIn());
  EXPECT_FALSE(store.board());
  EXPECT_TRUE(store.details().empty());
  EXPECT_TRUE(store.selection().empty());
  EXPECT_TRUE(store.page().empty());
  EXPECT_FALSE(store.focus());
  EXPECT_EQ(store.against(), "submitted");
  EXPECT_EQ(store.mode(), CompareMode::side);
  EXPECT_FALSE(store.problem());
  EXPECT_FALSE(store.lastOK());
  EXPECT_FALSE(store.toast());
  EXPECT_FALSE(store.pinning());
  EXPECT_FALSE(store.draftPin());
  EXPECT_FALSE(store.draftFinding());
  EXPECT_FALSE(store.draft());
  EXPECT_EQ(store.zoom(), 1.0);
  EXPECT_FALSE(store.notesDrawer());
  EXPECT_FALSE(store.notesFloat());
  EXPECT_THAT(store.shown(), ElementsAre("submitted", "supplier", "third"));
  EXPECT_FALSE(store.profile());
  EXPECT_TRUE(store.viewVersion().empty());
  EXPECT_EQ(store.sideTab(), "page");
  EXPECT_FALSE(store.stats());
  EXPECT_EQ(&store.prefs, &desk.prefs);
  EXPECT_TRUE(store.busy().empty());
  EXPECT_FALSE(store.refreshing());
  EXPECT_FALSE(store.showActivity());
  EXPECT_EQ(store.queue(), "");
  EXPECT_FALSE(store.mineOnly());
  EXPECT_FALSE(store.sample);
  EXPECT_FALSE(store.etag);
  EXPECT_TRUE(store.fileTags.empty());
  EXPECT_FALSE(store.looping());
  EXPECT_EQ(store.seenEvent, 0);
  EXPECT_EQ(store.started, desk.time.now());
}

TEST_F(NewStore, SendsNothingAndStartsNothing) {
  store();
  desk.time.advance(Milliseconds{100'000});
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_EQ(desk.time.sleeping(), 0U);
}

TEST_F(NewStore, IsSignedOutWithoutAToken) {
  desk.tokens.item.reset();
  EXPECT_FALSE(store().signedIn());
}

TEST_F(NewStore, ComesUpInTheQueueAndFilterOfTheLastRun) {
  desk.defaults.texts["Queue"] = "reprint";
  desk.defaults.flags["MineOnly"] = true;
  EXPECT_EQ(store().queue(), "reprint");
  EXPECT_TRUE(store().mineOnly());
}

TEST_F(NewStore, TakesMineOnlyStoredAsOffForOff) {
  desk.defaults.flags["MineOnly"] = false;
  EXPECT_FALSE(store().mineOnly());
}

TEST_F(NewStore, WithATokenShowsTheBoardSideBeforeTheFirstAnswer) {
  store().startLoop();
  desk.time.run();
  EXPECT_TRUE(store().signedIn());
  EXPECT_FALSE(store().board());
  EXPECT_FALSE(store().problem());
  EXPECT_FALSE(store().lastOK());
}

TEST_F(NewStore, WithoutATokenNeverAsksForTheBoard) {
  desk.tokens.item.reset();
  poll();
  EXPECT_TRUE(desk.http.exchanges.empty());
}

struct JobsCase {
  const char* name;
  bool hasBoard;
  std::optional<std::string> sync;
  std::vector<std::string> jobs;
  bool active;
};
BOOST_DESCRIBE_STRUCT(JobsCase, (), (name, hasBoard, sync, jobs, active))

class ActiveJobs : public StoreTest, public testing::WithParamInterface<JobsCase> {};

TEST_P(ActiveJobs, AreTheQueuedAndTheRunning) {
  if (GetParam().hasBoard) {
    BoardState board = boardOf({});
    if (GetParam().sync) board.sync = jobOf(*GetParam().sync, "sync");
    for (const auto& status : GetParam().jobs) board.jobs.push_back(jobOf(status));
    store().board.set(board);
  }
  EXPECT_EQ(store().anyJobActive(), GetParam().active);
}

INSTANTIATE_TEST_SUITE_P(
    All, ActiveJobs,
    testing::Values(JobsCase{"NoBoard", false, {}, {}, false},
                    JobsCase{"NoJobs", true, {}, {}, false},
                    JobsCase{"SyncQueued", true, "queued", {}, true},
                    JobsCase{"SyncRunning", true, "running", {"done"}, true},
                    JobsCase{"SyncDone", true, "done", {}, false},
                    JobsCase{"OneOfSeveralRunning", true, "done", {"failed", "running"}, true},
                    JobsCase{"OneQueued", true, {}, {"queued"}, true},
                    JobsCase{"AllEnded", true, "failed", {"done", "stopped"}, false},
                    JobsCase{"OtherWord", true, "Running", {"", "waiting"}, false}),
    [](const auto& each) { return each.param.name; });

TEST_F(NewStore, KnowsPeopleByTheirAddress) {
  EXPECT_THAT(store().usersByEmail(), IsEmpty());
  store().board.set(boardOf({}));
  const auto people = store().usersByEmail();
  EXPECT_EQ(people.size(), 2U);
  EXPECT_EQ(people.at("jorvas@tessarine.example")->name, "Jorvas Lind");
}

TEST_F(NewStore, OutlivesABoardThatHoldsAnAddressTwice) {
  BoardState board = boardOf({});
  board.users = {{.email = "a", .name = "First"}, {.email = "a", .name = "Second"}};
  store().board.set(board);
  EXPECT_EQ(store().usersByEmail().at("a")->name, "First");
}

TEST(ToastValues, AreEqualOnlyToThemselves) {
  const Toast one{"Saved."};
  const Toast copy = one;
  EXPECT_EQ(one, copy);
  EXPECT_FALSE(one == Toast{"Saved."});
  EXPECT_FALSE(one.undoLabel);
  EXPECT_FALSE(one.undo);
}

}  // namespace
}  // namespace vellix
