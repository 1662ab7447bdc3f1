// A refused decision was shown ahead of the answer. It is taken back by fetching its ticket,
// wherever the reviewer is by then and however long that takes.
#include "store/finding_test.hpp"

namespace vellix {
namespace {

constexpr const char* kPost = "POST api/findings/f1";
constexpr const char* kDetail = "GET api/files/t1";
const HttpResult kRefusal = answerOf(409, R"({"error":"Already decided."})");
const HttpResult kAway = std::unexpected(HttpError::notConnected);

class RefusedDecision : public FindingTest {
 protected:
  void SetUp() override {
    const FileItem first = ticketAt("t1", 1);
    const FileItem second = ticketAt("t2", 1);
    serveBoard(boardOf({first, second}));
    serveDetail(detailOf(first, {findingOf("f1"), findingOf("f2")}), "\"d1\"");
    serveDetail(detailOf(second), "\"d2\"");
    store().selection.set({"t1"});
    poll();
    goTo("t2");
    goTo("t1");
    asked = detailRequests();
  }
  void goTo(const std::string& id) {
    store().selection.set({id});
    store().requestDetail(ticketAt(id, 1));
    desk.time.run();
  }
  void answerPost(HttpResult result) {
    desk.http.answer(*desk.http.matching(kPost).back(), std::move(result));
    desk.time.run();
  }
  // Of the first ticket, since the start.
  std::size_t fetches() { return detailRequests() - asked; }
  bool lastFetchWasWhole() { return !desk.http.matching(kDetail).back()->has("If-None-Match"); }

  std::size_t asked = 0;
};

TEST_F(RefusedDecision, OfATicketThatWasLeftMeanwhileIsTakenBackThere) {
  decide(findingOf("f1"), "fine");
  goTo("t2");
  const auto before = detailRequests("t2");
  answerPost(kRefusal);
  EXPECT_EQ(fetches(), 1U);
  EXPECT_TRUE(lastFetchWasWhole());
  EXPECT_EQ(held().state, "open");
  EXPECT_EQ(detailRequests("t2"), before + 1) << "as after every decision";
  EXPECT_TRUE(store().busy().empty());
  poll();
  EXPECT_EQ(fetches(), 1U);
}

TEST_F(RefusedDecision, IsTakenBackByTheFirstPollThatBringsTheDetail) {
  decide(findingOf("f1"), "fine");
  for (int i = 0; i < 4; ++i) routes.next(kDetail, kAway);
  answerPost(kRefusal);
  for (int i = 0; i < 3; ++i) poll();
  ASSERT_EQ(held().state, "fine");
  poll();
  EXPECT_EQ(fetches(), 5U);
  EXPECT_TRUE(lastFetchWasWhole()) << "for the service nothing has changed";
  EXPECT_EQ(held().state, "open");
  poll();
  EXPECT_EQ(fetches(), 5U);
}

TEST_F(RefusedDecision, IsTakenBackAfterAnOutageFromAnotherTicket) {
  decide(findingOf("f1"), "fine");
  goTo("t2");
  routes.next(kDetail, kAway);
  routes.next(kStateLine, kAway);
  answerPost(kAway);
  poll();
  ASSERT_EQ(held().state, "fine");
  EXPECT_EQ(fetches(), 1U) << "a poll that failed asks for nothing more";
  poll();
  EXPECT_EQ(fetches(), 2U);
  EXPECT_EQ(held().state, "open");
}

TEST_F(RefusedDecision, IsTakenBackOnComingToItsTicketAgain) {
  decide(findingOf("f1"), "fine");
  routes.next(kDetail, answerOf(500));
  answerPost(kRefusal);
  goTo("t2");
  goTo("t1");
  EXPECT_TRUE(lastFetchWasWhole());
  EXPECT_EQ(held().state, "open");
}

TEST_F(RefusedDecision, IsNotSettledByWhatWasAskedBefore) {
  routes.leaveOpen(kDetail);
  load(ticketAt("t1", 1), true);
  const auto* early = desk.http.matching(kDetail).back();
  decide(findingOf("f1"), "fine");
  routes.next(kDetail, answerOf(500));
  answerPost(kRefusal);
  const FileDetail stale =
      detailOf(ticketAt("t1", 1), {stateOf(findingOf("f1"), "issue"), findingOf("f2")});
  desk.http.answer(*early, answerOf(200, jsonOf(stale), "\"d0\""));
  desk.time.run();
  serveDetail(detailOf(ticketAt("t1", 1), {findingOf("f1"), findingOf("f2")}));
  poll();
  EXPECT_EQ(held().state, "open");
}

TEST_F(RefusedDecision, OfATicketThatHasGoneIsLetGo) {
  decide(findingOf("f1"), "fine");
  routes.next(kDetail, kAway);
  answerPost(kRefusal);
  serveBoard(boardOf({ticketAt("t2", 1)}), "\"b2\"");
  poll();
  EXPECT_EQ(fetches(), 1U);
}

TEST_F(RefusedDecision, IsForgottenWithItsSession) {
  decide(findingOf("f1"), "fine");
  routes.next(kDetail, kAway);
  answerPost(kRefusal);
  store().signOut(false);
  desk.time.run();
  store().signedIn.set(true);
  store().selection.set({"t2"});
  asked = detailRequests();
  poll();
  EXPECT_EQ(fetches(), 0U);
}

TEST_F(RefusedDecision, EndsWithItsSessionBetweenTwoTickets) {
  decide(findingOf("f1"), "fine");
  goTo("t2");
  routes.leaveOpen("GET api/files/t2");
  answerPost(kRefusal);
  store().signOut(false);
  desk.http.answer(*desk.http.matching("GET api/files/t2").back(), answerOf(500));
  desk.time.run();
  EXPECT_EQ(fetches(), 0U);
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(RefusedDecision, ThatNothingShowsAsksForNothing) {
  goTo("t2");
  decide(findingOf("f1"), "fine");
  answerPost(kRefusal);
  EXPECT_EQ(fetches(), 0U);
}

class UndoneElsewhere : public RefusedDecision {};

TEST_F(UndoneElsewhere, IsFetchedSinceNothingShowedIt) {
  decide(findingOf("f1"), "fine");
  routes.set(kPost, answerOf(200, "{}"));
  answerPost(answerOf(200, "{}"));
  serveDetail(detailOf(ticketAt("t1", 1), {stateOf(findingOf("f1"), "fine")}));
  load(ticketAt("t1", 1), true);
  ASSERT_EQ(held().state, "fine");
  const Toast toast = desk.toast().value();
  goTo("t2");
  serveDetail(detailOf(ticketAt("t1", 1), {findingOf("f1")}), "\"d3\"");
  toast.undo();
  desk.time.run();
  EXPECT_EQ(desk.toastText(), "Reopened.");
  EXPECT_EQ(held().state, "open");
}

}  // namespace
}  // namespace vellix
