// What is asked of the system, in which order, and what is said when a step fails.
#include <gmock/gmock.h>

#include "update/scripts.hpp"
#include "update/update_fakes.hpp"

namespace vellix {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using Kind = Updater::Phase::Kind;

constexpr const char* kUnfinished =
    "The update didn't finish. Try again, or download it from the Vellix page.";
constexpr const char* kNoAnswer = "The download page didn't answer. Try again in a minute.";
constexpr const char* kNotSigned =
    "That download isn't signed by Tessarine, so it wasn't installed.";
constexpr const char* kTooOld = "The download isn't the new build yet. Try again in a few minutes.";
constexpr const char* kNotWritable =
    "Vellix can't replace itself where it is. Drag the new Vellix from the window that opened "
    "into Applications.";

std::string failed(const std::string& tool) {
  return "The update check failed (" + tool + "). Try again, or download it from the Vellix page.";
}

constexpr const char* kAttach =
    "/usr/bin/hdiutil attach /caches/SorelUpdate/Vellix.dmg -nobrowse -readonly -noautoopen "
    "-mountpoint /caches/SorelUpdate/mnt";

// Everything that is asked of the system on the way, in this order.
const Asked kWhole{
    "begin a file",
    "renew the stage",
    "put into the stage: Vellix.dmg",
    kAttach,
    "/usr/bin/codesign --verify --deep --strict /caches/SorelUpdate/mnt/Vellix.app",
    "/usr/bin/codesign -dv /caches/SorelUpdate/mnt/Vellix.app",
    "/usr/bin/ditto /caches/SorelUpdate/mnt/Vellix.app /caches/SorelUpdate/Vellix.app",
    "/usr/bin/hdiutil detach /caches/SorelUpdate/mnt -force",
    "write /caches/SorelUpdate/swap.sh",
    "let go: /bin/sh /caches/SorelUpdate/swap.sh",
    "terminate",
};
constexpr std::size_t kAttached = 4;  // so many, when the image has been attached

// What is asked when it ends after so many of them. The image is let go.
Asked upTo(std::size_t count) {
  Asked asked{kWhole.begin(), kWhole.begin() + static_cast<std::ptrdiff_t>(count)};
  if (count >= kAttached && count < 8) asked.push_back(kWhole[7]);
  return asked;
}

// So many steps, and how the one after them goes wrong.
struct Setback {
  std::string name;
  std::size_t steps;
  std::function<void(UpdateDesk&)> cause;
  std::string said;
};

void PrintTo(const Setback& setback, std::ostream* out) { *out << setback.name; }

auto exits(const std::string& call, int status, std::string output = {}) {
  return [call, status, output](UpdateDesk& desk) {
    desk.tools.answer(call, ToolExit{.status = status, .output = output});
  };
}

auto ends(const std::string& call, ToolError error) {
  return [call, error](UpdateDesk& desk) { desk.tools.answer(call, std::unexpected(error)); };
}

auto signs(const std::string& output) { return exits("/usr/bin/codesign -dv", 0, output); }

auto holds(std::optional<std::string> version) {
  return [version](UpdateDesk& desk) {
    desk.files.versions.clear();
    if (version) {
      desk.files.versions["/caches/SorelUpdate/mnt/Vellix.app/Contents/Info.plist"] = *version;
    }
  };
}

auto answers(HttpResult result) {
  return [result](UpdateDesk& desk) { desk.image = result; };
}

const std::vector<Setback>& setbacks() {
  const std::string attach = "/usr/bin/hdiutil attach";
  const std::string verify = "/usr/bin/codesign --verify";
  const std::string show = "/usr/bin/codesign -dv";
  const std::string ditto = "/usr/bin/ditto";
  const std::string both = "Identifier=com.rennyvale.Sorel\nTeamIdentifier=QX9102846T";
  static const std::vector<Setback> all{
      {"no room", 0, [](UpdateDesk& desk) { desk.files.room = (std::int64_t{1} << 30) - 1; },
       kUnfinished},
      {"not found", 1, answers(answerOf(404, "gone")), kNoAnswer},
      {"a part of it", 1, answers(answerOf(206, "the im")), kNoAnswer},
      {"nothing new", 1, answers(answerOf(304)), kNoAnswer},
      {"no HTTP", 1, answers(std::unexpected(HttpError::notHttp)), kNoAnswer},
      {"offline", 1, answers(std::unexpected(HttpError::notConnected)), kUnfinished},
      {"cut off", 1, answers(std::unexpected(HttpError::connectionLost)), kUnfinished},
      {"silent", 1, answers(std::unexpected(HttpError::timedOut)), kUnfinished},
      {"a full disk", 1, answers(std::unexpected(HttpError::notKept)), kUnfinished},
      {"sent elsewhere", 1, answers(std::unexpected(HttpError::other)), kUnfinished},
      {"no stage", 2, [](UpdateDesk& desk) { desk.files.renewable = false; }, kUnfinished},
      {"not kept", 3, [](UpdateDesk& desk) { desk.files.movable = false; }, kUnfinished},
      {"attach fails", 4, exits(attach, 1), failed("hdiutil")},
      {"attach is not there", 4, ends(attach, ToolError::notStarted), kUnfinished},
      {"attach does not end", 4, ends(attach, ToolError::ended), failed("hdiutil")},
      {"a broken signature", 5, exits(verify, 3), failed("codesign")},
      {"verify is not there", 5, ends(verify, ToolError::notStarted), kUnfinished},
      {"verify does not end", 5, ends(verify, ToolError::ended), failed("codesign")},
      {"no signature", 6, exits(show, 1, both), failed("codesign")},
      {"asking does not end", 6, ends(show, ToolError::ended), failed("codesign")},
      {"another team", 6, signs("Identifier=com.rennyvale.Sorel\nTeamIdentifier=QX9102846U"),
       kNotSigned},
      {"another identifier", 6, signs("Identifier=com.rennyvale.Other\nTeamIdentifier=QX9102846T"),
       kNotSigned},
      {"no UTF-8", 6, signs(both + "\xff"), kNotSigned},
      {"nothing said", 6, signs(""), kNotSigned},
      {"an older build", 6, holds("41"), kTooOld},
      {"no list", 6, holds(std::nullopt), kTooOld},
      {"no number", 6, holds("12a"), kTooOld},
      {"two signs", 6, holds("+-50"), kTooOld},
      {"below nothing", 6, holds("-50"), kTooOld},
      {"blanks", 6, holds(" 50"), kTooOld},
      {"a fraction", 6, holds("50.0"), kTooOld},
      {"too long a number", 6, holds("99999999999999999999"), kTooOld},
      {"an empty text", 6, holds(""), kTooOld},
      {"no copy", 7, exits(ditto, 1), failed("ditto")},
      {"copying does not end", 7, ends(ditto, ToolError::ended), failed("ditto")},
      {"no script", 9, [](UpdateDesk& desk) { desk.files.takesScripts = false; }, kUnfinished},
      {"no shell", 9, [](UpdateDesk& desk) { desk.tools.startable = false; }, kUnfinished},
  };
  return all;
}

void install(UpdateDesk& desk, const VersionInfo& version = UpdateDesk::build42()) {
  desk.learn(version);
  desk.updater->install();
  desk.settle();
}

TEST(Install, AsksInThisOrder) {
  UpdateDesk desk;
  install(desk);
  EXPECT_THAT(desk.asked, ElementsAreArray(kWhole));
  EXPECT_EQ(desk.updater->phase(),
            (Updater::Phase{Kind::working, "Installing. Vellix reopens by itself."}));
  EXPECT_EQ(desk.files.written["/caches/SorelUpdate/swap.sh"],
            swapScript({.process = 4242,
                        .current = "/Applications/Vellix.app",
                        .target = "/Applications/Vellix.app",
                        .fresh = "/caches/SorelUpdate/Vellix.app"}));
  EXPECT_THAT(desk.opener.opened, IsEmpty());
  EXPECT_EQ(desk.files.arrived->text, "the image");
}

class InstallSetbacks : public testing::TestWithParam<Setback> {};

TEST_P(InstallSetbacks, EndThereWithTheseWords) {
  const auto& setback = GetParam();
  UpdateDesk desk;
  setback.cause(desk);
  install(desk);
  EXPECT_THAT(desk.asked, ElementsAreArray(upTo(setback.steps)));
  EXPECT_EQ(desk.updater->phase(), (Updater::Phase{Kind::failed, setback.said}));
  EXPECT_EQ(desk.defaults.onDisk["UpdateTried"], "42");
  EXPECT_THAT(desk.opener.opened, IsEmpty());
}

TEST_P(InstallSetbacks, AreTriedAgainFromTheStart) {
  UpdateDesk desk;
  GetParam().cause(desk);
  install(desk);
  desk.mend();
  desk.asked.clear();
  desk.updater->install();
  desk.settle();
  EXPECT_THAT(desk.asked, ElementsAreArray(kWhole));
}

INSTANTIATE_TEST_SUITE_P(Each, InstallSetbacks, testing::ValuesIn(setbacks()),
                         [](const auto& tested) {
                           std::string name = tested.param.name;
                           std::erase_if(name, [](char each) { return !std::isalnum(each); });
                           return name;
                         });

TEST(Install, TellsWhatItIsAt) {
  UpdateDesk desk;
  desk.http.automatic = nullptr;
  desk.feed = UpdateDesk::build42();
  desk.check();
  desk.http.answer(0, answerOf(200, *encode(*desk.feed)));
  desk.settle();
  desk.updater->install();
  desk.settle();
  EXPECT_EQ(desk.updater->phase(), (Updater::Phase{Kind::working, "Downloading Vellix 1.3 (42)…"}));
  desk.tools.hanging = {"/usr/bin/ditto"};
  desk.http.answer(1, desk.image);
  desk.settle();
  EXPECT_EQ(desk.updater->phase(),
            (Updater::Phase{Kind::working, "Checking it's signed by Tessarine…"}));
}

TEST(Install, IsOneAtATime) {
  UpdateDesk desk;
  desk.learn(UpdateDesk::build42());
  desk.updater->install();
  desk.updater->install();
  desk.settle();
  EXPECT_THAT(desk.asked, ElementsAreArray(kWhole));
}

TEST(Install, DoesNothingWithoutANewerBuild) {
  UpdateDesk desk;
  desk.updater->install();
  desk.settle();
  EXPECT_THAT(desk.asked, IsEmpty());
  EXPECT_FALSE(desk.defaults.texts.contains("UpdateTried"));
}

TEST(Install, DoesNothingWithAnAddressThatIsNone) {
  for (const char* url :
       {"", "Vellix.dmg", "https://", "file:///etc/passwd", "http://a b.example"}) {
    UpdateDesk desk;
    auto version = UpdateDesk::build42();
    version.url = url;
    install(desk, version);
    desk.updater->download();
    EXPECT_THAT(desk.asked, IsEmpty()) << url;
    EXPECT_THAT(desk.opener.opened, IsEmpty()) << url;
    EXPECT_EQ(desk.updater->phase(), Updater::Phase{}) << url;
  }
}

TEST(Install, OfAnythingButOurBundleOpensThePage) {
  auto copy = UpdateDesk::copyAt("/Applications/Vellix.app");
  copy.identifier = std::nullopt;
  UpdateDesk desk{copy};
  install(desk);
  EXPECT_THAT(desk.opener.opened, ElementsAre("https://pages.tessarine.example/Vellix.dmg"));
  EXPECT_THAT(desk.asked, IsEmpty());
  EXPECT_FALSE(desk.defaults.texts.contains("UpdateTried"));
  EXPECT_EQ(desk.updater->phase(), Updater::Phase{});
}

TEST(Install, SaysThatThePageCouldNotBeOpened) {
  auto copy = UpdateDesk::copyAt("/Applications/Vellix.app");
  copy.identifier = std::nullopt;
  UpdateDesk desk{copy};
  desk.opener.works = false;
  install(desk);
  EXPECT_EQ(desk.updater->phase(), (Updater::Phase{Kind::failed, kUnfinished}));
}

TEST(Install, TakesANewerBuildThanItWasToldOf) {
  UpdateDesk desk;
  holds("+43")(desk);
  install(desk);
  EXPECT_EQ(desk.asked.back(), "terminate");
}

TEST(Install, TakesAnIdentifierThatEndsInOurs) {
  UpdateDesk desk;
  signs("Identifier=com.rennyvale.Sorel.more\nTeamIdentifier=QX9102846T")(desk);
  install(desk);
  EXPECT_EQ(desk.asked.back(), "terminate");
}

TEST(Install, GoesOnWhereDetachingFails) {
  for (const ToolResult& result : {ToolResult{ToolExit{.status = 1, .output = {}}},
                                   ToolResult{std::unexpected(ToolError::ended)}}) {
    UpdateDesk desk;
    desk.tools.answer("/usr/bin/hdiutil detach", result);
    install(desk);
    EXPECT_THAT(desk.asked, ElementsAreArray(kWhole));
  }
}

TEST(Install, MovesFromTheEarlierNameToThePresentOne) {
  UpdateDesk desk{UpdateDesk::copyAt("/Applications/Sorel.app")};
  install(desk);
  EXPECT_EQ(desk.files.written["/caches/SorelUpdate/swap.sh"],
            swapScript({.process = 4242,
                        .current = "/Applications/Sorel.app",
                        .target = "/Applications/Vellix.app",
                        .fresh = "/caches/SorelUpdate/Vellix.app"}));
}

TEST(Install, TakesAnImageOfTheEarlierName) {
  UpdateDesk desk;
  desk.files.standing = {"/caches/SorelUpdate/mnt/Sorel.app"};
  install(desk);
  EXPECT_THAT(desk.asked, Contains("/usr/bin/ditto /caches/SorelUpdate/mnt/Sorel.app "
                                   "/caches/SorelUpdate/Sorel.app"));
  EXPECT_EQ(desk.files.written["/caches/SorelUpdate/swap.sh"],
            swapScript({.process = 4242,
                        .current = "/Applications/Vellix.app",
                        .target = "/Applications/Sorel.app",
                        .fresh = "/caches/SorelUpdate/Sorel.app"}));
}

TEST(Install, OpensTheImageWhereItCannotReplaceItself) {
  for (const char* path : {"/Applications", "/Applications/Vellix.app"}) {
    UpdateDesk desk;
    desk.files.readOnly = {path};
    desk.files.stageFolder = "/My caches/SorelUpdate";
    desk.files.standing = {"/My caches/SorelUpdate/mnt/Vellix.app"};
    desk.files.versions = {{"/My caches/SorelUpdate/mnt/Vellix.app/Contents/Info.plist", "42"}};
    install(desk);
    EXPECT_THAT(desk.opener.opened, ElementsAre("file:///My%20caches/SorelUpdate/Vellix.dmg"));
    EXPECT_EQ(desk.updater->phase(), (Updater::Phase{Kind::failed, kNotWritable}));
    EXPECT_THAT(desk.asked, Not(Contains(StartsWith("write "))));
    EXPECT_THAT(desk.asked, Not(Contains("terminate")));
  }
}

TEST(Install, OpensTheImageWhereTheScriptCouldNotBearThePath) {
  UpdateDesk desk{UpdateDesk::copyAt("/$HOME/Vellix.app")};
  install(desk);
  EXPECT_EQ(desk.updater->phase(), (Updater::Phase{Kind::failed, kNotWritable}));
  EXPECT_THAT(desk.asked, Not(Contains(StartsWith("write "))));
}

TEST(Install, RemovesNoProgramUnderAnotherSpellingOfItsName) {
  for (const auto& [bundle, current] :
       {std::pair{"/Applications/vellix.app", "/Applications/vellix.app"},
        std::pair{"/Applications/Vellix.app/", "/Applications/Vellix.app"}}) {
    UpdateDesk desk{UpdateDesk::copyAt(bundle)};
    install(desk);
    EXPECT_EQ(desk.files.written["/caches/SorelUpdate/swap.sh"],
              swapScript({.process = 4242,
                          .current = current,
                          .target = current,
                          .fresh = "/caches/SorelUpdate/Vellix.app"}));
  }
}

TEST(Install, DoesNotRunFromWhatTheScriptRemovesFirst) {
  UpdateDesk desk{UpdateDesk::copyAt("/Applications/Vellix.app.old")};
  install(desk);
  EXPECT_EQ(desk.updater->phase(), (Updater::Phase{Kind::failed, kNotWritable}));
  EXPECT_THAT(desk.asked, Not(Contains(StartsWith("write "))));
}

TEST(Install, LetsAnImageGoThatWasLeftMounted) {
  UpdateDesk desk;
  desk.files.leftAttached = true;
  install(desk);
  auto whole = kWhole;
  whole.insert(whole.begin() + 1, "/usr/bin/hdiutil detach /caches/SorelUpdate/mnt -force");
  EXPECT_THAT(desk.asked, ElementsAreArray(whole));
}

TEST(Install, LetsTheImageGoWhenTheProgramEnds) {
  UpdateDesk desk;
  desk.tools.hanging = {"/usr/bin/codesign --verify"};
  install(desk);
  desk.updater.reset();
  EXPECT_EQ(desk.asked.back(), "let go: /usr/bin/hdiutil detach /caches/SorelUpdate/mnt -force");
}

TEST(Install, WaitsForNoToolWithoutEnd) {
  UpdateDesk desk;
  install(desk);
  EXPECT_THAT(desk.tools.deadlines, testing::Each(Milliseconds{180'000}));
}

TEST(Install, NeverSendsTheSessionsTokenAlong) {
  UpdateDesk desk;
  desk.api.setToken("abc");
  install(desk);
  const auto& exchange = desk.http.exchanges.back();
  EXPECT_EQ(exchange.request.url, "https://pages.tessarine.example/Vellix.dmg");
  EXPECT_FALSE(exchange.has("Authorization"));
  EXPECT_EQ(exchange.request.lane, HttpLane::transfers);
}

TEST(Install, GivesADownloadTenMinutes) {
  UpdateDesk desk;
  desk.learn(UpdateDesk::build42());
  desk.http.automatic = nullptr;
  desk.updater->install();
  desk.settle();
  desk.time.advance(Milliseconds{599'999});
  EXPECT_EQ(desk.updater->phase().kind, Kind::working);
  desk.time.advance(Milliseconds{1});
  desk.settle();
  EXPECT_EQ(desk.updater->phase(), (Updater::Phase{Kind::failed, kUnfinished}));
}

TEST(Install, TakesNoMoreThanAnImageMayBe) {
  UpdateDesk desk;
  desk.learn(UpdateDesk::build42());
  desk.http.automatic = nullptr;
  desk.updater->install();
  desk.settle();
  const auto& sink = desk.http.exchanges.back().request.sink;
  const std::string megabyte(1 << 20, 'x');
  for (int count = 0; count < 256; ++count) ASSERT_TRUE(sink->write(megabyte));
  EXPECT_FALSE(sink->write("x"));
}

TEST(Install, IsForgottenOnceThereIsNothingNewer) {
  UpdateDesk desk;
  desk.image = answerOf(404);
  install(desk);
  EXPECT_EQ(desk.updater->phase().kind, Kind::failed);
  auto taken = UpdateDesk::build42();
  taken.build = 41;
  desk.learn(taken);
  EXPECT_EQ(desk.updater->phase(), Updater::Phase{});
}

TEST(Install, OffersNothingThatWasTakenBackMeanwhile) {
  UpdateDesk desk;
  desk.tools.hanging = {"/usr/bin/hdiutil attach"};
  install(desk);
  desk.updater->latest.set(std::nullopt);
  desk.tools.end(ToolExit{.status = 1, .output = {}});
  desk.settle();
  EXPECT_EQ(desk.updater->phase(), Updater::Phase{});
}

TEST(Install, ForgetsAPageThatCouldNotBeOpenedOnceItCould) {
  auto copy = UpdateDesk::copyAt("/Applications/Vellix.app");
  copy.identifier = std::nullopt;
  UpdateDesk desk{copy};
  desk.opener.works = false;
  install(desk);
  desk.opener.works = true;
  desk.updater->install();
  EXPECT_EQ(desk.updater->phase(), Updater::Phase{});
}

TEST(Install, KeepsWhatFailedWhileThereIsSomethingNewer) {
  UpdateDesk desk;
  desk.image = answerOf(404);
  install(desk);
  auto next = UpdateDesk::build42();
  next.build = 43;
  desk.learn(next);
  EXPECT_EQ(desk.updater->phase(), (Updater::Phase{Kind::failed, kNoAnswer}));
  desk.image = answerOf(200);
  holds("43")(desk);
  desk.updater->install();
  desk.settle();
  EXPECT_EQ(desk.defaults.onDisk["UpdateTried"], "43");
  EXPECT_EQ(desk.asked.back(), "terminate");
}

}  // namespace
}  // namespace vellix
