// The refresh loop.
#include "store/store_test.hpp"

namespace vellix {
namespace {

class RefreshLoop : public StoreTest {
 protected:
  void startLoop() {
    store().startLoop();
    desk.time.run();
  }
  void sleepOn() { desk.time.advance(desk.time.pauses.back()); }
};

TEST_F(RefreshLoop, FetchesTheBoardAtOnceWithoutDelay) {
  serveBoard(boardOf({ticketOf("t1")}));
  startLoop();
  ASSERT_TRUE(store().board());
  EXPECT_EQ(store().board()->files.size(), 1U);
  EXPECT_EQ(store().etag, "\"b1\"");
  EXPECT_EQ(store().lastOK(), desk.time.now());
}

struct Pace {
  const char* name;
  std::optional<Job> job;
  bool seen;
  double milliseconds;
};
BOOST_DESCRIBE_STRUCT(Pace, (), (name, job, seen, milliseconds))

class RefreshLoopPaces : public RefreshLoop, public testing::WithParamInterface<Pace> {};

TEST_P(RefreshLoopPaces, PausesAsLongAsTold) {
  auto board = boardOf({});
  if (GetParam().job) board.jobs.push_back(*GetParam().job);
  serveBoard(board);
  desk.windows.isSeen = GetParam().seen;
  startLoop();
  ASSERT_EQ(desk.time.pauses.size(), 1U);
  EXPECT_EQ(desk.time.pauses[0].count(), GetParam().milliseconds);
  desk.time.advance(desk.time.pauses[0] - Milliseconds{1});
  EXPECT_EQ(polls(), 1U);
  desk.time.advance(Milliseconds{1});
  EXPECT_EQ(polls(), 2U);
}

INSTANTIATE_TEST_SUITE_P(All, RefreshLoopPaces,
                         testing::Values(Pace{"Running", jobOf("running"), false, 3'000},
                                         Pace{"Queued", jobOf("queued"), true, 3'000},
                                         Pace{"EndedAndSeen", jobOf("done"), true, 5'000},
                                         Pace{"EndedAndUnseen", jobOf("done"), false, 45'000},
                                         Pace{"Seen", std::nullopt, true, 5'000},
                                         Pace{"Unseen", std::nullopt, false, 45'000}),
                         [](const auto& each) { return each.param.name; });

TEST_F(RefreshLoop, StartedTwiceIsOneLoop) {
  serveBoard(boardOf({}));
  store().startLoop();
  startLoop();
  startLoop();
  EXPECT_EQ(polls(), 1U);
  EXPECT_EQ(desk.time.sleeping(), 1U);
  sleepOn();
  EXPECT_EQ(polls(), 2U);
}

TEST_F(RefreshLoop, DoesNotStartOverSamples) {
  store().sample = true;
  startLoop();
  EXPECT_FALSE(store().looping());
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_EQ(desk.time.sleeping(), 0U);
}

TEST_F(RefreshLoop, BeginsInATurnOfItsOwn) {
  store().startLoop();
  EXPECT_TRUE(store().looping());
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST_F(RefreshLoop, SleepsOnWhenAWindowComesToTheFront) {
  serveBoard(boardOf({}));
  desk.windows.isSeen = false;
  startLoop();
  desk.windows.isSeen = true;
  desk.time.advance(Milliseconds{44'999});
  EXPECT_EQ(polls(), 1U);
  desk.time.advance(Milliseconds{1});
  EXPECT_EQ(polls(), 2U);
  EXPECT_EQ(desk.time.pauses.back().count(), 5'000);
}

TEST_F(RefreshLoop, SleepsOnWhenAJobTurnsRunning) {
  serveBoard(boardOf({}));
  startLoop();
  auto board = boardOf({});
  board.jobs = {jobOf("running")};
  serveBoard(board, "\"b2\"");
  poll();
  ASSERT_TRUE(store().anyJobActive());
  desk.time.advance(Milliseconds{4'999});
  EXPECT_EQ(polls(), 2U);
  desk.time.advance(Milliseconds{1});
  EXPECT_EQ(polls(), 3U);
  EXPECT_EQ(desk.time.pauses.back().count(), 3'000);
}

TEST_F(RefreshLoop, NeverOverlapsItselfOverASlowAnswer) {
  startLoop();
  desk.time.advance(Milliseconds{120'000});
  EXPECT_EQ(polls(), 1U);
  EXPECT_TRUE(desk.time.pauses.empty());
  answer(0, answerOf(200, jsonOf(boardOf({}))));
  EXPECT_EQ(polls(), 1U);
  desk.time.advance(Milliseconds{4'999});
  EXPECT_EQ(polls(), 1U) << "the pause begins when the answer is in";
  desk.time.advance(Milliseconds{1});
  EXPECT_EQ(polls(), 2U);
}

TEST_F(RefreshLoop, WaitsForTheDetailOfTheTicketOnShow) {
  serveBoard(boardOf({ticketAt("t1", 1)}));
  startLoop();
  ASSERT_EQ(detailRequests(), 1U);
  EXPECT_TRUE(desk.time.pauses.empty());
  answer(1, answerOf(200, jsonOf(detailOf(ticketAt("t1", 1)))));
  EXPECT_EQ(desk.time.pauses.size(), 1U);
}

TEST_F(RefreshLoop, KeepsItsPaceWhileOffline) {
  routes.set(kStateLine, std::unexpected(HttpError::notConnected));
  startLoop();
  for (std::size_t round = 1; round < 20; ++round) {
    EXPECT_EQ(polls(), round);
    EXPECT_EQ(desk.time.pauses.back().count(), 5'000);
    sleepOn();
  }
}

TEST_F(RefreshLoop, EndsAtASignOutDuringItsSleep) {
  serveBoard(boardOf({}));
  startLoop();
  store().signOut(true);
  EXPECT_FALSE(store().looping());
  desk.time.advance(Milliseconds{200'000});
  EXPECT_EQ(polls(), 1U);
  EXPECT_EQ(desk.time.sleeping(), 0U);
}

TEST_F(RefreshLoop, EndsAtASignOutDuringItsRequest) {
  startLoop();
  store().signOut(true);
  desk.time.run();
  EXPECT_EQ(store().problem(), kUnreachableText);
  EXPECT_FALSE(store().board());
  desk.time.advance(Milliseconds{200'000});
  EXPECT_EQ(polls(), 1U);
  EXPECT_TRUE(desk.time.pauses.empty());
}

TEST_F(RefreshLoop, EndsAtA401) {
  routes.set(kStateLine, answerOf(401));
  startLoop();
  EXPECT_FALSE(store().looping());
  desk.time.advance(Milliseconds{200'000});
  EXPECT_EQ(polls(), 1U);
}

TEST_F(RefreshLoop, EndsBetweenBoardAndDetailAtASignOut) {
  serveBoard(boardOf({ticketAt("t1", 1)}));
  startLoop();
  ASSERT_EQ(detailRequests(), 1U);
  store().signOut(true);
  desk.time.advance(Milliseconds{200'000});
  EXPECT_TRUE(store().details().empty());
  EXPECT_EQ(polls(), 1U);
}

TEST_F(RefreshLoop, StartsAnewAfterASignOut) {
  serveBoard(boardOf({}));
  startLoop();
  store().signOut(true);
  desk.api.setToken("token-2");
  store().signedIn.set(true);
  startLoop();
  EXPECT_EQ(polls(), 2U);
  sleepOn();
  EXPECT_EQ(polls(), 3U) << "one loop, not two";
}

TEST_F(RefreshLoop, EndsWithTheStore) {
  serveBoard(boardOf({}));
  startLoop();
  desk.endStore();
  desk.time.advance(Milliseconds{200'000});
  EXPECT_EQ(polls(), 1U);
}

TEST_F(RefreshLoop, EndsWithTheStoreDuringARequest) {
  startLoop();
  desk.endStore();
  answer(0, answerOf(200, jsonOf(boardOf({}))));
  EXPECT_EQ(polls(), 1U);
}

}  // namespace
}  // namespace vellix
