// One instance on the session bus, with instances on a private bus.
#include "platform/linux/DesktopApplication.hpp"

#include <gtest/gtest.h>

#include <QDBusMessage>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <thread>

#include "platform/waiting.hpp"

namespace vellix {
namespace {

using namespace Qt::StringLiterals;

const auto kPath = u"/example/tessarine/Vellix"_s;
const auto kInterface = u"org.freedesktop.Application"_s;
constexpr const char* kConfig = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:path=%1/bus</listen><auth>EXTERNAL</auth>
<policy context="default"><allow send_destination="*" eavesdrop="true"/>
<allow eavesdrop="true"/><allow own="*"/></policy></busconfig>)";

// A bus that ends with the test. Each connection stands for a process.
class DesktopApplicationTest : public testing::Test {
 protected:
  DesktopApplicationTest() {
    QFile config(folder_.filePath("bus.conf"));
    EXPECT_TRUE(config.open(QIODevice::WriteOnly));
    config.write(QString::fromLatin1(kConfig).arg(folder_.path()).toUtf8());
    config.close();
    daemon_.start("dbus-daemon",
                  {"--config-file=" + config.fileName(), "--nofork", "--print-address=1"});
    EXPECT_TRUE(daemon_.waitForReadyRead());
    address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
  }
  ~DesktopApplicationTest() override {
    for (const auto& name : connections_) QDBusConnection::disconnectFromBus(name);
    daemon_.terminate();
    daemon_.waitForFinished();
  }

