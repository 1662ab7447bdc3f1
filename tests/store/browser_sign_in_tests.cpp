// Signing in through the browser, and what may come in between.
#include <gmock/gmock.h>

#include "store/sign_in_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ByBrowser : public SignInTest {
 protected:
  bool ended = false;

  void signIn() {
    desk.tasks.start(deliverEnd(store().signIn(), &ended));
    desk.time.run();
  }
  void open(const std::string& url = kCallback) {
    store().open(url);
    desk.time.run();
  }
  void resume(const std::string& token) {
    desk.tokens.item = token;
    store().resume();
    desk.time.run();
  }
};

TEST_F(ByBrowser, TheCallbackLeadsToTheBoard) {
  store().etag = "\"of the last session\"";
  signIn();
  EXPECT_FALSE(ended);
  expectStillOut();
  open();
  EXPECT_TRUE(ended);
  EXPECT_TRUE(store().signedIn());
  EXPECT_TRUE(store().board());
  EXPECT_TRUE(store().looping());
  EXPECT_THAT(lines(), ElementsAre(kExchangeLine, kStateLine, kStateLine));
  EXPECT_FALSE(desk.http.exchanges[1].has("If-None-Match"));
  EXPECT_EQ(desk.http.exchanges[1].header("Authorization"), "Bearer fresh");
  EXPECT_FALSE(store().toast());
}

TEST_F(ByBrowser, TheLoopStartsOnlyAfterTheFirstBoardIsIn) {
  routes.leaveOpen(kStateLine);
  signIn();
  open();
  EXPECT_TRUE(store().signedIn());
  EXPECT_FALSE(store().looping());
  EXPECT_FALSE(ended);
  answer(1, std::unexpected(HttpError::notConnected));
  EXPECT_TRUE(store().looping());
  EXPECT_TRUE(ended);
}

TEST_F(ByBrowser, NoLoopStartsWhenTheServiceEndsTheSessionAtOnce) {
  routes.set(kStateLine, answerOf(401));
  signIn();
  open();
  EXPECT_TRUE(ended);
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(store().looping());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
}

TEST_F(ByBrowser, ACancelledSignInSaysNothing) {
  signIn();
  desk.browser.cancel();
  desk.time.run();
  EXPECT_TRUE(ended);
  expectStillOut();
  EXPECT_FALSE(store().toast());
}

TEST_F(ByBrowser, OneThatNoBrowserOpensForSaysSo) {
  desk.opener.works = false;
  signIn();
  EXPECT_TRUE(ended);
  expectStillOut();
  EXPECT_EQ(desk.toastText(), "No browser opened. Choose a default browser, then try again.");
}

TEST_F(ByBrowser, OneThatEndsWithNothingSaysSo) {
  signIn();
  const auto another = desk.browser.start("http://127.0.0.1", "sorel");
  desk.time.run();
  EXPECT_TRUE(ended);
  EXPECT_EQ(desk.toastText(), "Sign-in was cancelled.");
}

class FailedByBrowser : public ByBrowser, public testing::WithParamInterface<FailedSignIn> {};

TEST_P(FailedByBrowser, AreToldInAToast) {
  routes.set(kExchangeLine, GetParam().answer);
  signIn();
  open(GetParam().url);
  EXPECT_TRUE(ended);
  expectStillOut();
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_FALSE(desk.toast()->undoLabel);
  EXPECT_FALSE(desk.defaults.texts.contains("LastEmail"));
}

INSTANTIATE_TEST_SUITE_P(All, FailedByBrowser, testing::ValuesIn(failedSignIns()), nameOf);
INSTANTIATE_TEST_SUITE_P(OfItsOwn, FailedByBrowser,
                         testing::Values(FailedSignIn{"Undecodable", kCallback, answerOf(200, "[]"),
                                                      "Sign-in didn't finish. Try again."}),
                         nameOf);

