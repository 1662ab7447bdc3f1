// The end of each sleep, against a login manager on a bus of the test's own.
#include "platform/linux/LogindWakes.hpp"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QThread>

#include "platform/PrivateBus.hpp"
#include "platform/waiting.hpp"

namespace vellix {
namespace {

const QString kName = "org.freedesktop.login1";
const QString kPath = "/org/freedesktop/login1";
const QString kManager = "org.freedesktop.login1.Manager";

// Whoever is on the bus and says something of sleep.
class Speaker {
 public:
  Speaker(const PrivateBus& bus, const QString& connection)
      : connection_(connection), bus_(QDBusConnection::connectToBus(bus.address, connection)) {}
  ~Speaker() { QDBusConnection::disconnectFromBus(connection_); }
  Speaker(const Speaker&) = delete;
  Speaker& operator=(const Speaker&) = delete;

  void appear() { EXPECT_TRUE(bus_.registerService(kName)); }
  void vanish() { EXPECT_TRUE(bus_.unregisterService(kName)); }
  void say(const QVariantList& words, const QString& signal = "PrepareForSleep",
           const QString& path = kPath, const QString& interface = kManager) {
    auto message = QDBusMessage::createSignal(path, interface, signal);
    message.setArguments(words);
    EXPECT_TRUE(bus_.send(message));
  }

 private:
  const QString connection_;
  QDBusConnection bus_;
};

class LogindWakesTest : public testing::Test {
 protected:
  LogindWakesTest() {
    logind.appear();
    wakes.observe([this] {
      ++woken;
      where = QThread::currentThread();
    });
  }
  // Whenever it began to listen, one of these comes after it.
  bool hearsAtAll() {
    const bool heard = waitUntil(
        [this] {
          logind.say({false});
          return woken > 0;
        },
        5'000);
    settle();
    return heard;
  }
  // What was said before this has been heard, if it ever will be.
  void settle() {
    int before = -1;
    do {
      before = woken;
      waitUntil([] { return false; }, 100);
    } while (woken != before);
  }
  // Said last, and heard: so all that was said before it has come through as well.
  bool hearsNext(Speaker& speaker, int count) {
    speaker.say({false});
    return waitUntil([this, count] { return woken >= count; }, 5'000);
  }

  PrivateBus bus;
  Speaker logind{bus, "logind"};
  int woken = 0;
  QThread* where = nullptr;
  LogindWakes wakes{bus.address};
};

TEST_F(LogindWakesTest, AreToldAfterEachSleepOnTheMainThread) {
  ASSERT_TRUE(hearsAtAll());
  EXPECT_EQ(where, QThread::currentThread());
  woken = 0;
  for (int night = 1; night <= 3; ++night) {
    logind.say({true});
    EXPECT_TRUE(hearsNext(logind, night));
    EXPECT_EQ(woken, night) << "going to sleep is no waking";
  }
  settle();
  EXPECT_EQ(woken, 3);
}

TEST_F(LogindWakesTest, AreNotWhatAnybodyElseSays) {
  ASSERT_TRUE(hearsAtAll());
  woken = 0;
  Speaker other(bus, "other");
  other.say({false});
  settle();
  EXPECT_EQ(woken, 0);
  EXPECT_TRUE(hearsNext(logind, 1));
}

TEST_F(LogindWakesTest, AreNotWhatTheLoginManagerSaysOfOtherThings) {
  ASSERT_TRUE(hearsAtAll());
  woken = 0;
  logind.say({false}, "PrepareForShutdown");
  logind.say({false}, "PrepareForSleep", "/org/freedesktop/login1/seat/seat0");
  logind.say({false}, "PrepareForSleep", kPath, "org.freedesktop.login1.Seat");
  logind.say({"false"});
  logind.say({0});
  logind.say({});
  EXPECT_TRUE(hearsNext(logind, 1));
  settle();
  EXPECT_EQ(woken, 1);
}

TEST_F(LogindWakesTest, GoOnWhenTheLoginManagerWasStartedAgain) {
  ASSERT_TRUE(hearsAtAll());
  logind.vanish();
  Speaker next(bus, "next");
  next.appear();
  woken = 0;
  EXPECT_TRUE(waitUntil(
      [&] {
        next.say({false});
        return woken > 0;
      },
      5'000));
  settle();
  woken = 0;
  logind.say({false});
  settle();
  EXPECT_EQ(woken, 0) << "it is not the login manager any more";
}

TEST_F(LogindWakesTest, NeedNobodyWhoListens) {
  ASSERT_TRUE(hearsAtAll());
  wakes.observe({});
  woken = 0;
  logind.say({false});
  settle();
  EXPECT_EQ(woken, 0);
}

TEST(LogindWakes, AreSilentWithoutABus) {
  LogindWakes wakes("unix:path=/nowhere/bus");
  bool woken = false;
  wakes.observe([&woken] { woken = true; });
  EXPECT_FALSE(waitUntil([&woken] { return woken; }, 200));
}

TEST(LogindWakes, NeverHoldTheMainThreadUp) {
  const QTemporaryDir home;
  QLocalServer silent;
  ASSERT_TRUE(silent.listen(home.filePath("bus")));
  QElapsedTimer clock;
  clock.start();
  {
    LogindWakes wakes("unix:path=" + silent.fullServerName());
    wakes.observe([] {});
    EXPECT_LT(clock.elapsed(), 200);
    // Nobody answers, and the thread is given up.
    ASSERT_TRUE(waitUntil([&] { return silent.hasPendingConnections(); }, 5'000));
  }
  EXPECT_LT(clock.elapsed(), 5'000);
  silent.nextPendingConnection()->abort();
}

}  // namespace
}  // namespace vellix
