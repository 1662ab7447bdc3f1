// Coming in and going out.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

constexpr const char* kCallback = "sorel://signed-in?code=abc&state=s1";
constexpr const char* kExchangeLine = "POST api/login/exchange";
constexpr const char* kLogoutLine = "POST api/logout";
constexpr const char* kExchangeAnswer =
    R"({"token":"fresh","me":{"email":"renny@tessarine.example","name":"Renny Vale"}})";

class SignOut : public StoreTest {
 protected:
  void SetUp() override {
    serveBoard(boardOf({ticketAt("t1", 1)}));
    serveDetail(detailOf(ticketAt("t1", 1)));
    routes.set(kLogoutLine, answerOf(200, "{}"));
    poll();
    desk.time.run();
  }
};

TEST_F(SignOut, TakesAwayTokenBoardDetailsAndTag) {
  store().startLoop();
  ASSERT_FALSE(store().details().empty());
  store().signOut(false);
  EXPECT_FALSE(desk.tokens.item);
  EXPECT_FALSE(desk.api.token());
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(store().board());
  EXPECT_TRUE(store().details().empty());
  EXPECT_FALSE(store().etag);
  EXPECT_FALSE(store().looping());
}

TEST_F(SignOut, ByTheUserTellsTheServiceAfterwardsWithoutAuthorization) {
  store().signOut(false);
  EXPECT_EQ(desk.http.count(kLogoutLine), 0U);
  desk.time.run();
  const auto calls = desk.http.matching(kLogoutLine);
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0]->request.body, "{}");
  EXPECT_FALSE(calls[0]->has("Authorization"));
  EXPECT_FALSE(store().toast());
}

TEST_F(SignOut, ByTheUserIgnoresWhatTheServiceSays) {
  for (const HttpResult& result :
       std::vector<HttpResult>{answerOf(401), answerOf(500), std::unexpected(HttpError::other)}) {
    routes.set(kLogoutLine, result);
    store().signOut(false);
    desk.time.run();
    EXPECT_FALSE(store().toast());
    EXPECT_FALSE(store().problem());
  }
}

TEST_F(SignOut, ByTheServiceSaysSoAndTellsNobody) {
  store().signOut(true);
  desk.time.run();
  EXPECT_EQ(desk.http.count(kLogoutLine), 0U);
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  EXPECT_FALSE(desk.toast()->undoLabel);
}

TEST_F(SignOut, LeavesTheNextSessionAloneWithLateAnswers) {
  routes.leaveOpen(kStateLine);
  const std::size_t late = desk.http.exchanges.size();
  desk.tasks.start(store().refresh());
  desk.tasks.start(store().refresh());
  store().signOut(false);
  desk.time.run();
  desk.api.setToken("token-2");
  store().signedIn.set(true);
  answer(late, answerOf(200, jsonOf(boardOf({ticketOf("old")}))));
  EXPECT_FALSE(store().board());
  answer(late + 1, answerOf(401));
  EXPECT_TRUE(store().signedIn());
  EXPECT_EQ(desk.api.token(), "token-2");
  EXPECT_FALSE(store().toast());
}

TEST_F(SignOut, LeavesAloneWhatServesTheNextSession) {
  store().selection.set({"t1"});
  store().page.set({{"t1", 3}});
  store().focus.set("f1");
  store().viewVersion.set({{"t1", 2}});
  store().fileTags = {{"t1#0", "\"d1\""}};
  store().seenEvent = 9;
  store().stats.set(Stats{.at = 5});
  store().profile.set("a@b");
  store().busy.set({"note"});
  desk.defaults.texts = {{"LastEmail", "a@b"}, {"Queue", "reprint"}};
  desk.defaults.flags = {{"MineOnly", true}, {"DockBadge", false}};
  const Moment started = store().started;
  store().signOut(false);
  desk.time.run();
  EXPECT_EQ(store().selection(), std::set<std::string>{"t1"});
  EXPECT_EQ(store().page().at("t1"), 3);
  EXPECT_EQ(store().focus(), "f1");
  EXPECT_EQ(store().viewVersion().at("t1"), 2);
  EXPECT_EQ(store().fileTags.at("t1#0"), "\"d1\"");
  EXPECT_EQ(store().seenEvent, 9);
  EXPECT_EQ(store().started, started);
  EXPECT_EQ(store().stats()->at, 5);
  EXPECT_EQ(store().profile(), "a@b");
  EXPECT_TRUE(store().busy().contains("note"));
  EXPECT_EQ(desk.defaults.texts.at("LastEmail"), "a@b");
  EXPECT_EQ(desk.defaults.texts.at("Queue"), "reprint");
  EXPECT_TRUE(desk.defaults.flags.at("MineOnly"));
  EXPECT_FALSE(desk.defaults.flags.at("DockBadge"));
}

