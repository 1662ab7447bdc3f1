// The stage and what comes into it, in a real folder of caches.
#include "platform/qt/QtUpdateFiles.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/WithoutCalls.hpp"
#include "platform/qt/ArrivingUpdate.hpp"
#include "platform/qt/renew_folder.hpp"
#include "platform/waiting.hpp"

namespace vellix {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using Text = std::optional<std::string>;

class UpdateFilesTest : public testing::Test {
 protected:
  void SetUp() override {
    before_ = qgetenv("XDG_CACHE_HOME");
    qputenv("XDG_CACHE_HOME", QByteArray::fromStdString(caches().string()));
    fs::create_directory(caches());
  }
  void TearDown() override {
    before_.isNull() ? qunsetenv("XDG_CACHE_HOME") : qputenv("XDG_CACHE_HOME", before_);
  }
  fs::path root() const { return root_.path().toStdString(); }
  fs::path caches() const { return root() / "caches"; }
  fs::path stage() const { return caches() / "SorelUpdate"; }

  static void put(const fs::path& path, const std::string& bytes) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
  }
  static std::string bytesOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static std::vector<std::string> all(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& each : fs::directory_iterator(folder)) {
      names.push_back(each.path().filename());
    }
    std::ranges::sort(names);
    return names;
  }
  template <class T>
  static T value(const Pending<T>& pending) {
    EXPECT_FALSE(pending.resolved()) << "only in a later turn";
    const auto got = await(pending);
    EXPECT_TRUE(got) << "no answer in time";
    return got.value_or(T{});
  }
  bool arrives(const std::string& bytes, const std::string& name) {
    const auto file = files_.begin();
    EXPECT_TRUE(file->write(bytes));
    return value(files_.putIntoStage(file, name));
  }
  bool givesFilesNoName() const {
    const int file = ::open(caches().c_str(), O_TMPFILE | O_RDWR, 0600);
    if (file >= 0) ::close(file);
    return file >= 0;
  }

  QtUpdateFiles files_{
      [](const std::string& path, const std::string& key) -> Text { return path + ':' + key; }};

 private:
  QTemporaryDir root_;
  QByteArray before_;
};

TEST_F(UpdateFilesTest, LieInTheFolderOfCaches) {
  EXPECT_EQ(files_.stage(), stage().string());
  EXPECT_EQ(files_.temporaryFolder(), fs::temp_directory_path().string());
  EXPECT_THAT(all(caches()), IsEmpty());
}

TEST_F(UpdateFilesTest, AreStagedUnderTheirName) {
  ASSERT_TRUE(value(files_.renewStage()));
  const std::string large(3'000'000, 'x');
  EXPECT_TRUE(arrives("image", "Vellix.dmg"));
  EXPECT_TRUE(arrives(large, "large"));
  EXPECT_TRUE(value(files_.putIntoStage(files_.begin(), "empty")));
  EXPECT_THAT(all(stage()), ElementsAre("Vellix.dmg", "empty", "large"));
  EXPECT_EQ(bytesOf(stage() / "Vellix.dmg"), "image");
  EXPECT_EQ(bytesOf(stage() / "large"), large);
  EXPECT_EQ(bytesOf(stage() / "empty"), "");
  EXPECT_THAT(all(caches()), ElementsAre("SorelUpdate"));
}

TEST_F(UpdateFilesTest, ComeBeforeTheStageIsRenewed) {
  put(stage() / "Vellix.dmg", "of the last time");
  const auto file = files_.begin();
  ASSERT_TRUE(file->write("im"));
  ASSERT_TRUE(file->write("age"));
  EXPECT_EQ(bytesOf(stage() / "Vellix.dmg"), "of the last time");
  ASSERT_TRUE(value(files_.renewStage()));
  EXPECT_THAT(all(stage()), IsEmpty());
  EXPECT_TRUE(value(files_.putIntoStage(file, "Vellix.dmg")));
  EXPECT_EQ(bytesOf(stage() / "Vellix.dmg"), "image");
}

TEST_F(UpdateFilesTest, MakeTheFolderOfCachesThatNobodyHasMadeYet) {
  fs::remove(caches());
  const auto file = files_.begin();
  EXPECT_FALSE(fs::exists(caches())) << "not before there is something";
  ASSERT_TRUE(file->write("image"));
  fs::remove_all(caches());
  ASSERT_TRUE(value(files_.renewStage()));
  EXPECT_TRUE(fs::is_directory(stage()));
}