TEST_F(ByBrowser, AUrlThatIsNoCallbackLeavesItWaiting) {
  signIn();
  open("sorel://other?code=abc");
  open("https://signed-in?code=abc");
  EXPECT_TRUE(desk.browser.waiting());
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST_F(ByBrowser, ASecondCallbackIsASignInOfItsOwn) {
  routes.leaveOpen(kExchangeLine);
  signIn();
  open();
  open("sorel://signed-in?code=def");
  ASSERT_EQ(desk.http.count(kExchangeLine), 2U);
  EXPECT_THAT(*desk.http.exchanges[1].request.body, HasSubstr("def"));
  answer(1, answerOf(400, "garbage"));
  EXPECT_FALSE(ended);
  answer(0, answerOf(200, kExchangeAnswer));
  EXPECT_TRUE(ended);
  EXPECT_TRUE(store().signedIn());
}

TEST_F(ByBrowser, ASignInByUrlEndsTheOneThatWaits) {
  routes.leaveOpen(kExchangeLine);
  open();
  signIn();
  EXPECT_FALSE(ended);
  answer(0, answerOf(200, kExchangeAnswer));
  EXPECT_TRUE(ended);
  EXPECT_FALSE(desk.browser.waiting());
  EXPECT_TRUE(store().signedIn());
  EXPECT_FALSE(store().toast());
}

TEST_F(ByBrowser, ATokenThatComesLateEndsTheOneThatWaits) {
  signIn();
  resume("late");
  EXPECT_TRUE(ended);
  EXPECT_FALSE(desk.browser.waiting());
  EXPECT_TRUE(store().signedIn());
  EXPECT_TRUE(store().looping());
  EXPECT_FALSE(store().toast());
  EXPECT_EQ(desk.http.exchanges.at(0).header("Authorization"), "Bearer late");
}

TEST_F(ByBrowser, ATokenThatComesDuringTheExchangeGivesWayToTheNewOne) {
  routes.leaveOpen(kExchangeLine);
  signIn();
  open();
  resume("late");
  EXPECT_TRUE(store().signedIn());
  EXPECT_FALSE(ended);
  answer(0, answerOf(200, kExchangeAnswer));
  EXPECT_TRUE(ended);
  EXPECT_EQ(desk.api.token(), "fresh");
  EXPECT_TRUE(store().signedIn());
  EXPECT_TRUE(store().looping());
}

TEST_F(ByBrowser, ARefusalOfTheTokenBeforeDoesNotEndTheNewSession) {
  routes.leaveOpen(kExchangeLine);
  routes.leaveOpen(kStateLine);
  signIn();
  open();
  resume("late");  // its first poll is under way when the exchange ends
  answer(0, answerOf(200, kExchangeAnswer));
  answer(1, answerOf(401));
  EXPECT_TRUE(store().signedIn());
  EXPECT_EQ(desk.api.token(), "fresh");
  EXPECT_FALSE(store().toast());
}

TEST_F(ByBrowser, ALinkTakesTheSeatOfWhoIsSignedIn) {
  desk.tokens.item = "old";
  routes.leaveOpen(kStateLine);
  store().startLoop();
  desk.time.run();
  open();
  ASSERT_EQ(desk.api.token(), "fresh");
  ASSERT_EQ(polls(), 2U);
  BoardState stale = boardOf({ticketAt("t9", 1)});
  answer(0, answerOf(200, jsonOf(stale), "\"stale\""));
  EXPECT_FALSE(store().board()) << "the board of the session before";
  EXPECT_FALSE(store().etag);
  answer(0, std::unexpected(HttpError::notConnected));
}

TEST_F(ByBrowser, ARefusalOfTheLastSessionDoesNotDisturbTheOneThatWaits) {
  desk.tokens.item = "old";
  routes.leaveOpen(kStateLine);
  store().startLoop();
  desk.time.run();
  store().signOut(false);
  desk.time.run();
  signIn();
  answer(0, answerOf(401));
  EXPECT_TRUE(desk.browser.waiting());
  EXPECT_FALSE(ended);
}

}  // namespace
}  // namespace vellix
