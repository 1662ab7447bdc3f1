#include "platform/qt/QtMainLoop.hpp"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QElapsedTimer>
#include <limits>
#include <vector>

#include "platform/waiting.hpp"

namespace vellix {
namespace {

TEST(QtMainLoop, PostsRunLaterAndInOrder) {
  QtMainLoop loop;
  std::vector<int> ran;
  for (int i = 0; i < 100; ++i) {
    loop.post([&ran, &loop, i] {
      ran.push_back(i);
      if (i == 0) loop.post([&ran] { ran.push_back(1000); });
    });
  }
  EXPECT_TRUE(ran.empty());
  ASSERT_TRUE(waitUntil([&ran] { return ran.size() == 101; }));
  for (int i = 0; i < 100; ++i) EXPECT_EQ(ran[std::size_t(i)], i);
  EXPECT_EQ(ran.back(), 1000);
}

TEST(QtMainLoop, ItsEndDropsWhatIsPosted) {
  bool ran = false;
  {
    QtMainLoop().post([&ran] { ran = true; });
  }
  QCoreApplication::processEvents();
  EXPECT_FALSE(ran);
}

TEST(QtMainLoop, SleepsNoShorterThanAsked) {
  QtMainLoop loop;
  QElapsedTimer clock;
  clock.start();
  EXPECT_TRUE(await(loop.sleep(Milliseconds(60.5), {})).has_value());
  EXPECT_GE(clock.elapsed(), 60);
}

TEST(QtMainLoop, NoPauseStillTakesATurn) {
  QtMainLoop loop;
  for (const double pause : {0.0, -5.0, std::numeric_limits<double>::quiet_NaN()}) {
    const auto pending = loop.sleep(Milliseconds(pause), {});
    EXPECT_FALSE(pending.resolved());
    EXPECT_TRUE(await(pending).has_value());
  }
}

TEST(QtMainLoop, AStopWakesTheSleeperInALaterTurn) {
  QtMainLoop loop;
  for (const double pause : {3'600'000.0, 1e15}) {
    std::stop_source stop;
    const auto pending = loop.sleep(Milliseconds(pause), stop.get_token());
    QCoreApplication::processEvents();
    EXPECT_FALSE(pending.resolved());
    stop.request_stop();
    EXPECT_FALSE(pending.resolved());
    EXPECT_TRUE(await(pending, 2000).has_value());
  }
}

TEST(QtMainLoop, AStopBeforehandWakesInALaterTurn) {
  QtMainLoop loop;
  std::stop_source stop;
  stop.request_stop();
  const auto pending = loop.sleep(Milliseconds(3'600'000), stop.get_token());
  EXPECT_FALSE(pending.resolved());
  EXPECT_TRUE(await(pending, 2000).has_value());
}

TEST(QtMainLoop, AStopAfterTheEndIsHarmless) {
  std::stop_source stop;
  {
    QtMainLoop loop;
    EXPECT_FALSE(loop.sleep(Milliseconds(3'600'000), stop.get_token()).resolved());
  }
  stop.request_stop();
  QCoreApplication::processEvents();
}

TEST(QtMainLoop, TellsTheTimeOfDay) {
  const QtMainLoop loop;
  EXPECT_NEAR(wireOf(loop.now()), double(QDateTime::currentMSecsSinceEpoch()), 5000);
}

}  // namespace
}  // namespace vellix
