// A refused "reviewed" was shown ahead of the answer: the next board from the service brings the
// ticket back, though for the service nothing has changed.
#include "store/ticket_status_test.hpp"

namespace vellix {
namespace {

class RefusedReview : public TicketStatus {
 protected:
  void SetUp() override {
    serveBoard(boardOf({dueAt("t1", 5), dueAt("t2", 1)}));
    for (const char* id : {"t1", "t2"}) serveDetail(detailOf(ticketOf(id)));
    store().selection.set({"t1"});
    poll();
  }
  void refuse() {
    const auto* post = desk.http.matching(kPost).back();
    desk.http.answer(*post, answerOf(409, R"({"error":"It is out."})"));
    desk.time.run();
  }
  const ScriptedHttp::Exchange& lastPoll() { return *desk.http.matching(kStateLine).back(); }
  bool lastPollWasWhole() { return !lastPoll().has("If-None-Match"); }
  void leaveAPollOpen() {
    routes.leaveOpen(kStateLine);
    poll();
  }
};

TEST_F(RefusedReview, IsTakenBackByTheNextPoll) {
  mark();
  refuse();
  ASSERT_EQ(held().status, "reviewed");
  poll();
  EXPECT_TRUE(lastPollWasWhole());
  EXPECT_EQ(held().status, "new");
  poll();
  EXPECT_EQ(lastPoll().header("If-None-Match"), "\"b1\"") << "once is enough";
}

TEST_F(RefusedReview, WaitsForTheLoopsOwnPoll) {
  store().startLoop();
  desk.time.run();
  const auto before = polls();
  mark();
  refuse();
  desk.time.advance(Milliseconds{4'999});
  EXPECT_EQ(polls(), before);
  desk.time.advance(Milliseconds{1});
  EXPECT_TRUE(lastPollWasWhole());
  EXPECT_EQ(held().status, "new");
}

TEST_F(RefusedReview, StandsWhileItIsOnItsWayAndNothingIsNew) {
  mark();
  poll();
  EXPECT_FALSE(lastPollWasWhole());
  EXPECT_EQ(held().status, "reviewed");
}

TEST_F(RefusedReview, IsTakenBackThoughAPollFromBeforeBringsNothing) {
  leaveAPollOpen();
  mark();
  refuse();
  desk.http.answer(lastPoll(), answerOf(304));
  serveBoard(boardOf({dueAt("t1", 5), dueAt("t2", 1)}));
  desk.time.run();
  ASSERT_EQ(held().status, "reviewed");
  poll();
  EXPECT_TRUE(lastPollWasWhole());
  EXPECT_EQ(held().status, "new");
}

TEST_F(RefusedReview, IsTakenBackAlsoWhenABoardFromBeforeCameInBetween) {
  leaveAPollOpen();
  mark();
  desk.http.answer(lastPoll(),
                   answerOf(200, jsonOf(boardOf({dueAt("t1", 5), dueAt("t2", 1)})), "\"b2\""));
  desk.time.run();
  ASSERT_EQ(held().status, "reviewed") << "that board was asked for before";
  refuse();
  serveBoard(boardOf({dueAt("t1", 5), dueAt("t2", 1)}), "\"b2\"");
  poll();
  EXPECT_EQ(held().status, "new");
}

TEST_F(RefusedReview, IsTakenBackAfterAnOutage) {
  mark();
  refuse();
  routes.next(kStateLine, std::unexpected(HttpError::notConnected));
  routes.next(kStateLine, answerOf(200, "garbage", "\"b9\""));
  poll();
  poll();
  ASSERT_EQ(held().status, "reviewed");
  poll();
  EXPECT_TRUE(lastPollWasWhole());
  EXPECT_EQ(held().status, "new");
}

TEST_F(RefusedReview, OfASessionThatHasEndedCostsTheNextOneNothing) {
  mark();
  store().signOut(false);
  desk.api.setToken("token-2");
  store().signedIn.set(true);
  poll();
  refuse();
  poll();
  EXPECT_FALSE(lastPollWasWhole());
}

TEST_F(RefusedReview, ThatChangedNothingHereCostsNothing) {
  mark("in_review");
  refuse();
  poll();
  EXPECT_FALSE(lastPollWasWhole());
}

}  // namespace
}  // namespace vellix
