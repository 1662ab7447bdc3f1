// The browser half of a sign-in, from the page that is opened to the exchange.
#include <gmock/gmock.h>

#include "support/awaiting.hpp"
#include "support/desk.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

constexpr const char* kFirstNonce = "0f8fad5bd9cb469fa165708677289501";
constexpr const char* kSecondNonce = "0f8fad5bd9cb469fa165708677289502";
constexpr const char* kServer = "http://127.0.0.1:8080";
constexpr const char* kAnswer =
    R"({"token":"fresh","me":{"email":"renny@tessarine.example","name":"Renny Vale"}})";

class BrowserSignIn : public testing::Test {
 protected:
  BrowserSignIn() { desk.defaults.texts["ServerURL"] = kServer; }

  Desk desk{std::nullopt};
  std::optional<API::Result<Me>> outcome;

  void run() {
    outcome.reset();
    desk.tasks.start(deliver(desk.signIn.run(), &outcome));
    desk.time.run();
  }
  void arrive(const std::string& url) {
    EXPECT_TRUE(desk.signIn.arrived(url));
    desk.time.run();
  }
  std::optional<Failure> failure() {
    return outcome && !*outcome ? std::optional{outcome->error()} : std::nullopt;
  }
  void expectNothingKept() {
    EXPECT_FALSE(desk.api.token());
    EXPECT_TRUE(desk.tokens.calls.empty());
    EXPECT_TRUE(desk.http.exchanges.empty());
  }
};

TEST_F(BrowserSignIn, OpensThePageWithAFreshNonce) {
  run();
  EXPECT_FALSE(outcome);
  EXPECT_TRUE(desk.browser.waiting());
  EXPECT_THAT(desk.opener.opened,
              ElementsAre(std::string{kServer} + "/signin?state=" + kFirstNonce));
  expectNothingKept();
}

TEST_F(BrowserSignIn, OpensThePageOfTheBuiltInServer) {
  desk.defaults.texts.clear();
  run();
  EXPECT_THAT(
      desk.opener.opened,
      ElementsAre(std::string{"https://proofs.tessarine.example/signin?state="} + kFirstNonce));
}

TEST_F(BrowserSignIn, PutsThePageBelowAServerThatLiesInAFolder) {
  desk.defaults.texts["ServerURL"] = "https://tessarine.example/proofs/?old=1#top";
  run();
  EXPECT_THAT(
      desk.opener.opened,
      ElementsAre(std::string{"https://tessarine.example/proofs/signin?state="} + kFirstNonce));
}

TEST_F(BrowserSignIn, MakesANonceForEachRun) {
  run();
  desk.signIn.cancel();
  desk.time.run();
  run();
  ASSERT_EQ(desk.opener.opened.size(), 2U);
  EXPECT_TRUE(desk.opener.opened[1].ends_with(kSecondNonce));
}

TEST_F(BrowserSignIn, TellsNoAddressToTheServiceThatStandsIn) {
  desk.defaults.texts["LastEmail"] = "renny@tessarine.example";
  desk.defaults.texts["ServerURL"] = "127.0.0.1:9000";
  run();
  EXPECT_THAT(
      desk.opener.opened,
      ElementsAre(std::string{"https://proofs.tessarine.example/signin?state="} + kFirstNonce));
}

struct Hint {
  const char* name;
  std::optional<std::string> last;
  std::string hint;  // as it stands in the URL
};
BOOST_DESCRIBE_STRUCT(Hint, (), (name, last, hint))

class Hints : public BrowserSignIn, public testing::WithParamInterface<Hint> {};

TEST_P(Hints, AreCompanyAddressesAlone) {
  if (GetParam().last) desk.defaults.texts["LastEmail"] = *GetParam().last;
  run();
  ASSERT_EQ(desk.opener.opened.size(), 1U);
  EXPECT_EQ(desk.opener.opened[0],
            std::string{kServer} + "/signin?state=" + kFirstNonce + GetParam().hint);
}

INSTANTIATE_TEST_SUITE_P(
    All, Hints,
    testing::Values(Hint{"None", std::nullopt, ""},
                    Hint{"Company", "renny@tessarine.example", "&hint=renny%40tessarine.example"},
                    Hint{"Escaped", "r+v%a&b@tessarine.example",
                         "&hint=r%2Bv%25a%26b%40tessarine.example"},
                    Hint{"OtherDomain", "renny@elsewhere.example", ""},
                    Hint{"DomainAsATail", "renny@nottessarine.example", ""},
                    Hint{"DomainWithATail", "renny@tessarine.example.org", ""},
                    Hint{"NoAt", "tessarine.example", ""}, Hint{"Empty", "", ""}),
    [](const auto& each) { return each.param.name; });

