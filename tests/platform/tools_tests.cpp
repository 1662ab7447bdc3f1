// Real tools: what they are given, what comes of them, and that none outlasts its time.
#include "platform/qt/QtTools.hpp"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "platform/waiting.hpp"

namespace vellix {
namespace {

namespace fs = std::filesystem;
using testing::StartsWith;
using namespace std::chrono_literals;

constexpr Milliseconds kLong{60'000};
constexpr Milliseconds kShort{300};

class ToolsTest : public testing::Test {
 protected:
  fs::path at(const std::string& name) const { return fs::path(root_.path().toStdString()) / name; }
  std::string textOf(const std::string& name) const {
    std::ifstream in(at(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  // A script is whole lines, or it is still being written.
  int numberIn(const std::string& name) const {
    const auto text = textOf(name);
    return text.ends_with('\n') ? std::stoi(text) : 0;
  }
  bool comesToNumber(const std::string& name) const {
    return waitUntil([&] { return numberIn(name) > 0; });
  }

  Pending<ToolResult> sh(const std::string& script, Milliseconds longest = kLong) {
    return tools_->run("/bin/sh", {"-c", script, "sh", root_.path().toStdString()}, longest);
  }
  static ToolResult outcome(const Pending<ToolResult>& pending) {
    EXPECT_FALSE(pending.resolved()) << "only in a later turn";
    const auto result = await(pending);
    EXPECT_TRUE(result) << "no end in time";
    return result.value_or(std::unexpected(ToolError::notStarted));
  }
  ToolResult ran(const std::string& script, Milliseconds longest = kLong) {
    return outcome(sh(script, longest));
  }

  std::optional<QtTools> tools_{std::in_place};

 private:
  QTemporaryDir root_;
};

// One that nobody has fetched after its end does not live any more either.
bool lives(int process) {
  std::ifstream in("/proc/" + std::to_string(process) + "/stat");
  const std::string stat{std::istreambuf_iterator<char>(in), {}};
  const auto name = stat.rfind(')');
  return name != std::string::npos && stat[name + 2] != 'Z' && stat[name + 2] != 'X';
}
bool dies(int process) {
  return waitUntil([process] { return !lives(process); });
}

TEST_F(ToolsTest, AreToldWithTheirStatus) {
  for (const int status : {0, 1, 2, 42, 255}) {
    const auto result = ran("exit " + std::to_string(status));
    ASSERT_TRUE(result);
    EXPECT_EQ(result->status, status);
    EXPECT_EQ(result->output, "");
  }
}

TEST_F(ToolsTest, WriteBothStreamsIntoOneTextInOrder) {
  const auto result = ran("echo one; echo two >&2; echo three; echo four >&2; printf 'five\\0'");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->output, std::string("one\ntwo\nthree\nfour\nfive\0", 24));
}

TEST_F(ToolsTest, GetTheirArgumentsAsTheyAre) {
  const std::vector<std::string> odd = {
      "-nobrowse",   "",          "two words",  "it's",
      "\"quoted\"",  "$(exit 1)", "`id`",       "a;b|c&d>e",
      "back\\slash", "new\nline", "*",          "~",
      "%1",          "--",        "Läger 燈台", "\xF0\x9F\x93\x96"};
  std::vector<std::string> arguments = {"-c", R"(for each; do printf '%s\0' "$each"; done)", "sh"};
  arguments.insert(arguments.end(), odd.begin(), odd.end());
  const auto result = outcome(tools_->run("/bin/sh", arguments, kLong));
  ASSERT_TRUE(result);
  std::string expected;
  for (const auto& each : odd) expected += each + '\0';
  EXPECT_EQ(result->output, expected);
}

TEST_F(ToolsTest, ReadNothing) {
  const auto result = ran("cat; readlink /proc/self/fd/0");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->output, "/dev/null\n");
}

TEST_F(ToolsTest, GetTheEnvironmentAsItIs) {
  qputenv("VELLIX_TOLD", "as it is");
  const auto result = ran("printf %s \"$VELLIX_TOLD\"");
  qunsetenv("VELLIX_TOLD");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->output, "as it is");
}

TEST_F(ToolsTest, AreThoseAtTheirPathsAndNoOthers) {
  const QByteArray before = qgetenv("PATH");
  std::ofstream(at("sh")) << "#!/bin/sh\necho redirected\n";
  fs::permissions(at("sh"), fs::perms::owner_all);
  qputenv("PATH", QByteArray::fromStdString(at("").string()));
  const auto there = outcome(tools_->run("/bin/sh", {"-c", "echo real"}, kLong));
  const auto searched = outcome(tools_->run("sh", {"-c", "echo real"}, kLong));
  const bool letGo = tools_->letGo("sh", {"-c", "echo real"});
  qputenv("PATH", before);
  ASSERT_TRUE(there);
  EXPECT_EQ(there->output, "real\n");
  ASSERT_FALSE(searched);
  EXPECT_EQ(searched.error(), ToolError::notStarted);
  EXPECT_FALSE(letGo);
}

TEST_F(ToolsTest, ThatCannotBeStartedAreToldOf) {
  std::ofstream(at("plain")) << "no program";
  std::ofstream(at("torn")) << "#!/nowhere/sh\n";
  fs::permissions(at("torn"), fs::perms::owner_all);
  for (const auto& path : {at("nothing").string(), at("plain").string(), at("torn").string(),
                           at("").string(), std::string(), std::string("/bin/sh\0x", 9)}) {
    const auto result = outcome(tools_->run(path, {}, kLong));
    ASSERT_FALSE(result) << path;
    EXPECT_EQ(result.error(), ToolError::notStarted) << path;
    EXPECT_FALSE(tools_->letGo(path, {})) << path;
  }
}

TEST_F(ToolsTest, AreNotStartedWithArgumentsThatWouldChange) {
  for (const auto& argument : {std::string("a\0b", 3), std::string("\xff\xfe")}) {
    const auto result = outcome(tools_->run("/bin/sh", {"-c", "exit 0", argument}, kLong));
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error(), ToolError::notStarted);
    EXPECT_FALSE(tools_->letGo("/bin/sh", {"-c", "exit 0", argument}));
  }
}

TEST_F(ToolsTest, ThatASignalEndsHaveNotComeToAnEnd) {
  for (const char* signal : {"KILL", "TERM", "SEGV", "PIPE"}) {
    const auto result = ran(std::string("kill -") + signal + " $$; sleep 60");
    ASSERT_FALSE(result) << signal;
    EXPECT_EQ(result.error(), ToolError::ended) << signal;
  }
}

TEST_F(ToolsTest, ThatWriteWithoutEndAreReadAndKeptToABound) {
  const auto result = ran("head -c 5000000 /dev/zero; echo done >&2; exit 3");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->status, 3);
  EXPECT_EQ(result->output.size(), std::size_t{1} << 20);
  const auto endless = ran("exec cat /dev/zero", kShort);
  ASSERT_FALSE(endless);
  EXPECT_EQ(endless.error(), ToolError::ended);
}

TEST_F(ToolsTest, RunSideBySide) {
  const auto waits = sh("while ! [ -e \"$1/go\" ]; do sleep 0.01; done; echo waited");
  const auto result = ran("touch \"$1/go\"; echo went");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->output, "went\n");
  const auto waited = await(waits);
  ASSERT_TRUE(waited && *waited);
  EXPECT_EQ((*waited)->output, "waited\n");
}

