// A ticket's review: taking it back, and what the service makes of it.
#include "store/ticket_status_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

TEST_F(TicketStatus, TakenBackSendsWhatItWasAndLeadsBack) {
  show({dueAt("t1", 5, "in_review"), dueAt("t2", 1)});
  mark();
  ASSERT_THAT(store().selection(), ElementsAre("t2"));
  serveBoard(boardOf({dueAt("t1", 5, "reviewed"), dueAt("t2", 1)}));
  answer(0, answerOf(200, "{}"));
  serveBoard(boardOf({dueAt("t1", 5, "in_review"), dueAt("t2", 1)}));
  routes.set(kPost, answerOf(200, "{}"));
  desk.toast()->undo();
  EXPECT_THAT(store().selection(), ElementsAre("t1")) << "at once";
  EXPECT_EQ(held().status, "reviewed") << "until the poll";
  desk.time.run();
  EXPECT_EQ(lastBody(), R"({"status":"in_review"})");
  EXPECT_EQ(desk.toastText(), "Back in review.");
  EXPECT_EQ(held().status, "in_review");
  EXPECT_THAT(store().selection(), ElementsAre("t1"));
  // The second Undo knows the ticket of the first call, which was in review.
  desk.toast()->undo();
  desk.time.run();
  EXPECT_EQ(posts(), 3U);
  EXPECT_EQ(lastBody(), R"({"status":"in_review"})");
}

TEST_F(TicketStatus, TakenBackToReviewedIsMarkedAtOnceAgain) {
  show({dueAt("t1", 5, "reviewed"), dueAt("t2", 1)});
  routes.set(kPost, answerOf(200, "{}"));
  serveBoard(boardOf({dueAt("t1", 5, "in_review"), dueAt("t2", 1)}));
  mark("in_review");
  ASSERT_EQ(held().status, "in_review");
  desk.toast()->undo();
  EXPECT_EQ(held().status, "reviewed");
  EXPECT_THAT(store().selection(), ElementsAre("t1")) << "carried on, and led back";
  desk.time.run();
  EXPECT_EQ(lastBody(), R"({"status":"reviewed"})");
}

TEST_F(TicketStatus, TakenBackKeepsTheFindingOnlyWhereTheTicketStayed) {
  for (const bool advances : {false, true}) {
    desk.prefs.autoAdvance.set(advances);
    show({dueAt("t1", 5, "in_review"), dueAt("t2", 1)});
    routes.set(kPost, answerOf(200, "{}"));
    serveBoard(boardOf({dueAt("t1", 5, "reviewed"), dueAt("t2", 1)}));
    mark();
    store().focus.set("f2");
    desk.toast()->undo();
    EXPECT_EQ(store().focus().has_value(), !advances);
    desk.time.run();
  }
}

TEST_F(TicketStatus, IsTakenBackByNobodyOnceTheStoreIsGone) {
  show({ticketOf("t1")});
  serveBoard(boardOf({ticketOf("t1", "reviewed")}));
  mark();
  answer(0, answerOf(200, "{}"));
  const Toast toast = desk.toast().value();
  const auto sent = desk.http.exchanges.size();
  desk.endStore();
  toast.undo();
  desk.time.run();
  EXPECT_EQ(desk.http.exchanges.size(), sent);
}

struct RefusedStatus {
  const char* name;
  HttpResult answer;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(RefusedStatus, (), (name, text))

class RefusedStatuses : public TicketStatus, public testing::WithParamInterface<RefusedStatus> {};

TEST_P(RefusedStatuses, StandUntilTheNextPoll) {
  show({dueAt("t1", 5), dueAt("t2", 1)});
  mark();
  answer(0, GetParam().answer);
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_FALSE(desk.toast()->undoLabel);
  EXPECT_THAT(lines(), ElementsAre(kPost)) << "and no board";
  EXPECT_EQ(held().status, "reviewed");
  EXPECT_THAT(store().selection(), ElementsAre("t2"));
  EXPECT_TRUE(store().busy().empty());
  EXPECT_TRUE(store().signedIn()) << "the next poll signs out, if need be";
  serveBoard(boardOf({dueAt("t1", 5), dueAt("t2", 1)}));
  poll();
  EXPECT_EQ(held().status, "new");
  EXPECT_THAT(store().selection(), ElementsAre("t2"));
}

INSTANTIATE_TEST_SUITE_P(
    All, RefusedStatuses,
    testing::Values(
        RefusedStatus{"Refused", answerOf(409, R"({"error":"It is out."})"), "It is out."},
        RefusedStatus{"Broken", answerOf(500), kRefusedText},
        RefusedStatus{"SignedOut", answerOf(401), kSignedOutText},
        RefusedStatus{"Offline", std::unexpected(HttpError::notConnected), kOfflineText},
        RefusedStatus{"TimedOut", std::unexpected(HttpError::timedOut), kUnreachableText}),
    [](const auto& each) { return each.param.name; });

TEST_F(TicketStatus, ThatJsonCannotHoldDidNotSave) {
  show({ticketOf("t1")});
  mark("\xff");
  EXPECT_EQ(desk.toastText(), "That didn't save.");
  EXPECT_EQ(posts(), 0U);
}

TEST_F(TicketStatus, StandsThroughAPollFromBeforeTheServiceTookIt) {
  show({dueAt("t1", 5), dueAt("t2", 1)});
  mark();
  serveBoard(boardOf({dueAt("t1", 5), dueAt("t2", 1), dueAt("t3", 9)}));
  poll();
  EXPECT_EQ(held().status, "reviewed");
  EXPECT_EQ(store().board()->files.size(), 3U) << "what else it brings is news";
  serveBoard(boardOf({dueAt("t1", 5, "reviewed"), dueAt("t2", 1)}), "\"b2\"");
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(held().status, "reviewed");
  EXPECT_THAT(store().selection(), ElementsAre("t2"));
}

TEST_F(TicketStatus, TakenBackBeforeTheBoardIsInIsARequestOfItsOwn) {
  show({dueAt("t1", 5), dueAt("t2", 1)});
  mark();
  answer(0, answerOf(200, "{}"));  // the board stays open
  desk.toast()->undo();
  desk.time.run();
  EXPECT_EQ(posts(), 2U);
  EXPECT_THAT(store().selection(), ElementsAre("t1"));
  answer(1, answerOf(200, jsonOf(boardOf({dueAt("t1", 5, "reviewed"), dueAt("t2", 1)}))));
  EXPECT_TRUE(store().busy().empty()) << "the first to finish lets go";
  EXPECT_THAT(store().selection(), ElementsAre("t1"));
}

TEST_F(TicketStatus, OfAnotherTicketSharesTheKey) {
  show({dueAt("t1", 5), dueAt("t2", 1)});
  routes.set(kStateLine, answerOf(304));
  mark();
  store().setStatus(held("t2"), "reviewed");
  desk.time.run();
  EXPECT_EQ(store().busy().size(), 1U);
  answer(0, answerOf(200, "{}"));
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(TicketStatus, OutlivesASignOutInTheMiddle) {
  show({ticketOf("t1"), ticketOf("t2")});
  mark();
  store().signOut(true);
  answer(0, answerOf(200, "{}"));
  EXPECT_THAT(lines(), ElementsAre(kPost));
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  EXPECT_FALSE(store().board());
  EXPECT_TRUE(store().busy().empty());
}

}  // namespace
}  // namespace vellix
