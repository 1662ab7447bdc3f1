// The sync, asked for or at work.
#include "board/sync_card.hpp"

#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

const SyncCardView kButton{};

SyncCardView spinning(const char* text) {
  return {.working = true, .text = text, .tone = "blue", .spinning = true};
}
const SyncCardView kStuck{.working = true,
                          .text = "Mac mini not answering",
                          .icon = "exclamationmark.triangle",
                          .tone = "red",
                          .small = true};

struct Status {
  const char* name;
  std::optional<const char*> status;  // none for no sync
  std::optional<const char*> step;
  SyncCardView view;
};
BOOST_DESCRIBE_STRUCT(Status, (), (name, status, step, view))

class SyncCards : public StoreTest, public testing::WithParamInterface<Status> {};

TEST_P(SyncCards, FollowTheSync) {
  const auto& each = GetParam();
  BoardState board = boardOf({});
  if (each.status) board.sync = jobOf(*each.status, "sync");
  if (each.step) board.sync->step = *each.step;
  store().board.set(board);
  EXPECT_EQ(syncCard(store()), each.view);
}

INSTANTIATE_TEST_SUITE_P(
    All, SyncCards,
    testing::Values(Status{"NoSync", std::nullopt, std::nullopt, kButton},
                    Status{"Queued", "queued", std::nullopt, spinning("In line")},
                    Status{"QueuedWithAStep", "queued", "Filing", spinning("In line")},
                    Status{"Running", "running", std::nullopt, spinning("Syncing")},
                    Status{"RunningWithAnEmptyStep", "running", "", spinning("Syncing")},
                    Status{"RunningWithABlankStep", "running", "  ", spinning("Syncing")},
                    Status{"RunningWithAStep", "running", "Reading mail", spinning("Reading mail")},
                    Status{"Stuck", "stuck", std::nullopt, kStuck},
                    Status{"StuckWithAStep", "stuck", "Reading mail", kStuck},
                    Status{"Done", "done", "Reading mail", kButton},
                    Status{"Failed", "failed", std::nullopt, kButton},
                    Status{"Stopped", "stopped", std::nullopt, kButton},
                    Status{"Unknown", "Running", std::nullopt, kButton}),
    [](const auto& each) { return each.param.name; });

class SyncCard : public StoreTest {
 protected:
  void showSync(const char* status) {
    BoardState board = boardOf({});
    board.sync = jobOf(status, "sync");
    store().board.set(board);
  }
};

TEST_F(SyncCard, IsAButtonBeforeTheBoard) { EXPECT_EQ(syncCard(store()), kButton); }

TEST_F(SyncCard, SpinsFromThePressToTheNextBoard) {
  store().requestSync();
  EXPECT_TRUE(syncCard(store()).busy);
  EXPECT_FALSE(syncCard(store()).working);
}

TEST_F(SyncCard, KnowsWhetherItsOwnJobIsBeingStopped) {
  showSync("running");
  store().busy.set({"stop-other"});
  EXPECT_FALSE(syncCard(store()).stopping);
  stopSync(store());
  EXPECT_TRUE(syncCard(store()).stopping);
  showSync("done");
  EXPECT_FALSE(syncCard(store()).stopping);
}

TEST_F(SyncCard, StopsAStuckSyncToo) {
  showSync("stuck");
  stopSync(store());
  desk.time.run();
  EXPECT_THAT(lines(), testing::ElementsAre("POST api/jobs/j/stop"));
}

TEST_F(SyncCard, AsksOnlyOnceAndOnlyWhileNoneStands) {
  askForSync(store());
  askForSync(store());
  showSync("running");
  store().busy.set({});
  askForSync(store());
  desk.time.run();
  EXPECT_THAT(lines(), testing::ElementsAre("POST api/jobs"));
}

TEST_F(SyncCard, StopsOnlyOnce) {
  showSync("running");
  stopSync(store());
  stopSync(store());
  desk.time.run();
  EXPECT_THAT(lines(), testing::ElementsAre("POST api/jobs/j/stop"));
}

TEST_F(SyncCard, StopsNothingWhenThereIsNothing) {
  stopSync(store());
  store().board.set(boardOf({}));
  stopSync(store());
  desk.time.run();
  EXPECT_TRUE(lines().empty());
  EXPECT_TRUE(store().busy().empty());
}

}  // namespace
}  // namespace vellix