TEST_F(ToolsTest, PastTheirTimeAreEnded) {
  const auto result = ran("echo $$ > \"$1/tool\"; exec sleep 600", kShort);
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error(), ToolError::ended);
  EXPECT_TRUE(dies(numberIn("tool")));
}

TEST_F(ToolsTest, ThatTakeNoSignalAreEndedAllTheSame) {
  const auto result =
      ran("trap '' TERM INT HUP; echo $$ > \"$1/tool\"; while :; do sleep 0.05; done", kShort);
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error(), ToolError::ended);
  EXPECT_TRUE(dies(numberIn("tool")));
}

TEST_F(ToolsTest, AreEndedWithAllThatTheyHaveStarted) {
  const auto result =
      ran("(echo $(exec sh -c 'echo $PPID') > \"$1/deep\"; sleep 600) & sleep 600 & "
          "echo $! > \"$1/child\"; wait",
          kShort);
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error(), ToolError::ended);
  ASSERT_GT(numberIn("child"), 0);
  EXPECT_TRUE(dies(numberIn("child")));
  ASSERT_GT(numberIn("deep"), 0);
  EXPECT_TRUE(dies(numberIn("deep")));
}

// Its own session is where nobody reaches it, and it has the tool's pipe.
TEST_F(ToolsTest, AreToldToHaveEndedWhoeverHoldsTheirPipe) {
  const auto result =
      ran("setsid sh -c 'echo $$ > \"$1/away\"; exec sleep 600' sh \"$1\" & sleep 600", kShort);
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error(), ToolError::ended);
  ASSERT_TRUE(comesToNumber("away"));
  ::kill(numberIn("away"), SIGKILL);
}

