// Deciding a finding: what the service makes of it.
#include <gmock/gmock.h>

#include "store/finding_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

constexpr const char* kPost = "POST api/findings/f1";
constexpr const char* kDetail = "GET api/files/t1";

class DecidedFinding : public FindingTest {
 protected:
  void SetUp() override {
    show({findingOf("f1"), findingOf("f2")});
    store().etag = "\"b1\"";
    store().fileTags["t1#0"] = "\"d1\"";
  }
};

TEST_F(DecidedFinding, FetchesTheWholeBoardThenTheDetailByForceAndOnlyThenLetsGo) {
  decide(findingOf("f1"), "issue");
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(desk.toastText(), "Marked a real issue.");
  ASSERT_THAT(lines(), ElementsAre(kPost, kStateLine));
  EXPECT_FALSE(desk.http.exchanges[1].has("If-None-Match"));
  EXPECT_TRUE(store().busy().contains("f1"));
  answer(1, answerOf(200, jsonOf(boardOf({ticketAt("t1", 1)})), "\"b2\""));
  ASSERT_THAT(lines(), ElementsAre(kPost, kStateLine, kDetail));
  EXPECT_FALSE(desk.http.exchanges[2].has("If-None-Match"));
  EXPECT_TRUE(store().busy().contains("f1"));
  Finding settled = stateOf(findingOf("f1"), "issue");
  settled.state_by = "as the service says";
  answer(2, answerOf(200, jsonOf(detailOf(ticketAt("t1", 1), {settled})), "\"d2\""));
  EXPECT_EQ(held().state_by, "as the service says");
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(DecidedFinding, ReloadsTheTicketThatIsThenOnShow) {
  decide(findingOf("f1"), "issue");
  store().board.set(boardOf({ticketAt("t1", 1), ticketAt("t2", 1)}));
  store().selection.set({"t2"});
  routes.set(kStateLine, answerOf(304));
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(detailRequests("t1"), 0U);
  EXPECT_GE(detailRequests("t2"), 1U);
}

TEST_F(DecidedFinding, ReloadsNothingWhenNoTicketIsOnShow) {
  decide(findingOf("f1"), "issue");
  store().selection.set({"t1", "t2"});
  routes.set(kStateLine, answerOf(304));
  answer(0, answerOf(200, "{}"));
  EXPECT_THAT(lines(), ElementsAre(kPost, kStateLine));
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(DecidedFinding, KeepsToTheDecisionThroughAPollInBetween) {
  decide(findingOf("f1"), "issue");
  // Nothing has moved for the service yet: the poll leaves the detail alone.
  routes.next(kStateLine, answerOf(304));
  poll();
  EXPECT_EQ(held().state, "issue");
  EXPECT_EQ(detailRequests(), 0U);
  serve({stateOf(findingOf("f1"), "issue")});
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(held().state, "issue");
  EXPECT_EQ(store().currentDetail()->file.rev, 2);
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(DecidedFinding, StandsThroughAPollFromBeforeThatBringsAnothersChange) {
  decide(findingOf("f1"), "issue");
  serve({findingOf("f1"), stateOf(findingOf("f2"), "fine")}, 2);
  poll();
  EXPECT_EQ(held().state, "issue");
  EXPECT_EQ(held().state_by, store().board()->me.email);
  EXPECT_EQ(held("f2").state, "fine");
  serve({stateOf(findingOf("f1"), "issue")}, 3);
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(held().state, "issue");
  EXPECT_EQ(store().currentDetail()->file.rev, 3);
}

TEST_F(DecidedFinding, StandsThroughAnAnswerFromBeforeThatComesOnceTheServiceTookIt) {
  load(ticketAt("t1", 1), true);
  decide(findingOf("f1"), "issue");
  routes.set(kStateLine, answerOf(304));
  answer(1, answerOf(200, "{}"));
  answer(0, answerOf(200, jsonOf(detailOf(ticketAt("t1", 2), {findingOf("f1"), findingOf("f3")}))));
  EXPECT_EQ(held("f3").id, "f3") << "it is news all the same";
  EXPECT_EQ(held().state, "issue");
  const auto* settling = desk.http.matching(kDetail).back();
  desk.http.answer(*settling,
                   answerOf(200, jsonOf(detailOf(ticketAt("t1", 3), {findingOf("f1")}))));
  desk.time.run();
  EXPECT_EQ(held().state, "open") << "the service has changed its mind";
}

TEST_F(DecidedFinding, IsNotOverwrittenByAnAnswerFromBeforeThatComesLast) {
  load(ticketAt("t1", 1), true);
  decide(findingOf("f1"), "issue");
  serve({stateOf(findingOf("f1"), "issue")}, 3);
  answer(1, answerOf(200, "{}"));
  answer(0, answerOf(200, jsonOf(detailOf(ticketAt("t1", 2), {findingOf("f1")}))));
  EXPECT_EQ(held().state, "issue");
}

TEST_F(DecidedFinding, LeadsOnToNoneThatIsDecidedButNotYetAtTheService) {
  show({findingOf("f1"), findingOf("f2"), findingOf("f3")});
  decide(findingOf("f1"), "issue");
  decide(findingOf("f2"), "issue");
  // The first is taken; its answer comes from before the second.
  serve({stateOf(findingOf("f1"), "issue"), findingOf("f2"), findingOf("f3")}, 2);
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(store().focus(), "f3");
  EXPECT_EQ(held("f2").state, "issue");
  decide(findingOf("f3"), "issue");
  EXPECT_EQ(store().focus(), std::nullopt);
}

TEST_F(DecidedFinding, IsTheServicesOnceItsAnswerKnowsOfIt) {
  decide(findingOf("f1"), "issue");
  // A colleague has decided otherwise since.
  serve({stateOf(findingOf("f1"), "fine")}, 3);
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(held().state, "fine");
}

TEST_F(DecidedFinding, OfASessionThatHasEndedIsLaidOverNothing) {
  decide(findingOf("f1"), "issue");
  store().signOut(false);
  store().signedIn.set(true);
  serve({findingOf("f1")}, 2);
  poll();
  EXPECT_EQ(held().state, "open");
}

struct RefusalCase {
  const char* name;
  HttpResult answer;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(RefusalCase, (), (name, text))

class RefusedDecisions : public DecidedFinding, public testing::WithParamInterface<RefusalCase> {};

TEST_P(RefusedDecisions, AreTakenBackByFetchingTheDetail) {
  serveDetail(detailOf(ticketAt("t1", 1), {findingOf("f1"), findingOf("f2")}), "\"d1\"");
  decide(findingOf("f1"), "issue");
  EXPECT_EQ(held().state, "issue");
  answer(0, GetParam().answer);
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_FALSE(desk.toast()->undoLabel);
  EXPECT_THAT(lines(), ElementsAre(kPost, kDetail)) << "and no board";
  EXPECT_FALSE(desk.http.exchanges[1].has("If-None-Match"));
  EXPECT_EQ(held().state, "open");
  EXPECT_FALSE(held().state_by);
  EXPECT_EQ(store().focus(), "f2") << "the focus stays where it went";
  EXPECT_EQ(store().etag, "\"b1\"");
  EXPECT_TRUE(store().busy().empty());
  EXPECT_TRUE(store().signedIn()) << "the next poll signs out, if need be";
}

TEST_P(RefusedDecisions, StandOnScreenWhenTheDetailCannotBeHadEither) {
  routes.set(kDetail, GetParam().answer);
  decide(findingOf("f1"), "issue");
  answer(0, GetParam().answer);
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_EQ(held().state, "issue");
  EXPECT_TRUE(store().busy().empty());
  // Until the next load that succeeds.
  serve({findingOf("f1")});
  poll();
  EXPECT_EQ(held().state, "open");
}

INSTANTIATE_TEST_SUITE_P(
    All, RefusedDecisions,
    testing::Values(RefusalCase{"Refused", answerOf(409, R"({"error":"Already decided."})"),
                                "Already decided."},
                    RefusalCase{"Broken", answerOf(500), kRefusedText},
                    RefusalCase{"SignedOut", answerOf(401), kSignedOutText},
                    RefusalCase{"Offline", std::unexpected(HttpError::notConnected), kOfflineText},
                    RefusalCase{"TimedOut", std::unexpected(HttpError::timedOut),
                                kUnreachableText}),
    [](const auto& each) { return each.param.name; });

TEST_F(DecidedFinding, HoldsItsKeyUntilTheRollbackIsIn) {
  decide(findingOf("f1"), "issue");
  answer(0, answerOf(500));
  EXPECT_TRUE(store().busy().contains("f1"));
  answer(1, answerOf(500));
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(DecidedFinding, ThatJsonCannotHoldSaysThatItDidNotSave) {
  serveDetail(detailOf(ticketAt("t1", 1), {findingOf("f1")}));
  decide(findingOf("f1"), "\xff");
  EXPECT_EQ(desk.toastText(), "That didn't save. Try again.");
  EXPECT_EQ(posts(), 0U);
  EXPECT_EQ(held().state, "open");
}

TEST_F(DecidedFinding, OutlivesASignOutInTheMiddle) {
  decide(findingOf("f1"), "issue");
  store().signOut(true);
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(polls(), 0U);
  EXPECT_EQ(detailRequests(), 0U);
  EXPECT_TRUE(store().busy().empty());
  EXPECT_TRUE(store().details().empty());
}

TEST_F(DecidedFinding, OutlivesASignOutDuringItsRefresh) {
  decide(findingOf("f1"), "issue");
  answer(0, answerOf(200, "{}"));
  store().signOut(true);
  answer(1, answerOf(200, jsonOf(boardOf({ticketAt("t1", 1)}))));
  EXPECT_FALSE(store().board());
  EXPECT_EQ(detailRequests(), 0U);
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(DecidedFinding, TwiceAnsweredTheOtherWayRoundEndsAsTheServiceSays) {
  decide(findingOf("f1"), "issue");
  decide(stateOf(findingOf("f1"), "issue"), "fine");
  serve({stateOf(findingOf("f1"), "issue")});
  answer(1, answerOf(200, "{}"));
  EXPECT_EQ(held().state, "issue") << "so far";
  serve({stateOf(findingOf("f1"), "fine")}, 3);
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(held().state, "fine");
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(DecidedFinding, TwiceInARowIsTwoRequestsUnderOneKey) {
  decide(findingOf("f1"), "issue");
  decide(stateOf(findingOf("f1"), "issue"), "fine");
  EXPECT_EQ(held().state, "fine");
  EXPECT_EQ(posts(), 2U);
  EXPECT_EQ(store().busy().size(), 1U);
  serve({stateOf(findingOf("f1"), "fine")});
  answer(0, answerOf(200, "{}"));
  EXPECT_TRUE(store().busy().empty()) << "the first to finish lets go";
  answer(1, answerOf(200, "{}"));
  EXPECT_EQ(desk.toastText(), "Marked fine.");
  EXPECT_EQ(held().state, "fine");
  EXPECT_TRUE(store().busy().empty());
}

}  // namespace
}  // namespace vellix