class SigningIn : public StoreTest {
 protected:
  SigningIn() : StoreTest(std::nullopt) {
    serveBoard(boardOf({}));
    routes.set(kExchangeLine, answerOf(200, kExchangeAnswer));
  }
  void complete(const std::string& url = kCallback) {
    desk.tasks.start(store().completeSignIn(url));
    desk.time.run();
  }
  void expectStillOut() {
    EXPECT_FALSE(store().signedIn());
    EXPECT_FALSE(store().looping());
    EXPECT_FALSE(desk.api.token());
    EXPECT_EQ(polls(), 0U);
  }
};
using CompletedSignIn = SigningIn;

TEST_F(CompletedSignIn, FetchesTheBoardOnceThenStartsTheLoop) {
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

TEST_F(CompletedSignIn, StartsTheLoopOnlyAfterTheFirstBoardIsIn) {
  routes.leaveOpen(kStateLine);
  complete();
  EXPECT_TRUE(store().signedIn());
  EXPECT_FALSE(store().looping());
  answer(1, std::unexpected(HttpError::notConnected));
  EXPECT_EQ(store().problem(), kOfflineText);
  EXPECT_TRUE(store().looping());
}

TEST_F(CompletedSignIn, StartsNoLoopWhenTheServiceEndsTheSessionAtOnce) {
  routes.set(kStateLine, answerOf(401));
  complete();
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(store().looping());
  EXPECT_FALSE(desk.api.token());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  desk.time.advance(Milliseconds{60'000});
  EXPECT_EQ(polls(), 1U);
}

TEST_F(CompletedSignIn, AgainKeepsWhatWasSeenAndTheTagsOfTheLastSession) {
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

TEST_F(CompletedSignIn, SendsTheTagsOfTheLastSessionAgain) {
  serveBoard(boardOf({ticketAt("t1", 1)}));
  routes.set("GET api/files/t1", answerOf(304));
  store().fileTags = {{"t1#0", "\"old\""}};
  complete();
  EXPECT_EQ(desk.http.matching("GET api/files/t1").at(0)->header("If-None-Match"), "\"old\"");
}

struct FailedSignIn {
  const char* name;
  const char* url;
  HttpResult answer;
  const char* text;
};

class FailedSignIns : public SigningIn, public testing::WithParamInterface<FailedSignIn> {};

TEST_P(FailedSignIns, AreToldInAToast) {
  routes.set(kExchangeLine, GetParam().answer);
  complete(GetParam().url);
  expectStillOut();
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_FALSE(desk.toast()->undoLabel);
}

INSTANTIATE_TEST_SUITE_P(
    All, FailedSignIns,
    testing::Values(
        FailedSignIn{"NoCode", "sorel://signed-in", answerOf(200),
                     "That sign-in did not come through. Try again."},
        FailedSignIn{"Refused", kCallback, answerOf(400, R"({"error":"Code used."})"),
                     "Code used."},
        FailedSignIn{"Broken", kCallback, answerOf(500), kRefusedText},
        FailedSignIn{"Unknown", kCallback, answerOf(401), kSignedOutText},
        FailedSignIn{"Offline", kCallback, std::unexpected(HttpError::notConnected), kOfflineText},
        FailedSignIn{"Undecodable", kCallback, answerOf(200, "[]"), "Sign-in didn't finish."}),
    [](const auto& each) { return each.param.name; });

TEST_F(SigningIn, BeginsFromAUrlOpenedFromOutside) {
  store().open(kCallback);
  EXPECT_TRUE(desk.http.exchanges.empty()) << "in a turn of its own";
  desk.time.run();
  EXPECT_EQ(desk.http.count(kExchangeLine), 1U);
  EXPECT_TRUE(store().signedIn());
}

class Resumed : public StoreTest {
 protected:
  Resumed() : StoreTest(std::nullopt) { serveBoard(boardOf({})); }
};

TEST_F(Resumed, WithATokenThatCameLateItFetchesTheBoard) {
  ASSERT_FALSE(store().signedIn());
  desk.tokens.item = "late";
  store().resume();
  EXPECT_TRUE(store().signedIn());
  EXPECT_TRUE(store().looping());
  desk.time.run();
  EXPECT_TRUE(store().board());
  EXPECT_EQ(polls(), 1U);
  EXPECT_EQ(desk.http.exchanges.at(0).header("Authorization"), "Bearer late");
  EXPECT_THAT(desk.tokens.calls, testing::IsEmpty()) << "it is kept already";
}

TEST_F(Resumed, WithoutATokenItStaysSignedOut) {
  store().resume();
  desk.time.run();
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(store().looping());
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST_F(Resumed, ASessionThatRunsAlreadyGoesOnAsItIs) {
  desk.tokens.item = "early";
  store().startLoop();
  desk.time.run();
  ASSERT_EQ(polls(), 1U);
  store().resume();
  desk.time.run();
  EXPECT_EQ(polls(), 1U);
}

TEST_F(Resumed, ALateTokenThatTheServiceRefusesEndsInTheSignInScreen) {
  store();
  routes.set(kStateLine, answerOf(401));
  desk.tokens.item = "stale";
  store().resume();
  desk.time.run();
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(store().looping());
  EXPECT_FALSE(desk.tokens.item);
  EXPECT_EQ(desk.toastText(), kSignedOutText);
}

class ForeignUrls : public SigningIn, public testing::WithParamInterface<const char*> {};

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