TEST_F(ToolsTest, MayLeaveAHelperBehindWhenTheyHaveDoneTheirWork) {
  const auto result = ran("sleep 600 & echo $! > \"$1/helper\"; echo attached");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->output, "attached\n");
  EXPECT_TRUE(lives(numberIn("helper")));
  ::kill(numberIn("helper"), SIGKILL);
}

TEST_F(ToolsTest, AreEndedWithTheProgramAndTellNobody) {
  const auto pending = sh("sleep 600 & echo $! > \"$1/child\"; echo $$ > \"$1/tool\"; wait");
  ASSERT_TRUE(comesToNumber("tool"));
  QElapsedTimer clock;
  clock.start();
  tools_.reset();
  EXPECT_LT(clock.elapsed(), 5'000);
  EXPECT_TRUE(dies(numberIn("tool")));
  EXPECT_TRUE(dies(numberIn("child")));
  QCoreApplication::processEvents();
  EXPECT_FALSE(pending.resolved());
}

Task<> endAfter(Pending<ToolResult> pending, std::optional<QtTools>* tools, bool* told) {
  co_await pending;
  tools->reset();
  *told = true;
}

TEST_F(ToolsTest, MayBeLetGoOfByWhoeverHearsOfThem) {
  bool told = false;
  TaskScope scope;
  scope.start(endAfter(sh("exit 0"), &tools_, &told));
  EXPECT_TRUE(waitUntil([&told] { return told; }));
}

TEST_F(ToolsTest, LeaveNoneBehindThatNobodyFetched) {
  ASSERT_TRUE(ran("exit 0"));
  ASSERT_FALSE(ran("sleep 600", kShort));
  ASSERT_TRUE(tools_->letGo("/bin/sh", {"-c", "echo $$ > \"$1/gone\"", "sh", at("").string()}));
  ASSERT_TRUE(comesToNumber("gone"));
  EXPECT_TRUE(dies(numberIn("gone")));
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "children that are nobody's";
}

TEST_F(ToolsTest, LetGoOutliveTheProgramInASessionOfTheirOwn) {
  const std::string script = R"(cd "$1"
told=$(readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2; cut -d' ' -f6 /proc/$$/stat)
echo "$told" > seen; echo lost; echo lost >&2
while ! [ -e go ]; do sleep 0.01; done
echo $$ > done)";
  ASSERT_TRUE(tools_->letGo("/bin/sh", {"-c", script, "sh", at("").string()}));
  tools_.reset();
  EXPECT_EQ(numberIn("done"), 0);
  std::ofstream(at("go")) << "";
  ASSERT_TRUE(comesToNumber("done"));
  const std::string nowhere = "/dev/null\n/dev/null\n/dev/null\n";
  const auto seen = textOf("seen");
  ASSERT_THAT(seen, StartsWith(nowhere));
  EXPECT_NE(std::stoi(seen.substr(nowhere.size())), ::getsid(0));
}

TEST_F(ToolsTest, LetGoGetTheirArgumentsAsTheyAre) {
  std::ofstream(at("it's a $HOME.sh"))
      << "printf '%s\\n' \"$0\" \"$#\" > \"$(dirname \"$0\")/told\"";
  ASSERT_TRUE(tools_->letGo("/bin/sh", {at("it's a $HOME.sh").string()}));
  ASSERT_TRUE(waitUntil([&] { return textOf("told").ends_with("\n0\n"); }));
  EXPECT_EQ(textOf("told"), at("it's a $HOME.sh").string() + "\n0\n");
}

}  // namespace
}  // namespace vellix