TEST_F(BrowserSignIn, ExchangesTheCodeThatCameBackWithItsOwnNonce) {
  run();
  arrive("sorel://signed-in?code=abc&state=another");
  EXPECT_FALSE(desk.browser.waiting());
  ASSERT_EQ(desk.http.count("POST api/login/exchange"), 1U);
  EXPECT_EQ(desk.http.exchanges[0].request.body,
            std::string{R"({"code":"abc","state":")"} + kFirstNonce + R"(","device":"studio"})");
  EXPECT_FALSE(outcome);
  desk.http.answer(0, answerOf(200, kAnswer));
  desk.time.run();
  ASSERT_TRUE(outcome && *outcome);
  EXPECT_EQ((*outcome)->email, "renny@tessarine.example");
  EXPECT_EQ(desk.api.token(), "fresh");
  EXPECT_EQ(desk.defaults.texts["LastEmail"], "renny@tessarine.example");
}

TEST_F(BrowserSignIn, GoesOnInATurnOfItsOwn) {
  run();
  EXPECT_TRUE(desk.signIn.arrived("sorel://signed-in?code=abc"));
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_FALSE(desk.signIn.arrived("sorel://signed-in?code=abc")) << "it has its callback";
  desk.time.run();
  EXPECT_EQ(desk.http.exchanges.size(), 1U);
}

TEST_F(BrowserSignIn, UsesTheNonceOfARunThatWasCalledOff) {
  run();
  desk.signIn.cancel();
  desk.time.run();
  std::optional<API::Result<Me>> finished;
  desk.tasks.start(deliver(desk.signIn.finish("sorel://signed-in?code=abc&state=s"), &finished));
  desk.time.run();
  EXPECT_THAT(*desk.http.exchanges.at(0).request.body, testing::HasSubstr(kFirstNonce));
}

TEST_F(BrowserSignIn, EndsCancelledByThePerson) {
  run();
  desk.signIn.cancel();
  EXPECT_FALSE(desk.browser.waiting());
  EXPECT_FALSE(outcome) << "in a turn of its own";
  desk.time.run();
  EXPECT_EQ(failure(), Failure::cancelled());
  EXPECT_EQ(failure()->description(), std::nullopt);
  expectNothingKept();
}

TEST_F(BrowserSignIn, EndsWithNeitherUrlNorError) {
  run();
  const auto later = desk.browser.start(kServer, "sorel");
  desk.time.run();
  EXPECT_EQ(failure(), Failure::server("Sign-in was cancelled."));
  EXPECT_FALSE(later.resolved());
  EXPECT_TRUE(desk.browser.waiting());
  expectNothingKept();
}

TEST_F(BrowserSignIn, EndsWithACallbackThatHasNoCode) {
  run();
  arrive("sorel://signed-in?state=s1");
  EXPECT_EQ(failure(), Failure::server("That sign-in did not come through. Try again."));
  expectNothingKept();
}

TEST_F(BrowserSignIn, EndsWhenNoBrowserOpens) {
  desk.opener.works = false;
  run();
  EXPECT_EQ(failure(),
            Failure::server("No browser opened. Choose a default browser, then try again."));
  EXPECT_FALSE(desk.browser.waiting());
  expectNothingKept();
}

TEST_F(BrowserSignIn, OpensTheSamePageAgain) {
  run();
  desk.browser.openAgain();
  ASSERT_EQ(desk.opener.opened.size(), 2U);
  EXPECT_EQ(desk.opener.opened[0], desk.opener.opened[1]);
  EXPECT_TRUE(desk.browser.waiting());
  desk.opener.works = false;
  desk.browser.openAgain();
  desk.time.run();
  EXPECT_TRUE(failure());
  desk.browser.openAgain();
  EXPECT_EQ(desk.opener.opened.size(), 3U) << "there is no page any more";
}

TEST_F(BrowserSignIn, TakesNoUrlWhileNothingRuns) {
  EXPECT_FALSE(desk.signIn.arrived("sorel://signed-in?code=abc"));
  desk.signIn.cancel();
  desk.time.run();
  expectNothingKept();
}

}  // namespace
}  // namespace vellix