  QDBusConnection connection() {
    connections_.append(u"desktop-test-%1"_s.arg(++made_));
    return QDBusConnection::connectToBus(address_, connections_.last());
  }
  // Runs what another process would, while this one's event loop runs on.
  template <class Work>
  static void elsewhere(Work work) {
    std::atomic<bool> ended = false;
    std::thread thread([&] {
      work();
      ended = true;
    });
    EXPECT_TRUE(waitUntil([&] { return ended.load(); }));
    thread.join();
  }
  bool startElsewhere(const StartRequest& request) {
    bool handedOver = false;
    const auto bus = connection();
    elsewhere([&] { handedOver = DesktopApplication{bus, kDesktopName}.handOver(request); });
    return handedOver;
  }
  QDBusMessage callElsewhere(const QString& method, const QVariantList& arguments) {
    QDBusMessage reply;
    const auto bus = connection();
    elsewhere([&] {
      QDBusMessage call = QDBusMessage::createMethodCall(kDesktopName, kPath, kInterface, method);
      call.setArguments(arguments);
      reply = bus.call(call, QDBus::Block, 10'000);
    });
    return reply;
  }
  void listen(DesktopApplication& application) {
    application.listen([this](const StartRequest& request) { heard.push_back(request); });
  }
  bool hears(std::size_t count) {
    return waitUntil([&] { return heard.size() >= count; });
  }

  std::vector<StartRequest> heard;
  QTemporaryDir folder_;
  QProcess daemon_;
  QString address_;

 private:
  QStringList connections_;
  int made_ = 0;
};

const StartRequest kUrl{{"sorel://signed-in?code=abc&state=s1"}, "token-7"};

TEST_F(DesktopApplicationTest, TheFirstTakesWhatTheSecondWasStartedFor) {
  DesktopApplication first{connection(), kDesktopName};
  ASSERT_FALSE(first.handOver({}));
  listen(first);
  EXPECT_TRUE(startElsewhere(kUrl));
  ASSERT_TRUE(hears(1));
  EXPECT_EQ(heard[0], kUrl);
  EXPECT_TRUE(startElsewhere({}));
  ASSERT_TRUE(hears(2));
  EXPECT_EQ(heard[1], StartRequest{}) << "the window alone is wanted";
}

TEST_F(DesktopApplicationTest, WhatComesEarlyIsKept) {
  DesktopApplication first{connection(), kDesktopName};
  ASSERT_FALSE(first.handOver({}));
  EXPECT_TRUE(startElsewhere(kUrl));
  EXPECT_TRUE(startElsewhere({}));
  listen(first);
  EXPECT_TRUE(heard.empty()) << "in a turn of its own";
  ASSERT_TRUE(hears(2));
  EXPECT_EQ(heard, (std::vector<StartRequest>{kUrl, {}}));
}

TEST_F(DesktopApplicationTest, AfterTheFirstHasEndedTheNextIsFirst) {
  {
    DesktopApplication first{connection(), kDesktopName};
    ASSERT_FALSE(first.handOver({}));
  }
  EXPECT_FALSE(startElsewhere(kUrl));
  DesktopApplication retired{connection(), kDesktopName};
  ASSERT_FALSE(retired.handOver({}));
  retired.retire();
  EXPECT_FALSE(startElsewhere(kUrl));
}

TEST_F(DesktopApplicationTest, TheDesktopActivatesAndOpens) {
  DesktopApplication first{connection(), kDesktopName};
  ASSERT_FALSE(first.handOver({}));
  listen(first);
  const QVariantMap wayland{{"activation-token", "w"}, {"desktop-startup-id", "x"}};
  const QVariantMap x11{{"desktop-startup-id", "x"}};
  EXPECT_EQ(callElsewhere("Activate", {wayland}).type(), QDBusMessage::ReplyMessage);
  EXPECT_EQ(callElsewhere("Activate", {x11}).type(), QDBusMessage::ReplyMessage);
  const QStringList uris{"sorel://a", "sorel://b"};
  EXPECT_EQ(callElsewhere("Open", {uris, QVariantMap{}}).type(), QDBusMessage::ReplyMessage);
  EXPECT_EQ(callElsewhere("ActivateAction", {"none", QVariantList{}, x11}).type(),
            QDBusMessage::ReplyMessage);
  ASSERT_TRUE(hears(4));
  EXPECT_EQ(heard, (std::vector<StartRequest>{{{}, "w"}, {{}, "x"}, {uris, ""}, {{}, "x"}}));
}

TEST_F(DesktopApplicationTest, AStrangersCallDoesNoHarm) {
  DesktopApplication first{connection(), kDesktopName};
  ASSERT_FALSE(first.handOver({}));
  listen(first);
  EXPECT_EQ(callElsewhere("Open", {42}).type(), QDBusMessage::ErrorMessage);
  EXPECT_EQ(callElsewhere("Quit", {}).type(), QDBusMessage::ErrorMessage);
  EXPECT_EQ(callElsewhere("Activate", {QVariantMap{{"activation-token", 7}}}).type(),
            QDBusMessage::ReplyMessage);
  ASSERT_TRUE(hears(1));
}

TEST_F(DesktopApplicationTest, ANameWithNothingBehindItIsNotWaitedFor) {
  auto squatter = connection();
  ASSERT_TRUE(squatter.registerService(kDesktopName));
  EXPECT_FALSE(startElsewhere(kUrl));
}

TEST_F(DesktopApplicationTest, WithoutABusItStartsAlone) {
  const auto none = QDBusConnection::connectToBus("unix:path=" + folder_.filePath("none"), "none");
  ASSERT_FALSE(none.isConnected());
  DesktopApplication alone{none, kDesktopName};
  EXPECT_FALSE(alone.handOver(kUrl));
  listen(alone);
  QDBusConnection::disconnectFromBus("none");
}

TEST(GivenActivationToken, IsTheDesktopsNewerOneWhenThereAreTwo) {
  qunsetenv("XDG_ACTIVATION_TOKEN");
  qunsetenv("DESKTOP_STARTUP_ID");
  EXPECT_EQ(givenActivationToken(), QByteArray{});
  qputenv("DESKTOP_STARTUP_ID", "x");
  EXPECT_EQ(givenActivationToken(), "x");
  qputenv("XDG_ACTIVATION_TOKEN", "w");
  EXPECT_EQ(givenActivationToken(), "w");
  qunsetenv("XDG_ACTIVATION_TOKEN");
  qunsetenv("DESKTOP_STARTUP_ID");
}

}  // namespace
}  // namespace vellix
