// Coming in by a link that was opened from outside.
#include <gmock/gmock.h>

#include "store/sign_in_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

class ByLink : public SignInTest {
 protected:
  void complete(const std::string& url = kCallback) {
    desk.tasks.start(store().completeSignIn(url));
    desk.time.run();
  }
};

TEST_F(ByLink, FetchesTheBoardOnceThenStartsTheLoop) {
  store().etag = "\"of the last session\"";
  complete();
  EXPECT_TRUE(store().signedIn());
  EXPECT_TRUE(store().board());
  EXPECT_TRUE(store().looping());
  EXPECT_THAT(lines(), ElementsAre(kExchangeLine, kStateLine, kStateLine));
  EXPECT_FALSE(desk.http.exchanges[1].has("If-None-Match"));
  EXPECT_EQ(desk.http.exchanges[1].header("Authorization"), "Bearer fresh");
  EXPECT_EQ(desk.http.exchanges[2].header("If-None-Match"), "\"b1\"");
  EXPECT_FALSE(store().toast());
}

TEST_F(ByLink, StartsTheLoopOnlyAfterTheFirstBoardIsIn) {
  routes.leaveOpen(kStateLine);
  complete();
  EXPECT_TRUE(store().signedIn());
  EXPECT_FALSE(store().looping());
  answer(1, std::unexpected(HttpError::notConnected));
  EXPECT_EQ(store().problem(), kOfflineText);
  EXPECT_TRUE(store().looping());
}

TEST_F(ByLink, StartsNoLoopWhenTheServiceEndsTheSessionAtOnce) {
  routes.set(kStateLine, answerOf(401));
  complete();
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(store().looping());
  EXPECT_FALSE(desk.api.token());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  desk.time.advance(Milliseconds{60'000});
  EXPECT_EQ(polls(), 1U);
}

TEST_F(ByLink, AgainKeepsWhatWasSeenAndTheTagsOfTheLastSession) {
  complete();
  store().seenEvent = 12;
  store().fileTags = {{"t1#0", "\"old\""}};
  const Moment started = store().started;
  store().signOut(true);
  desk.time.advance(Milliseconds{60'000});
  complete();
  EXPECT_TRUE(store().signedIn());
  EXPECT_EQ(store().seenEvent, 12);
  EXPECT_EQ(store().started, started);
  EXPECT_EQ(store().fileTags.at("t1#0"), "\"old\"");
  EXPECT_TRUE(store().looping());
}

TEST_F(ByLink, BeginsWithoutTheNewsOfTheLastSession) {
  complete();
  ASSERT_TRUE(store().lastOK());
  routes.leaveOpen(kStateLine);
  desk.time.advance(Milliseconds{5'000});
  store().signOut(false);
  desk.time.run();
  EXPECT_TRUE(store().problem()) << "of the poll that was given up";
  complete();
  EXPECT_FALSE(store().problem());
  EXPECT_FALSE(store().lastOK());
}

TEST_F(ByLink, OverAnotherSessionShowsNothingOfThat) {
  complete();
  const FileItem file = ticketAt("t1", 1);
  store().board.set(boardOf({file}));
  store().details.set({{"t1", detailOf(file, {findingOf("f1")})}});
  store().selection.set({"t1"});
  store().setFindingState(findingOf("f1"), "fine");
  desk.time.run();
  const std::size_t post = desk.http.exchanges.size() - 1;
  routes.leaveOpen(kStateLine);
  complete();
  EXPECT_FALSE(store().board());
  EXPECT_TRUE(store().details().empty());
  answer(post, answerOf(409));
  EXPECT_FALSE(store().toast());
}

TEST_F(ByLink, ThatFailsOnceSomebodyElseIsInSaysNothing) {
  routes.leaveOpen(kExchangeLine);
  complete();
  complete();
  answer(1, answerOf(200, kExchangeAnswer));
  ASSERT_TRUE(store().signedIn());
  answer(0, answerOf(400, R"({"error":"Code used."})"));
  EXPECT_FALSE(store().toast());
}

TEST_F(ByLink, SignsNobodyInWhoHasGoneMeanwhile) {
  complete();
  ASSERT_TRUE(store().signedIn());
  routes.leaveOpen(kExchangeLine);
  complete();
  const auto exchange = desk.http.exchanges.size() - 1;
  store().signOut(false);
  desk.time.run();
  answer(exchange, answerOf(200, kExchangeAnswer));
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(desk.api.token());
  EXPECT_FALSE(store().toast());
  routes.set(kExchangeLine, answerOf(200, kExchangeAnswer));
  complete();
  EXPECT_TRUE(store().signedIn()) << "but by the next link";
}

TEST_F(ByLink, FollowsASessionThatEndedByItself) {
  complete();
  routes.leaveOpen(kExchangeLine);
  complete();
  const auto exchange = desk.http.exchanges.size() - 1;
  store().signOut(true);
  desk.time.run();
  answer(exchange, answerOf(200, kExchangeAnswer));
  EXPECT_TRUE(store().signedIn());
}

TEST_F(ByLink, SendsTheTagsOfTheLastSessionAgain) {
  serveBoard(boardOf({ticketAt("t1", 1)}));
  routes.set("GET api/files/t1", answerOf(304));
  store().fileTags = {{"t1#0", "\"old\""}};
  complete();
  EXPECT_EQ(desk.http.matching("GET api/files/t1").at(0)->header("If-None-Match"), "\"old\"");
}

class FailedByLink : public ByLink, public testing::WithParamInterface<FailedSignIn> {};

TEST_P(FailedByLink, AreToldInAToast) {
  routes.set(kExchangeLine, GetParam().answer);
  complete(GetParam().url);
  expectStillOut();
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_FALSE(desk.toast()->undoLabel);
}

INSTANTIATE_TEST_SUITE_P(All, FailedByLink, testing::ValuesIn(failedSignIns()), nameOf);
INSTANTIATE_TEST_SUITE_P(OfItsOwn, FailedByLink,
                         testing::Values(FailedSignIn{"Undecodable", kCallback, answerOf(200, "[]"),
                                                      "Sign-in didn't finish."}),
                         nameOf);

TEST_F(ByLink, BeginsFromAUrlOpenedFromOutside) {
  store().open(kCallback);
  EXPECT_TRUE(desk.http.exchanges.empty()) << "in a turn of its own";
  desk.time.run();
  EXPECT_EQ(desk.http.count(kExchangeLine), 1U);
  EXPECT_TRUE(store().signedIn());
}

class ForeignUrls : public ByLink, public testing::WithParamInterface<const char*> {};

TEST_P(ForeignUrls, AreIgnored) {
  store().open(GetParam());
  desk.time.run();
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_FALSE(store().toast());
}

INSTANTIATE_TEST_SUITE_P(All, ForeignUrls,
                         testing::Values("sorel://other?code=abc", "sorel://?code=abc",
                                         "sorel:signed-in?code=abc", "sorel:///signed-in?code=abc",
                                         "https://signed-in?code=abc", "sorel2://signed-in?code=a",
                                         "signed-in?code=abc", "",
                                         "sorel://signed-in@other?code=abc",
                                         "sorel://signed-in.example?code=abc"));

}  // namespace
}  // namespace vellix
