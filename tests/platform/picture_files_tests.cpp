#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>

#include "platform/qt/QtPictureFiles.hpp"

namespace vellix {
namespace {

class QtPictureFilesTest : public testing::Test {
 protected:
  QString at(const QString& name) const { return folder_.filePath(name); }
  static QByteArray content(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
  }
  QStringList everything() const {
    return QDir(folder_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
  }

  QTemporaryDir folder_;
  std::string cache_ = at("a/b/img").toStdString();
};

TEST_F(QtPictureFilesTest, FindsWhatItWrote) {
  QtPictureFiles files(cache_);
  const std::string bytes("\xFF\xD8\0\n\r\xFF", 6);
  EXPECT_EQ(files.find("k_1.jpg"), "");
  const std::string path = files.write("k_1.jpg", bytes);
  EXPECT_EQ(path, cache_ + "/k_1.jpg");
  EXPECT_EQ(files.find("k_1.jpg"), path);
  EXPECT_EQ(content(QString::fromStdString(path)).toStdString(), bytes);
  EXPECT_EQ(QtPictureFiles(cache_).find("k_1.jpg"), path);
  EXPECT_EQ(files.write("k_1.jpg", "new"), path);
  EXPECT_EQ(content(QString::fromStdString(path)), "new");
  EXPECT_EQ(QDir(at("a/b/img")).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST_F(QtPictureFilesTest, NamesFromOutsideAreNoPaths) {
  QtPictureFiles files(cache_);
  QFile secret(at("a/b/secret"));
  ASSERT_TRUE(secret.open(QIODevice::WriteOnly));
  secret.close();
  const std::string names[] = {"",
                               ".",
                               "..",
                               "../secret",
                               "a/b",
                               "/etc/passwd",
                               "..\\secret",
                               std::string("a\0b", 3),
                               "a\nb",
                               "a\x7f",
                               "bad\xFF\xFEutf8",
                               std::string(256, 'n'),
                               std::string(100'000, 'n')};
  for (const auto& name : names) {
    EXPECT_EQ(files.find(name), "") << name;
    EXPECT_EQ(files.write(name, "x"), "") << name;
  }
  EXPECT_EQ(content(at("a/b/secret")), "");
  EXPECT_EQ(everything(), QStringList{"a"});
  EXPECT_EQ(QDir(at("a/b")).entryList(QDir::Files), QStringList{"secret"});
  EXPECT_TRUE(QDir(at("a/b/img")).isEmpty());
}

TEST_F(QtPictureFilesTest, OddButPlainNamesWork) {
  QtPictureFiles files(cache_);
  for (const std::string name : {"...", "a b", "h\xC3\xA9.png", "-rf", "%2e%2e", "~"}) {
    EXPECT_NE(files.write(name, name), "") << name;
    EXPECT_NE(files.find(name), "") << name;
  }
}

TEST_F(QtPictureFilesTest, FollowsNoSymbolicLink) {
  QtPictureFiles files(cache_);
  QFile target(at("target"));
  ASSERT_TRUE(target.open(QIODevice::WriteOnly));
  target.write("old");
  target.close();
  ASSERT_TRUE(QFile::link(at("target"), at("a/b/img/link")));
  ASSERT_TRUE(QFile::link(at("nowhere"), at("a/b/img/dangling")));
  for (const char* name : {"link", "dangling"}) {
    EXPECT_EQ(files.find(name), "");
    EXPECT_EQ(files.write(name, "new"), "");
  }
  EXPECT_EQ(content(at("target")), "old");
  EXPECT_FALSE(QFile::exists(at("nowhere")));
}

TEST_F(QtPictureFilesTest, AFolderOfThatNameIsNoPicture) {
  QtPictureFiles files(cache_);
  ASSERT_TRUE(QDir(at("a/b/img")).mkdir("folder"));
  EXPECT_EQ(files.find("folder"), "");
  EXPECT_EQ(files.write("folder", "x"), "");
}

TEST_F(QtPictureFilesTest, WithoutAFolderNothingIsWritten) {
  QFile block(at("block"));
  ASSERT_TRUE(block.open(QIODevice::WriteOnly));
  QtPictureFiles files(at("block/img").toStdString());
  EXPECT_EQ(files.find("k"), "");
  EXPECT_EQ(files.write("k", "x"), "");
}

TEST_F(QtPictureFilesTest, AShortWriteKeepsTheOldFile) {
  QtPictureFiles files(cache_);
  ASSERT_NE(files.write("k", "old and good"), "");
  rlimit before{};
  ::getrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{100'000, before.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &small);
  const auto path = files.write("k", std::string(1'000'000, 'x'));
  ::setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(path, "");
  EXPECT_EQ(content(QString::fromStdString(cache_) + "/k"), "old and good");
  EXPECT_EQ(QDir(at("a/b/img")).entryList(QDir::Files | QDir::Hidden), QStringList{"k"});
}

}  // namespace
}  // namespace vellix
