#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace vellix {
namespace {

// Every test has a home and, where it wants one, a session bus of its own.
class TokenStoreTest : public testing::Test {
 protected:
  QProcessEnvironment environment() const {
    auto out = QProcessEnvironment::systemEnvironment();
    QDir(home_.path()).mkpath("run");
    QFile::setPermissions(home_.filePath("run"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    out.insert("HOME", home_.path());
    out.insert("XDG_CONFIG_HOME", home_.filePath("config"));
    out.insert("XDG_DATA_HOME", home_.filePath("data"));
    out.insert("XDG_CACHE_HOME", home_.filePath("cache"));
    out.insert("XDG_RUNTIME_DIR", home_.filePath("run"));
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP"}) out.remove(name);
    return out;
  }

  static QStringList run(const QString& program, const QStringList& arguments,
                         const QProcessEnvironment& environment) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
  }

  // What the probe's runs print, one after the other, in one session.
  QStringList inSession(const QString& keyring, const QStringList& runs) const {
    QStringList arguments = {"--", KEYRING_SESSION, keyring};
    for (const QString& one : runs) {
      arguments.append(QString(TOKEN_STORE_PROBE) + " " + folder() + " " + one);
    }
    return withoutTurns(run("dbus-run-session", arguments, environment()));
  }

  QStringList withoutBus(const QString& steps) const {
    auto noBus = environment();
    noBus.insert("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    return withoutTurns(run(TOKEN_STORE_PROBE, QStringList{folder()} + steps.split(' '), noBus));
  }

  // Behind a run in a session: one without a bus, which leaves a file.
  QString andAFileWith(const QString& token) const {
    return QString("; DBUS_SESSION_BUS_ADDRESS=disabled: ") + TOKEN_STORE_PROBE + " " + folder() +
           " add=" + token;
  }

  // The main thread never waits for the keyring.
  static QStringList withoutTurns(const QStringList& lines) {
    QStringList out;
    for (const QString& line : lines) {
      if (!line.startsWith("longest turn ")) {
        out.append(line);
        continue;
      }
      EXPECT_LT(line.mid(13).toInt(), 2000);
    }
    return out;
  }

  QString folder() const { return home_.filePath("config/vellix"); }
  QString file() const { return folder() + "/session"; }

  QTemporaryDir home_;
};

TEST_F(TokenStoreTest, TheKeyringKeepsTheTokenBetweenRuns) {
  EXPECT_EQ(inSession("unlocked", {"read add=first read settle", "read", "remove add=second settle",
                                   "read remove read settle", "read"}),
            (QStringList{"store keyring", "token none", "token first", "settled",   //
                         "store keyring", "token first",                            //
                         "store keyring", "settled",                                //
                         "store keyring", "token second", "token none", "settled",  //
                         "store keyring", "token none"}));
  EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(TokenStoreTest, TheKeyringTakesJobsInTheirOrder) {
  QStringList many;
  for (int i = 0; i < 10; ++i) many << "remove" << "add=t" + QString::number(i);
  EXPECT_EQ(inSession("unlocked", {many.join(' ') + " settle", "read"}),
            (QStringList{"store keyring", "settled", "store keyring", "token t9"}));
}

TEST_F(TokenStoreTest, RemovingWhatIsNotThereDoesNoHarm) {
  EXPECT_EQ(inSession("unlocked", {"remove remove settle add=t settle", "read"}),
            (QStringList{"store keyring", "settled", "settled", "store keyring", "token t"}));
}

TEST_F(TokenStoreTest, ALockedKeyringIsNotWrittenAround) {
  EXPECT_EQ(inSession("locked", {"limit=3000 read add=t read settle"}),
            (QStringList{"store keyring", "token none", "token t", "settled"}));
  EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(TokenStoreTest, ASilentKeyringIsGivenUpButNotWrittenAround) {
  EXPECT_EQ(
      inSession(TOKEN_STORE_PROBE, {"limit=300 read add=t read settle remove settle read"}),
      (QStringList{"store keyring", "token none", "token t", "settled", "settled", "token none"}));
  EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(TokenStoreTest, ASlowKeyringIsWaitedForOnlySoLongAndHeardWhenItAnswers) {
  EXPECT_EQ(
      inSession("unlocked", {"add=first settle", "stalled=200 read wake primed read", "read"}),
      (QStringList{"store keyring", "settled",                //
                   "primed no", "token none", "token first",  //
                   "store keyring", "token first"}));
  EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(TokenStoreTest, ATokenOfTheMeantimeGoesIntoTheSlowKeyring) {
  EXPECT_EQ(
      inSession("unlocked", {"add=first settle", "stalled=200 remove add=second wake settle read",
                             "read", "stalled=200 add=third remove wake settle read", "read"}),
      (QStringList{"store keyring", "settled",              //
                   "primed no", "settled", "token second",  //
                   "store keyring", "token second",         //
                   "primed no", "settled", "token none",    //
                   "store keyring", "token none"}));
  EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(TokenStoreTest, AKeyringTakesOverWhatAFileKeptBefore) {
  withoutBus("add=first");
  ASSERT_TRUE(QFile::exists(file()));
  EXPECT_EQ(inSession("unlocked", {"read settle", "read"}),
            (QStringList{"store keyring", "token first", "settled",  //
                         "store keyring", "token first"}));
  EXPECT_FALSE(QFile::exists(file()));
  EXPECT_EQ(withoutBus("read"), (QStringList{"store file", "token none"}));
}

TEST_F(TokenStoreTest, ASignOutLeavesNoFileFromBefore) {
  withoutBus("add=first");
  EXPECT_EQ(inSession("unlocked", {"remove settle", "read"}),
            (QStringList{"store keyring", "settled", "store keyring", "token none"}));
  EXPECT_FALSE(QFile::exists(file()));
  EXPECT_EQ(withoutBus("read"), (QStringList{"store file", "token none"}));
}

TEST_F(TokenStoreTest, WhatTheKeyringHoldsGoesBeforeAFile) {
  inSession("unlocked", {"add=kept settle"});
  withoutBus("add=elsewhere");
  EXPECT_EQ(inSession("unlocked", {"read settle"}),
            (QStringList{"store keyring", "token kept", "settled"}));
  EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(TokenStoreTest, ASilentKeyringTakesNothingOverAndASignOutLeavesNothing) {
  withoutBus("add=first");
  EXPECT_EQ(inSession(TOKEN_STORE_PROBE, {"limit=300 read settle"}),
            (QStringList{"store keyring", "token none", "settled"}));
  EXPECT_TRUE(QFile::exists(file())) << "it may be all there is";
  inSession(TOKEN_STORE_PROBE, {"limit=300 remove settle"});
  EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(TokenStoreTest, AKeyringThatIsLockedOverATokenTakesNothingOver) {
  inSession("unlocked", {"add=kept settle"});
  withoutBus("add=elsewhere");
  EXPECT_EQ(inSession("locked", {"limit=3000 read settle"}),
            (QStringList{"store keyring", "token none", "settled"}));
  EXPECT_TRUE(QFile::exists(file()));
  EXPECT_EQ(inSession("unlocked", {"read"}), (QStringList{"store keyring", "token kept"}));
}

TEST_F(TokenStoreTest, ASlowKeyringIsAskedBeforeAFileIsBelieved) {
  inSession("unlocked", {"add=kept settle"});
  EXPECT_EQ(inSession("unlocked", {"read" + andAFileWith("elsewhere"),
                                   "stalled=200 read wake primed read settle"}),
            (QStringList{"store keyring", "token kept", "store file",  //
                         "primed no", "token none", "token kept", "settled"}));
  EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(TokenStoreTest, WhoSignsInMeanwhileIsNotReplacedByAFile) {
  EXPECT_EQ(inSession("unlocked", {"read" + andAFileWith("first"),
                                   "stalled=200 remove add=second wake settle read", "read"}),
            (QStringList{"store keyring", "token none", "store file",  //
                         "primed no", "settled", "token second",       //
                         "store keyring", "token second"}));
  EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(TokenStoreTest, WithoutABusAFileKeepsIt) {
  EXPECT_EQ(withoutBus("read add=first read settle"),
            (QStringList{"store file", "token none", "token first", "settled"}));
  EXPECT_EQ(withoutBus("read remove read settle"),
            (QStringList{"store file", "token first", "token none", "settled"}));
  EXPECT_FALSE(QFile::exists(file()));
  EXPECT_EQ(withoutBus("read add=second"), (QStringList{"store file", "token none"}));
  EXPECT_EQ(withoutBus("read"), (QStringList{"store file", "token second"}));
}

}  // namespace
}  // namespace vellix