TEST_F(UpdateFilesTest, LeaveNothingOfWhatIsNotStaged) {
  {
    const auto file = files_.begin();
    ASSERT_TRUE(file->write("half"));
    if (givesFilesNoName()) {
      EXPECT_THAT(all(caches()), IsEmpty());
    }
  }
  EXPECT_THAT(all(caches()), IsEmpty());
}

TEST_F(UpdateFilesTest, LeaveNothingOfAProgramThatIsKilled) {
  if (!givesFilesNoName()) GTEST_SKIP() << "this file system names every file";
  const pid_t child = ::fork();
  if (child == 0) {
    ArrivingUpdate file(caches().string());
    file.write("half");
    ::kill(::getpid(), SIGKILL);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_THAT(all(caches()), IsEmpty());
}

TEST_F(UpdateFilesTest, AreThePersonsAlone) {
  const mode_t before = ::umask(0);
  const bool staged = value(files_.renewStage()) && arrives("image", "Vellix.dmg");
  ::umask(before);
  ASSERT_TRUE(staged);
  EXPECT_EQ(fs::status(stage()).permissions(), fs::perms::owner_all);
  EXPECT_EQ(fs::status(stage() / "Vellix.dmg").permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(UpdateFilesTest, GoOnlyUnderASingleName) {
  ASSERT_TRUE(value(files_.renewStage()));
  for (const auto& name :
       {std::string("../out"), std::string("a/b"), std::string("/tmp/out"), std::string("."),
        std::string(".."), std::string(), std::string("a\0b", 3), std::string(300, 'n')}) {
    EXPECT_FALSE(arrives("image", name)) << name;
  }
  EXPECT_THAT(all(stage()), IsEmpty());
  EXPECT_THAT(all(caches()), ElementsAre("SorelUpdate"));
}

TEST_F(UpdateFilesTest, NeedAStage) {
  EXPECT_FALSE(arrives("image", "Vellix.dmg"));
  EXPECT_THAT(all(caches()), IsEmpty());
}

TEST_F(UpdateFilesTest, NeedAFolderOfCaches) {
  fs::remove(caches());
  put(caches(), "a file");
  EXPECT_FALSE(files_.begin()->write("image"));
  EXPECT_FALSE(value(files_.putIntoStage(files_.begin(), "Vellix.dmg")));
  EXPECT_FALSE(value(files_.renewStage()));
  EXPECT_EQ(bytesOf(caches()), "a file");
}

TEST_F(UpdateFilesTest, ReplaceALinkAndNotWhatItLeadsTo) {
  ASSERT_TRUE(value(files_.renewStage()));
  put(root() / "mine", "mine");
  fs::create_symlink(root() / "mine", stage() / "Vellix.dmg");
  EXPECT_TRUE(arrives("image", "Vellix.dmg"));
  EXPECT_EQ(bytesOf(root() / "mine"), "mine");
  EXPECT_FALSE(fs::is_symlink(stage() / "Vellix.dmg"));
  EXPECT_EQ(bytesOf(stage() / "Vellix.dmg"), "image");
}

TEST_F(UpdateFilesTest, AreNotStagedFromADiskThatFails) {
  ASSERT_TRUE(value(files_.renewStage()));
  const auto target = (stage() / "Vellix.dmg").string();
  for (const std::vector<long>& calls :
       {std::vector<long>{SYS_fsync}, {SYS_rename, SYS_renameat, SYS_renameat2}}) {
    ArrivingUpdate file(caches().string());
    ASSERT_TRUE(file.write("image"));
    bool named = true;
    ASSERT_TRUE(withoutCalls(calls, EIO, [&] { named = file.nameAs(target); }));
    EXPECT_FALSE(named);
  }
  bool written = true;
  ASSERT_TRUE(withoutCalls({SYS_write, SYS_pwrite64}, ENOSPC, [&] {
    ArrivingUpdate file(caches().string());
    written = file.write("image") || file.nameAs(target);
  }));
  EXPECT_FALSE(written);
  EXPECT_THAT(all(stage()), IsEmpty());
  EXPECT_THAT(all(caches()), ElementsAre("SorelUpdate"));
}

// What a full disk does: a piece is taken in part, and the next one not at all.
class AFullDisk {
 public:
  explicit AFullDisk(rlim_t bytes) {
    ::signal(SIGXFSZ, SIG_IGN);
    EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &before_), 0);
    const rlimit full{bytes, before_.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &full), 0);
  }
  ~AFullDisk() { EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &before_), 0); }
  AFullDisk(const AFullDisk&) = delete;
  AFullDisk& operator=(const AFullDisk&) = delete;

 private:
  rlimit before_{};
};

