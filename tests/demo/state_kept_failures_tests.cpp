// What keeping must stand: crashes in the middle, a second service, damage, and a disk that is
// full.
#include <sys/resource.h>
#include <sys/stat.h>

#include <atomic>
#include <csignal>

#include "kept_service.hpp"

namespace vellix::demo_tests {
namespace {

namespace fs = std::filesystem;

class KeptThrough : public KeptService {
 protected:
  bool noted(const FileDetail& detail, const std::string& text) const {
    return std::ranges::count(detail.comments, text, &Note::text) == 1;
  }
  httplib::Result note(const std::string& text) {
    return post("/api/comments", R"({"file_id":"salt-text","text":")" + text + "\"}");
  }
};

TEST_F(KeptThrough, ACrashInTheMiddleOfManyActions) {
  std::set<std::string> answered;
  int number = 0;
  for (const int ms : {15, 40, 90, 160, 300}) {
    std::atomic<bool> fell = false;
    std::thread crash([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(ms));
      ::kill(running_->pid(), SIGKILL);
      fell = true;
    });
    while (!fell) {
      const std::string text = "Note " + std::to_string(number++);
      if (statusOf(note(text)) == 200) answered.insert(text);
    }
    crash.join();
    restart();
    const FileDetail now = detail("salt-text");
    for (const std::string& text : answered) EXPECT_TRUE(noted(now, text)) << text;
  }
  EXPECT_GT(answered.size(), 10U);
}

TEST_F(KeptThrough, ASecondServiceThatWantsTheSameFolder) {
  const Ended second = endOf(arguments("0"));
  EXPECT_EQ(second.status, 1);
  EXPECT_NE(second.said.find("Another service keeps its board in " + folder()), std::string::npos)
      << second.said;
  EXPECT_EQ(statusOf(note("Still here")), 200);
}

TEST_F(KeptThrough, DamageWithAWordAndWithoutAByteWritten) {
  ASSERT_EQ(statusOf(note("Before")), 200);
  running_->kill();
  fs::remove(folder() + "/board.db-wal");
  fill(folder() + "/board.db", "This is not what was kept.");
  const Ended ended = endOf(arguments("0"));
  EXPECT_EQ(ended.status, 1);
  EXPECT_NE(ended.said.find("board.db is damaged, or no database at all. It was left as it is."),
            std::string::npos)
      << ended.said;
  EXPECT_EQ(contentOf(folder() + "/board.db"), "This is not what was kept.");
}

TEST_F(KeptThrough, AFolderThatCannotBeWritten) {
  running_->kill();
  const std::string closed = sandbox_ / "closed";
  ASSERT_EQ(mkdir(closed.c_str(), 0555), 0);
  // Nothing is closed to root.
  const auto asNobody = [] {
    if (geteuid() == 0 &&
        (setgroups(0, nullptr) != 0 || setgid(65534) != 0 || setuid(65534) != 0)) {
      _exit(126);
    }
  };
  chmod(fs::path(closed).parent_path().c_str(), 0755);
  const Ended ended = endOf({"--state", closed}, asNobody);
  EXPECT_EQ(ended.status, 1);
  EXPECT_NE(ended.said.find("Nothing can be written into " + closed), std::string::npos)
      << ended.said;
  EXPECT_TRUE(fs::is_empty(closed));
  const Ended none = endOf({"--state", closed + "/deeper"}, asNobody);
  EXPECT_EQ(none.status, 1);
  EXPECT_NE(none.said.find("cannot be made: "), std::string::npos) << none.said;
}

// A bound on the size of files does what a full disk does, for the service alone.
TEST_F(KeptThrough, ADiskThatIsFullForAWhile) {
  restart([] { signal(SIGXFSZ, SIG_IGN); });
  ASSERT_EQ(statusOf(note("Before")), 200);
  rlimit tight{};
  ASSERT_EQ(prlimit(running_->pid(), RLIMIT_FSIZE, nullptr, &tight), 0);
  const rlim_t most = tight.rlim_cur;
  tight.rlim_cur = fs::file_size(folder() + "/board.db-wal") + 100;
  ASSERT_EQ(prlimit(running_->pid(), RLIMIT_FSIZE, &tight, nullptr), 0);
  const auto first = note("In between");
  ASSERT_EQ(statusOf(first), 500);
  EXPECT_NE(first->body.find("That is done, but it is lost when the service ends. "),
            std::string::npos)
      << first->body;
  const auto second = note("Refused");
  ASSERT_EQ(statusOf(second), 500);
  EXPECT_NE(second->body.find("Nothing was changed, since it could not be kept. "),
            std::string::npos)
      << second->body;
  EXPECT_TRUE(noted(detail("salt-text"), "In between")) << "reading goes on";
  EXPECT_FALSE(noted(detail("salt-text"), "Refused"));
  tight.rlim_cur = most;
  ASSERT_EQ(prlimit(running_->pid(), RLIMIT_FSIZE, &tight, nullptr), 0);
  EXPECT_EQ(statusOf(note("After")), 200);
  restart();
  const FileDetail now = detail("salt-text");
  EXPECT_TRUE(noted(now, "In between")) << "there was room again in time";
  EXPECT_FALSE(noted(now, "Refused"));
  EXPECT_TRUE(noted(now, "After"));
}

TEST_F(KeptThrough, NothingOfItLiesOutsideItsFolder) {
  const std::string outside = sandbox_ / "outside";
  ASSERT_EQ(mkdir(outside.c_str(), 0700), 0);
  restart([&] {
    for (const char* name : {"HOME", "TMPDIR", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME",
                             "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "SQLITE_TMPDIR"}) {
      setenv(name, outside.c_str(), 1);
    }
    if (chdir(outside.c_str()) != 0) _exit(126);
  });
  ASSERT_EQ(statusOf(put("bread-text", writtenPdf({pageSaying("Salt")}))), 200);
  ASSERT_TRUE(checked("bread-text"));
  EXPECT_EQ(textOf("/api/blob/files/bread-text/v2/p001.jpg").substr(0, 2), "\xFF\xD8");
  ASSERT_EQ(statusOf(post("/api/jobs", R"({"kind":"report","file_ids":["bread-text"]})")), 200);
  ASSERT_TRUE(eventually([](const BoardState& now) { return now.reports.size() == 2; }));
  ASSERT_EQ(statusOf(note("Here")), 200);
  std::set<std::string> there;
  for (const auto& entry : fs::recursive_directory_iterator(outside)) there.insert(entry.path());
  // The fonts' own cache is not the service's.
  std::erase_if(there, [&](const std::string& path) {
    return path.starts_with(outside + "/fontconfig") || path.starts_with(outside + "/mesa");
  });
  EXPECT_EQ(there, std::set<std::string>{});
}

TEST_F(KeptThrough, NothingOfItStaysOfAServiceWithoutAFolder) {
  const RunningService other;
  EXPECT_EQ(statusOf(Elsewhere(other.port(), token_).get("/api/state")), 401)
      << "it knows no token of this one";
}

TEST_F(KeptThrough, WhatTestsAskBesideTheContract) {
  restart();
  EXPECT_EQ(textOf("/demo/log"), "[]");
  EXPECT_EQ(statusOf(get("/api/state")), 200);
  EXPECT_NE(textOf("/demo/log").find("/api/state"), std::string::npos);
  EXPECT_EQ(statusOf(post("/demo/colleague", R"({"file_id":"salt-text","text":"Seen"})")), 200);
  restart();
  EXPECT_TRUE(noted(detail("salt-text"), "Seen"));
}

}  // namespace
}  // namespace vellix::demo_tests
