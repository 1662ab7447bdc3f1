// When the feed is asked, and what is made of the answer.
#include <gmock/gmock.h>

#include "update/update_fakes.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = Updater::Phase::Kind;

VersionInfo build(Int number, std::optional<Int> least = std::nullopt) {
  auto version = UpdateDesk::build42();
  version.build = number;
  version.min_build = least;
  return version;
}

std::size_t checks(const UpdateDesk& desk) { return desk.http.count("GET version.json"); }

TEST(UpdateChecks, AskAtOnceAndEveryFifteenMinutes) {
  UpdateDesk desk;
  desk.updater->start();
  EXPECT_EQ(checks(desk), 1);
  desk.time.advance(Milliseconds{899'999});
  EXPECT_EQ(checks(desk), 1);
  desk.time.advance(Milliseconds{1});
  EXPECT_EQ(checks(desk), 2);
  desk.time.advance(Milliseconds{900'000});
  EXPECT_EQ(checks(desk), 3);
}

TEST(UpdateChecks, BeginOnce) {
  UpdateDesk desk;
  desk.updater->start();
  desk.updater->start();
  desk.time.advance(Milliseconds{900'000});
  EXPECT_EQ(checks(desk), 2);
}

TEST(UpdateChecks, AskWhenTheMachineWakesAndCarryOn) {
  UpdateDesk desk;
  desk.updater->start();
  desk.time.advance(Milliseconds{600'000});
  desk.wakes.wake();
  EXPECT_EQ(checks(desk), 2);
  desk.time.advance(Milliseconds{300'000});
  EXPECT_EQ(checks(desk), 3);
}

TEST(UpdateChecks, GoOnBesideOneThatIsNeverAnswered) {
  UpdateDesk desk;
  desk.http.automatic = nullptr;
  desk.updater->start();
  desk.time.advance(Milliseconds{900'000});
  EXPECT_EQ(checks(desk), 2);
}

TEST(UpdateChecks, NeedNoSignIn) {
  UpdateDesk desk;
  desk.learn(build(42));
  EXPECT_FALSE(desk.http.exchanges[0].has("Authorization"));
  desk.api.setToken("abc");
  desk.check();
  EXPECT_EQ(desk.http.exchanges[1].header("Authorization"), "Bearer abc");
}

TEST(UpdateChecks, LearnOfANewerBuild) {
  UpdateDesk desk;
  desk.learn(build(42));
  EXPECT_EQ(desk.updater->latest(), build(42));
  EXPECT_TRUE(desk.updater->showsBar());
  EXPECT_FALSE(desk.updater->isRequired());
}

TEST(UpdateChecks, ForgetWhatIsNotNewer) {
  for (const Int number : {41, 40, -1}) {
    UpdateDesk desk;
    desk.learn(build(42));
    desk.learn(build(number, 99));
    EXPECT_FALSE(desk.updater->latest()) << number;
    EXPECT_FALSE(desk.updater->showsBar()) << number;
    EXPECT_FALSE(desk.updater->isRequired()) << number;
  }
}

TEST(UpdateChecks, LeaveWhatIsKnownWhenTheyFail) {
  UpdateDesk desk;
  desk.learn(build(43, 42));
  desk.feed = std::nullopt;
  desk.check();
  for (const HttpResult& result :
       {HttpResult{std::unexpected(HttpError::notConnected)}, HttpResult{answerOf(401)},
        HttpResult{answerOf(304)}, HttpResult{answerOf(200, "<html>")},
        HttpResult{answerOf(200, R"({"version": "2", "build": 50})")},
        HttpResult{
            answerOf(200, R"({"version": "2", "build": 1.5, "url": "https://a.example"})")}}) {
    desk.http.automatic = [&result](const auto&) { return result; };
    desk.check();
  }
  EXPECT_EQ(desk.updater->latest(), build(43, 42));
  EXPECT_TRUE(desk.updater->isRequired());
  EXPECT_EQ(desk.updater->phase(), Updater::Phase{});
  EXPECT_FALSE(desk.tokens.calls.size());
}

TEST(UpdateChecks, TheLaterAnswerWins) {
  UpdateDesk desk;
  desk.http.automatic = nullptr;
  desk.check();
  desk.check();
  desk.http.answer(1, answerOf(200, *encode(build(44))));
  desk.settle();
  desk.http.answer(0, answerOf(200, *encode(build(43))));
  desk.settle();
  EXPECT_EQ(desk.updater->latest(), build(43));
}

struct Requirement {
  std::optional<Int> least;
  bool required;
};

TEST(UpdateChecks, RequireWhatTheServiceDoesNotWorkWithAnyMore) {
  for (const auto& [least, required] : {Requirement{std::nullopt, false}, Requirement{0, false},
                                        Requirement{41, false}, Requirement{42, true}}) {
    UpdateDesk desk;
    desk.learn(build(50, least));
    EXPECT_EQ(desk.updater->isRequired(), required) << least.value_or(-1);
  }
}

TEST(UpdateBar, StaysAwayForAnHour) {
  UpdateDesk desk;
  int told = 0;
  desk.learn(build(42));
  const auto observing = desk.updater->changes.observe(Updater::kAny, [&told] { ++told; });
  desk.updater->snooze();
  desk.settle();
  EXPECT_EQ(told, 1);
  EXPECT_FALSE(desk.updater->showsBar());
  desk.time.advance(Milliseconds{3'599'999});
  EXPECT_FALSE(desk.updater->showsBar());
  EXPECT_EQ(told, 1);
  desk.time.advance(Milliseconds{1});
  EXPECT_FALSE(desk.updater->showsBar());  // after that moment, not at it
  desk.time.advance(Milliseconds{1});
  EXPECT_TRUE(desk.updater->showsBar());
  EXPECT_EQ(told, 2);
  EXPECT_FALSE(desk.updater->snoozed());
}

TEST(UpdateBar, OfARequiredBuildIsNotSnoozed) {
  UpdateDesk desk;
  desk.learn(build(42));
  desk.updater->snooze();
  desk.learn(build(43, 42));
  EXPECT_TRUE(desk.updater->showsBar());
}

TEST(UpdateBar, IsBackAfterASleepThatOutlastedTheHour) {
  UpdateDesk desk;
  int told = 0;
  desk.learn(build(42));
  desk.updater->snooze();
  desk.settle();
  const auto observing = desk.updater->changes.observe(Updater::kAny, [&told] { ++told; });
  desk.check();
  EXPECT_EQ(told, 1);
}

TEST(StartUp, InstallsAFreshBuildOnce) {
  UpdateDesk desk;
  desk.feed = build(42);
  desk.updater->start();
  desk.settle();
  EXPECT_EQ(desk.asked.back(), "terminate");
  EXPECT_EQ(desk.defaults.onDisk["UpdateTried"], "42");
}

TEST(StartUp, DoesNotTryABuildAgainByItself) {
  for (const char* tried : {"42", "43"}) {
    UpdateDesk desk;
    desk.defaults.texts["UpdateTried"] = tried;
    desk.feed = build(42);
    desk.updater->start();
    desk.settle();
    EXPECT_THAT(desk.asked, IsEmpty()) << tried;
    EXPECT_TRUE(desk.updater->showsBar());
  }
}

TEST(StartUp, TriesABuildAboveTheLastOne) {
  for (const char* tried : {"41", "0", "", "none", "42.0"}) {
    UpdateDesk desk;
    desk.defaults.texts["UpdateTried"] = tried;
    desk.feed = build(42);
    desk.updater->start();
    desk.settle();
    EXPECT_EQ(desk.defaults.onDisk["UpdateTried"], "42") << tried;
  }
}

TEST(StartUp, InstallsNothingOfACopyThatIsNoBundleOfOurs) {
  auto copy = UpdateDesk::copyAt("/Applications/Vellix.app");
  for (const auto& identifier :
       {std::optional<std::string>{}, std::optional<std::string>{"com.rennyvale.sorel"}}) {
    copy.identifier = identifier;
    UpdateDesk desk{copy};
    desk.feed = build(42);
    desk.updater->start();
    desk.settle();
    EXPECT_THAT(desk.asked, IsEmpty());
    EXPECT_THAT(desk.opener.opened, IsEmpty());
    EXPECT_TRUE(desk.updater->showsBar());
  }
}

TEST(StartUp, AloneInstallsWithoutBeingAsked) {
  UpdateDesk desk;
  desk.updater->start();
  desk.settle();
  desk.feed = build(42);
  desk.wakes.wake();
  desk.time.advance(Updater::kInterval);
  EXPECT_THAT(desk.asked, IsEmpty());
  EXPECT_TRUE(desk.updater->showsBar());
}

}  // namespace
}  // namespace vellix
