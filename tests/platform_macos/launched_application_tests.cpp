// Links as the launch services hand them over.
#include "platform/macos/LaunchedApplication.hpp"

#include <gtest/gtest.h>

#include <QFileOpenEvent>

#include "platform/waiting.hpp"

namespace vellix {
namespace {

const QUrl kFirst{QStringLiteral("sorel://signed-in?code=a%20b%26&state=s1")};
const QUrl kSecond{QStringLiteral("sorel://signed-in?code=second")};

StartRequest requestFor(const QUrl& url) {
  return {.urls = {QString::fromLatin1(url.toEncoded())}, .activationToken = {}};
}

class LaunchedApplicationTest : public testing::Test {
 protected:
  static bool open(const QUrl& url) {
    QFileOpenEvent event{url};
    return QCoreApplication::sendEvent(qApp, &event);
  }
  void listen() {
    application.listen([this](const StartRequest& request) { heard.push_back(request); });
  }
  bool hears(std::size_t count) {
    return waitUntil([&] { return heard.size() >= count; });
  }

  LaunchedApplication application;
  std::vector<StartRequest> heard;
};

TEST_F(LaunchedApplicationTest, ALinkIsToldInATurnOfItsOwnAsItWasWritten) {
  listen();
  EXPECT_TRUE(open(kFirst));
  EXPECT_TRUE(heard.empty());
  ASSERT_TRUE(hears(1));
  EXPECT_EQ(heard[0].urls, QStringList{"sorel://signed-in?code=a%20b%26&state=s1"});
  EXPECT_TRUE(heard[0].activationToken.isEmpty());
}

TEST_F(LaunchedApplicationTest, WhatTheProgramWasLaunchedWithIsKeptInOrder) {
  open(kFirst);
  QCoreApplication::processEvents();
  open(kSecond);
  listen();
  EXPECT_TRUE(heard.empty());
  ASSERT_TRUE(hears(2));
  open(kFirst);
  ASSERT_TRUE(hears(3));
  EXPECT_EQ(heard, (std::vector{requestFor(kFirst), requestFor(kSecond), requestFor(kFirst)}));
}

TEST_F(LaunchedApplicationTest, OtherEventsAreTheProgramsOwn) {
  listen();
  QEvent other{QEvent::User};
  EXPECT_FALSE(application.eventFilter(qApp, &other));
  QCoreApplication::processEvents();
  EXPECT_TRUE(heard.empty());
}

TEST_F(LaunchedApplicationTest, EveryStartIsTheFirst) {
  EXPECT_FALSE(application.handOver(requestFor(kFirst)));
  EXPECT_TRUE(givenActivationToken().isEmpty());
}

TEST(LaunchedApplicationsEnd, NothingIsToldBehindIt) {
  int told = 0;
  {
    LaunchedApplication application;
    application.listen([&told](const StartRequest&) { ++told; });
    QFileOpenEvent event{kFirst};
    QCoreApplication::sendEvent(qApp, &event);
  }
  QCoreApplication::processEvents();
  EXPECT_EQ(told, 0);
}

}  // namespace
}  // namespace vellix
