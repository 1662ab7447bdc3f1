// Signing in through the browser, and what may come in between.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kCallback = "sorel://signed-in?code=abc&state=s1";
constexpr const char* kExchangeLine = "POST api/login/exchange";
constexpr const char* kExchangeAnswer =
    R"({"token":"fresh","me":{"email":"renny@tessarine.example","name":"Renny Vale"}})";

class ByBrowser : public StoreTest {
 protected:
  ByBrowser() : StoreTest(std::nullopt) {
    serveBoard(boardOf({}));
    routes.set(kExchangeLine, answerOf(200, kExchangeAnswer));
  }
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
  void expectStillOut() {
    EXPECT_FALSE(store().signedIn());
    EXPECT_FALSE(store().looping());
    EXPECT_FALSE(desk.api.token());
    EXPECT_EQ(polls(), 0U);
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

struct FailedRun {
  const char* name;
  const char* url;
  HttpResult answer;
  const char* text;
};

class FailedRuns : public ByBrowser, public testing::WithParamInterface<FailedRun> {};

TEST_P(FailedRuns, AreToldInAToast) {
  routes.set(kExchangeLine, GetParam().answer);
  signIn();
  open(GetParam().url);
  EXPECT_TRUE(ended);
  expectStillOut();
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_FALSE(desk.toast()->undoLabel);
  EXPECT_FALSE(desk.defaults.texts.contains("LastEmail"));
}

INSTANTIATE_TEST_SUITE_P(
    All, FailedRuns,
    testing::Values(
        FailedRun{"NoCode", "sorel://signed-in", answerOf(200),
                  "That sign-in did not come through. Try again."},
        FailedRun{"Refused", kCallback, answerOf(400, R"({"error":"Code used."})"), "Code used."},
        FailedRun{"Broken", kCallback, answerOf(500), kRefusedText},
        FailedRun{"Unknown", kCallback, answerOf(401), kSignedOutText},
        FailedRun{"Offline", kCallback, std::unexpected(HttpError::notConnected), kOfflineText},
        FailedRun{"Undecodable", kCallback, answerOf(200, "[]"),
                  "Sign-in didn't finish. Try again."}),
    [](const auto& each) { return each.param.name; });

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