TEST_F(UpdateFilesTest, AreNeverStagedInPart) {
  ASSERT_TRUE(value(files_.renewStage()));
  const auto file = files_.begin();
  {
    const AFullDisk disk(1'000'000);
    EXPECT_TRUE(file->write(std::string(900'000, 'x')));
    EXPECT_FALSE(file->write(std::string(900'000, 'x')));
    EXPECT_FALSE(file->write("x"));
  }
  EXPECT_FALSE(file->write("x")) << "even when there is room again";
  EXPECT_FALSE(value(files_.putIntoStage(file, "Vellix.dmg")));
  EXPECT_THAT(all(stage()), IsEmpty());
}

TEST_F(UpdateFilesTest, BeginAnewWhateverIsThere) {
  put(stage() / "mnt" / "Vellix.app" / "Contents" / "Info.plist", "old");
  fs::create_symlink(root() / "nowhere", stage() / "Vellix.app");
  put(stage() / "closed" / "inner" / "file", "x");
  fs::permissions(stage() / "closed" / "inner", fs::perms::none);
  fs::permissions(stage() / "closed", fs::perms::owner_read);
  ASSERT_EQ(::mkfifo((stage() / "pipe").c_str(), 0600), 0);
  EXPECT_TRUE(value(files_.renewStage()));
  EXPECT_THAT(all(stage()), IsEmpty());
  EXPECT_EQ(fs::status(stage()).permissions(), fs::perms::owner_all);
  EXPECT_TRUE(value(files_.renewStage()));
}

TEST_F(UpdateFilesTest, RemoveALinkInTheStagesPlaceAndNotWhatItLeadsTo) {
  put(root() / "mine" / "kept", "mine");
  for (const char* target : {"mine", "mine/kept", "nowhere"}) {
    fs::create_symlink(root() / target, stage());
    EXPECT_TRUE(value(files_.renewStage())) << target;
    EXPECT_TRUE(fs::is_directory(fs::symlink_status(stage()))) << target;
    EXPECT_EQ(bytesOf(root() / "mine" / "kept"), "mine");
    fs::remove(stage());
  }
  EXPECT_FALSE(fs::exists(root() / "nowhere"));
  put(stage(), "a file");
  EXPECT_TRUE(value(files_.renewStage()));
  EXPECT_TRUE(fs::is_directory(stage()));
}

TEST_F(UpdateFilesTest, RemoveLinksInTheStageAndNotWhatTheyLeadTo) {
  put(root() / "mine" / "kept", "mine");
  fs::create_directory(stage());
  fs::create_directory_symlink(root() / "mine", stage() / "Vellix.app");
  EXPECT_TRUE(value(files_.renewStage()));
  EXPECT_EQ(bytesOf(root() / "mine" / "kept"), "mine");
}

TEST_F(UpdateFilesTest, RemoveAsMuchAsCanBe) {
  put(stage() / "a" / "goes", "x");
  put(stage() / "b" / "goes", "x");
  put(stage() / "Vellix.dmg", "of the last time");
  // As those folders are that an image is still mounted in.
  bool renewed = false;
  ASSERT_TRUE(withoutCalls({SYS_rmdir}, EBUSY, [&] { renewed = renewFolder(stage().string()); }));
  EXPECT_TRUE(renewed);
  EXPECT_FALSE(fs::exists(stage() / "Vellix.dmg"));
  EXPECT_FALSE(fs::exists(stage() / "a" / "goes"));
  EXPECT_FALSE(fs::exists(stage() / "b" / "goes"));
}

TEST_F(UpdateFilesTest, KnowWhetherThereIsRoom) {
  const auto room = [&](std::int64_t bytes) { return value(files_.hasRoomFor(bytes)); };
  EXPECT_TRUE(room(0));
  EXPECT_TRUE(room(1));
  EXPECT_FALSE(room(std::numeric_limits<std::int64_t>::max()));
  // The folder that is there tells for those that will be made in it.
  qputenv("XDG_CACHE_HOME", QByteArray::fromStdString((caches() / "not" / "yet").string()));
  EXPECT_TRUE(room(1));
  EXPECT_FALSE(room(std::numeric_limits<std::int64_t>::max()));
  EXPECT_FALSE(fs::exists(caches() / "not"));
  const auto there = fs::space(caches()).available;
  EXPECT_FALSE(room(static_cast<std::int64_t>(there) * 2));
  qputenv("XDG_CACHE_HOME", "/proc");
  EXPECT_FALSE(room(1)) << "nothing is kept there";
}

TEST_F(UpdateFilesTest, AreThereOrNot) {
  put(root() / "file", "x");
  fs::create_symlink(root() / "file", root() / "link");
  fs::create_symlink(root() / "nowhere", root() / "torn");
  EXPECT_TRUE(value(files_.exists((root() / "file").string())));
  EXPECT_TRUE(value(files_.exists(root().string())));
  EXPECT_TRUE(value(files_.exists((root() / "link").string())));
  EXPECT_FALSE(value(files_.exists((root() / "torn").string())));
  EXPECT_FALSE(value(files_.exists((root() / "file" / "below").string())));
  EXPECT_FALSE(value(files_.exists("")));
}

TEST_F(UpdateFilesTest, HaveListsReadWhereOneMayWait) {
  std::thread::id where;
  QtUpdateFiles files([&where](const std::string& path, const std::string& key) -> Text {
    where = std::this_thread::get_id();
    return path == "/list" && key == "Key" ? Text{"text"} : std::nullopt;
  });
  EXPECT_EQ(value(files.textIn("/list", "Key")), "text");
  EXPECT_NE(where, std::this_thread::get_id());
  EXPECT_EQ(value(files.textIn("/list", "Other")), std::nullopt);
}

TEST_F(UpdateFilesTest, AreWritableOrNot) {
  put(root() / "file", "x");
  EXPECT_TRUE(files_.isWritable((root() / "file").string()));
  EXPECT_TRUE(files_.isWritable(root().string()));
  EXPECT_FALSE(files_.isWritable((root() / "nothing").string()));
  EXPECT_FALSE(files_.isWritable(""));
  fs::permissions(root() / "file", fs::perms::owner_read);
  // To the superuser only what lies where nothing can be written is closed.
  EXPECT_EQ(files_.isWritable((root() / "file").string()), ::geteuid() == 0);
}

TEST_F(UpdateFilesTest, AreWrittenWhole) {
  const auto path = root() / "swap.sh";
  for (const auto& text : {std::string("#!/bin/sh\nexit 0"), std::string(300'000, 'x'),
                           std::string(), std::string("short")}) {
    EXPECT_TRUE(files_.write(path.string(), text));
    EXPECT_EQ(bytesOf(path), text);
    EXPECT_THAT(all(root()), ElementsAre("caches", "swap.sh"));
  }
}

TEST_F(UpdateFilesTest, AreNotWrittenWhereTheyCannotBe) {
  fs::create_directories(root() / "folder" / "full");
  put(root() / "file", "x");
  for (const auto& path : {root() / "folder", root() / "file" / "below", root() / "no" / "file"}) {
    EXPECT_FALSE(files_.write(path.string(), "text")) << path;
  }
  EXPECT_FALSE(files_.write("", "text"));
  EXPECT_FALSE(files_.write("/proc/file", "text"));
  EXPECT_THAT(all(root()), ElementsAre("caches", "file", "folder"));
  EXPECT_THAT(all(root() / "folder"), ElementsAre("full"));
}

TEST_F(UpdateFilesTest, AreNeverWrittenThroughALink) {
  put(root() / "mine", "mine");
  for (const char* target : {"mine", "nowhere"}) {
    fs::create_symlink(root() / target, root() / "swap.sh");
    EXPECT_TRUE(files_.write((root() / "swap.sh").string(), "script"));
    EXPECT_FALSE(fs::is_symlink(root() / "swap.sh"));
    EXPECT_EQ(bytesOf(root() / "swap.sh"), "script");
    fs::remove(root() / "swap.sh");
  }
  EXPECT_EQ(bytesOf(root() / "mine"), "mine");
  EXPECT_FALSE(fs::exists(root() / "nowhere"));
}

TEST_F(UpdateFilesTest, StayAsTheyWereWhenTheDiskIsFull) {
  const auto path = root() / "swap.sh";
  ASSERT_TRUE(files_.write(path.string(), "as it was"));
  {
    const AFullDisk disk(1'000);
    EXPECT_FALSE(files_.write(path.string(), std::string(5'000, 'x')));
  }
  EXPECT_EQ(bytesOf(path), "as it was");
  EXPECT_THAT(all(root()), ElementsAre("caches", "swap.sh"));
}

}  // namespace
}  // namespace vellix
