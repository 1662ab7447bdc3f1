#include <gtest/gtest.h>

#include "support/awaiting.hpp"
#include "support/desk.hpp"

namespace vellix {
namespace {

constexpr const char* kExchange = "POST api/login/exchange";
constexpr const char* kAnswer =
    R"({"token":"fresh","me":{"email":"renny@tessarine.example","name":"Renny Vale"}})";

class Exchange : public testing::Test {
 protected:
  Desk desk{std::nullopt};
  std::optional<API::Result<Me>> outcome;

  void finish(const std::string& url) {
    desk.tasks.start(deliver(desk.signIn.finish(url), &outcome));
    desk.time.run();
  }
  void answer(HttpResult result) {
    desk.http.answer(desk.http.exchanges.size() - 1, std::move(result));
    desk.time.run();
  }
  std::optional<std::string> body() { return desk.http.exchanges.at(0).request.body; }
  void expectNothingKept() {
    EXPECT_FALSE(desk.api.token());
    EXPECT_TRUE(desk.tokens.calls.empty());
    EXPECT_FALSE(desk.defaults.texts.contains("LastEmail"));
  }
};

TEST_F(Exchange, PostsTheCodeTheStateAndTheMachinesName) {
  finish("sorel://signed-in?code=abc&state=s1");
  ASSERT_EQ(desk.http.count(kExchange), 1U);
  EXPECT_EQ(body(), R"({"code":"abc","state":"s1","device":"studio"})");
  EXPECT_FALSE(desk.http.exchanges[0].has("Authorization"));
}

TEST_F(Exchange, SendsAnEmptyStateInAFreshProcessWhenTheUrlHasNone) {
  finish("sorel://signed-in?code=abc");
  EXPECT_EQ(body(), R"({"code":"abc","state":"","device":"studio"})");
}

TEST_F(Exchange, TakesAStateWithoutAValueForAnEmptyOne) {
  finish("sorel://signed-in?code=abc&state&state=second");
  EXPECT_EQ(body(), R"({"code":"abc","state":"","device":"studio"})");
}

TEST_F(Exchange, TakesTheFirstCodeAndTheFirstState) {
  finish("sorel://signed-in?state=s1&code=a%2Fb&code=c&state=s2");
  EXPECT_EQ(body(), R"({"code":"a/b","state":"s1","device":"studio"})");
}

TEST_F(Exchange, PostsAnEmptyCode) {
  finish("sorel://signed-in?code=&state=s1");
  EXPECT_EQ(body(), R"({"code":"","state":"s1","device":"studio"})");
}

TEST_F(Exchange, CallsANamelessMachineMac) {
  desk.machine.machineName.clear();
  finish("sorel://signed-in?code=abc");
  EXPECT_EQ(body(), R"({"code":"abc","state":"","device":"Mac"})");
}

TEST_F(Exchange, KeepsTheTokenAndTheAddressOnSuccess) {
  finish("sorel://signed-in?code=abc");
  expectNothingKept();
  answer(answerOf(200, kAnswer));
  ASSERT_TRUE(outcome);
  ASSERT_TRUE(*outcome);
  EXPECT_EQ((*outcome)->email, "renny@tessarine.example");
  EXPECT_EQ((*outcome)->name, "Renny Vale");
  EXPECT_EQ(desk.api.token(), "fresh");
  EXPECT_EQ(desk.tokens.item, "fresh");
  EXPECT_EQ(desk.defaults.texts["LastEmail"], "renny@tessarine.example");
}

class MissingCodes : public Exchange, public testing::WithParamInterface<const char*> {};

TEST_P(MissingCodes, EndTheSignInWithoutARequest) {
  finish(GetParam());
  ASSERT_TRUE(outcome);
  ASSERT_FALSE(*outcome);
  EXPECT_EQ(outcome->error(), Failure::server("That sign-in did not come through. Try again."));
  EXPECT_TRUE(desk.http.exchanges.empty());
  expectNothingKept();
}

INSTANTIATE_TEST_SUITE_P(All, MissingCodes,
                         testing::Values("sorel://signed-in", "sorel://signed-in?",
                                         "sorel://signed-in?state=s1", "sorel://signed-in?code",
                                         "sorel://signed-in?code&code=abc",
                                         "sorel://signed-in?Code=abc", "sorel://signed-in#code=abc",
                                         "", "garbage"));

struct ExchangeFailure {
  const char* name;
  HttpResult answer;
  std::optional<std::string> description;
};
BOOST_DESCRIBE_STRUCT(ExchangeFailure, (), (name, description))

class FailedExchanges : public Exchange, public testing::WithParamInterface<ExchangeFailure> {};

TEST_P(FailedExchanges, ChangeNeitherTokenNorAddress) {
  desk.tokens.item = "old";
  desk.defaults.texts["LastEmail"] = "old@tessarine.example";
  finish("sorel://signed-in?code=abc");
  answer(GetParam().answer);
  ASSERT_TRUE(outcome);
  ASSERT_FALSE(*outcome);
  EXPECT_EQ(outcome->error().description(), GetParam().description);
  EXPECT_EQ(desk.api.token(), "old");
  EXPECT_TRUE(desk.tokens.calls.empty());
  EXPECT_EQ(desk.defaults.texts["LastEmail"], "old@tessarine.example");
}

INSTANTIATE_TEST_SUITE_P(
    All, FailedExchanges,
    testing::Values(
        ExchangeFailure{"SignedOut", answerOf(401), "You're signed out. Sign in again."},
        ExchangeFailure{"Refused", answerOf(400, R"({"error":"Too late."})"), "Too late."},
        ExchangeFailure{"Broken", answerOf(500, "<html>"),
                        "The server didn't take that. Try again in a moment."},
        ExchangeFailure{"Offline", std::unexpected(HttpError::notConnected),
                        "This Mac is offline. Vellix will catch up when it's back."},
        ExchangeFailure{"Garbage", answerOf(200, "garbage"), std::nullopt},
        ExchangeFailure{"NoToken", answerOf(200, R"({"me":{"email":"a","name":"b"}})"),
                        std::nullopt},
        ExchangeFailure{"NoPerson", answerOf(200, R"({"token":"fresh"})"), std::nullopt},
        ExchangeFailure{"NullToken",
                        answerOf(200, R"({"token":null,"me":{"email":"a","name":""}})"),
                        std::nullopt}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
