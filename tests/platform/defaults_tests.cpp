#include "platform/qt/QtDefaults.hpp"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>
#include <csignal>

#include "platform/waiting.hpp"
#include "support/words_of_rows.hpp"

namespace vellix {
namespace {

class QtDefaultsTest : public testing::Test {
 protected:
  void write(const QByteArray& bytes) const {
    QFile file(QString::fromStdString(path_));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
  }
  QByteArray content() const {
    QFile file(QString::fromStdString(path_));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir folder_;
  std::string path_ = folder_.filePath("vellix/defaults.ini").toStdString();
};

TEST_F(QtDefaultsTest, NothingIsThereAtFirst) {
  const QtDefaults defaults(path_);
  EXPECT_EQ(defaults.text("ServerURL"), std::nullopt);
  EXPECT_EQ(defaults.flag("LiveToasts"), std::nullopt);
  EXPECT_TRUE(content().isEmpty());
  EXPECT_TRUE(defaults.lasting());
}

TEST_F(QtDefaultsTest, OutlivesTheProcess) {
  const std::vector<std::string> texts = {
      "https://a.example/b?c=d,e;f",   "",         "@x",   "with \"quotes\"", "line\nbreak\ttab",
      "h\xC3\xA9llo \xF0\x9F\x93\x96", " spaces ", "a, b", "%20\\n",          "true"};
  {
    QtDefaults defaults(path_);
    for (std::size_t i = 0; i < texts.size(); ++i) {
      defaults.setText("Text" + std::to_string(i), texts[i]);
      EXPECT_EQ(defaults.text("Text" + std::to_string(i)), texts[i]);
    }
    defaults.setFlag("On", true);
    defaults.setFlag("Off", false);
    EXPECT_EQ(defaults.flag("Off"), false);
  }
  const QtDefaults defaults(path_);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_EQ(defaults.text("Text" + std::to_string(i)), texts[i]);
  }
  EXPECT_EQ(defaults.flag("On"), true);
  EXPECT_EQ(defaults.flag("Off"), false);
}

TEST_F(QtDefaultsTest, IsOnDiskSoonWithoutAnEnd) {
  QtDefaults defaults(path_);
  defaults.setText("ServerURL", "http://localhost:1");
  EXPECT_TRUE(waitUntil([this] { return content().contains("ServerURL=http://localhost:1"); }));
  EXPECT_TRUE(content().startsWith("[General]"));
}

// No turn of the loop and no end: what comes next may be the last of it.
TEST_F(QtDefaultsTest, IsOnDiskOnceItIsWrittenDown) {
  const pid_t program = ::fork();
  if (program == 0) {
    QtDefaults defaults(path_);
    defaults.setText("UpdateTried", "41");
    defaults.writeDown();
    ::kill(::getpid(), SIGKILL);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(program, &status, 0), program);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_TRUE(content().contains("UpdateTried=41\n"));
  EXPECT_EQ(QtDefaults(path_).text("UpdateTried"), "41");
}

TEST_F(QtDefaultsTest, ReadsWhatAPersonWrote) {
  {
    QtDefaults(path_).setFlag("MakesTheFolder", true);
  }
  write(
      "[General]\nServerURL=http://localhost:8080/base\nMineOnly=1\nLiveToasts=false\n"
      "DockBadge=0\nAutoAdvance=true\nShowNotes=maybe\nLastEmail=a@b.example\n");
  const QtDefaults defaults(path_);
  EXPECT_EQ(defaults.text("ServerURL"), "http://localhost:8080/base");
  EXPECT_EQ(defaults.text("LastEmail"), "a@b.example");
  EXPECT_EQ(defaults.flag("MineOnly"), true);
  EXPECT_EQ(defaults.flag("LiveToasts"), false);
  EXPECT_EQ(defaults.flag("DockBadge"), false);
  EXPECT_EQ(defaults.flag("AutoAdvance"), true);
  EXPECT_EQ(defaults.flag("ShowNotes"), false);
  EXPECT_EQ(defaults.flag("OpenLoupe"), std::nullopt);
}

struct FlagCase {
  const char* written;
  bool isOn;
};
BOOST_DESCRIBE_STRUCT(FlagCase, (), (written, isOn))

class WrittenFlags : public QtDefaultsTest, public testing::WithParamInterface<FlagCase> {};

TEST_P(WrittenFlags, AreThereAndOnOnlyWhenTheyReadAsTrue) {
  {
    QtDefaults(path_).setFlag("MakesTheFolder", true);
  }
  write(QByteArray("[General]\nShowNotes=") + GetParam().written + "\n");
  EXPECT_EQ(QtDefaults(path_).flag("ShowNotes"), GetParam().isOn);
}

INSTANTIATE_TEST_SUITE_P(
    All, WrittenFlags,
    testing::Values(FlagCase{"true", true}, FlagCase{"True", true}, FlagCase{"TRUE", true},
                    FlagCase{"1", true}, FlagCase{"yes", true}, FlagCase{"YES", true},
                    FlagCase{"\"yes\"", true}, FlagCase{"2", true}, FlagCase{"-1", true},
                    FlagCase{"0.5", true}, FlagCase{"false", false}, FlagCase{"0", false},
                    FlagCase{"0.0", false}, FlagCase{"-0", false}, FlagCase{"no", false},
                    FlagCase{"maybe", false}, FlagCase{"on", false}, FlagCase{"", false},
                    FlagCase{"truest", false}, FlagCase{"1x", false}, FlagCase{"1, 2", false},
                    FlagCase{"nan", false}, FlagCase{"1e999", false}, FlagCase{"@Invalid()", false},
                    FlagCase{"@ByteArray(true)", true}, FlagCase{"@Variant(garbage", false}));

TEST_F(QtDefaultsTest, ADamagedFileGivesWhatIsReadable) {
  {
    QtDefaults(path_).setFlag("MakesTheFolder", true);
  }
  write(
      QByteArray("[General]\nServerURL=http://localhost\n\x00\xFF\xFE=\x01garbage\n[[[\nno equals\n"
                 "MineOnly=true\nTorn=\"unfin",
                 88));
  {
    QtDefaults defaults(path_);
    EXPECT_EQ(defaults.text("ServerURL"), "http://localhost");
    defaults.setText("Queue", "mine");
    EXPECT_EQ(defaults.text("Queue"), "mine");
  }
  const QtDefaults again(path_);
  EXPECT_EQ(again.text("ServerURL"), "http://localhost");
  EXPECT_EQ(again.text("Queue"), "mine");
}

TEST_F(QtDefaultsTest, GarbageThroughoutDoesNoHarm) {
  {
    QtDefaults(path_).setFlag("MakesTheFolder", true);
  }
  QByteArray garbage;
  for (int i = 0; i < 100'000; ++i) garbage.append(static_cast<char>(i * 7919 >> 3));
  write(garbage);
  QtDefaults defaults(path_);
  EXPECT_EQ(defaults.text("ServerURL"), std::nullopt);
  defaults.setFlag("MineOnly", true);
  EXPECT_EQ(defaults.flag("MineOnly"), true);
}

TEST_F(QtDefaultsTest, WithoutAPlaceToWriteItLastsForTheRun) {
  QFile block(folder_.filePath("block"));
  ASSERT_TRUE(block.open(QIODevice::WriteOnly));
  QtDefaults defaults(folder_.filePath("block/vellix/defaults.ini").toStdString());
  defaults.setText("Queue", "mine");
  defaults.setFlag("MineOnly", true);
  QCoreApplication::processEvents();
  EXPECT_EQ(defaults.text("Queue"), "mine");
  EXPECT_EQ(defaults.flag("MineOnly"), true);
  EXPECT_FALSE(defaults.lasting());
}

}  // namespace
}  // namespace vellix
