#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/linux/FileTokenStore.hpp"
#include "platform/waiting.hpp"

namespace vellix {
namespace {

class FileTokenStoreTest : public testing::Test {
 protected:
  static mode_t modeOf(const std::string& path) {
    struct stat facts{};
    return ::lstat(path.c_str(), &facts) == 0 ? facts.st_mode : 0;
  }
  static std::string content(const std::string& path) {
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(none)";
  }
  void put(const std::string& bytes) const {
    QDir().mkpath(folder_.filePath("vellix"));
    QFile file(QString::fromStdString(path_));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes.data(), qint64(bytes.size())), qint64(bytes.size()));
  }
  QStringList files() const {
    return QDir(folder_.filePath("vellix"))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  }

  QTemporaryDir folder_;
  std::string path_ = folder_.filePath("vellix/session").toStdString();
};

TEST_F(FileTokenStoreTest, HoldsTheTokenAloneForTheOwnerAlone) {
  FileTokenStore store(path_);
  const mode_t before = ::umask(0);
  store.add("t0ken");
  ::umask(before);
  EXPECT_EQ(content(path_), "t0ken");
  EXPECT_EQ(modeOf(path_), mode_t(S_IFREG | 0600));
  EXPECT_EQ(files(), QStringList{"session"});
  store.add("other");
  EXPECT_EQ(content(path_), "other");
  EXPECT_EQ(files(), QStringList{"session"});
  EXPECT_TRUE(await(store.settled()).has_value());
}

TEST_F(FileTokenStoreTest, NarrowsAFileThatOthersCouldRead) {
  put("t0ken\n");
  ::chmod(path_.c_str(), 0644);
  EXPECT_EQ(FileTokenStore(path_).read(), "t0ken");
  EXPECT_EQ(modeOf(path_), mode_t(S_IFREG | 0600));
}

TEST_F(FileTokenStoreTest, ADamagedFileReadsAsNone) {
  for (const std::string& bytes :
       {std::string(), std::string("\n"), std::string("two words"), std::string("a\nb"),
        std::string("a\0b", 3), std::string("\xFF\xFE"), std::string(1'000'000, 'x')}) {
    put(bytes);
    FileTokenStore store(path_);
    EXPECT_EQ(store.read(), std::nullopt) << bytes.substr(0, 20);
    store.add("good");
    EXPECT_EQ(FileTokenStore(path_).read(), "good");
  }
}

TEST_F(FileTokenStoreTest, FollowsNoSymbolicLink) {
  QFile target(folder_.filePath("target"));
  ASSERT_TRUE(target.open(QIODevice::WriteOnly));
  target.write("elsewhere");
  target.close();
  QDir().mkpath(folder_.filePath("vellix"));
  ASSERT_TRUE(QFile::link(target.fileName(), QString::fromStdString(path_)));
  ASSERT_TRUE(QFile::link(target.fileName(), QString::fromStdString(path_ + ".new")));
  FileTokenStore store(path_);
  EXPECT_EQ(store.read(), std::nullopt);
  store.add("t0ken");
  EXPECT_EQ(content(target.fileName().toStdString()), "elsewhere");
  EXPECT_EQ(modeOf(path_), mode_t(S_IFREG | 0600));
  EXPECT_EQ(FileTokenStore(path_).read(), "t0ken");
}

TEST_F(FileTokenStoreTest, WhereNothingCanBeWrittenItLastsForTheRun) {
  QFile block(folder_.filePath("block"));
  ASSERT_TRUE(block.open(QIODevice::WriteOnly));
  const auto path = folder_.filePath("block/vellix/session").toStdString();
  FileTokenStore store(path);
  store.add("t0ken");
  EXPECT_EQ(store.read(), "t0ken");
  EXPECT_EQ(FileTokenStore(path).read(), std::nullopt);
  store.remove();
  EXPECT_EQ(store.read(), std::nullopt);
}

TEST_F(FileTokenStoreTest, APipeInItsPlaceDoesNotHangTheStart) {
  QDir().mkpath(folder_.filePath("vellix"));
  ASSERT_EQ(::mkfifo(path_.c_str(), 0600), 0);
  FileTokenStore store(path_);
  EXPECT_EQ(store.read(), std::nullopt);
  store.add("t0ken");
  EXPECT_EQ(FileTokenStore(path_).read(), "t0ken");
}

}  // namespace
}  // namespace vellix
