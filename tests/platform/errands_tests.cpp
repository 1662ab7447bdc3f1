#include "platform/qt/Errands.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <thread>
#include <vector>

#include "platform/waiting.hpp"

namespace vellix {
namespace {

Task<> noteThread(Pending<int> pending, std::thread::id* where) {
  co_await pending;
  *where = std::this_thread::get_id();
}

TEST(Errands, AreRunElsewhereAndAnsweredHere) {
  Errands errands;
  std::thread::id there;
  std::thread::id here;
  const auto pending = errands.run<int>(
      [&there] {
        there = std::this_thread::get_id();
        return 7;
      },
      0);
  TaskScope scope;
  scope.start(noteThread(pending, &here));
  EXPECT_FALSE(pending.resolved()) << "only in a later turn";
  EXPECT_EQ(await(pending), 7);
  EXPECT_EQ(here, std::this_thread::get_id());
  EXPECT_NE(there, here);
}

TEST(Errands, LetWhatTheyHeldGoBeforeTheAnswerComes) {
  Errands errands;
  for (int round = 0; round < 50; ++round) {
    auto held = std::make_shared<int>(round);
    const std::weak_ptr<int> seen = held;
    const auto pending = errands.run<int>([held = std::move(held)] { return *held; }, -1);
    EXPECT_EQ(await(pending), round);
    EXPECT_TRUE(seen.expired());
  }
}

TEST(Errands, DoNotWaitForOneAnother) {
  Errands errands;
  std::promise<void> go;
  const auto slow = errands.run<int>(
      [going = go.get_future().share()] {
        going.wait();
        return 1;
      },
      0);
  EXPECT_EQ(await(errands.run<int>([] { return 2; }, 0)), 2);
  EXPECT_FALSE(slow.resolved());
  go.set_value();
  EXPECT_EQ(await(slow), 1);
}

TEST(Errands, AnswerNobodyOnceAllIsOver) {
  std::promise<void> go;
  std::promise<void> done;
  std::vector<Pending<int>> pending;
  {
    Errands errands;
    const auto wait = [going = go.get_future().share(), &done] {
      going.wait();
      done.set_value();
      return 1;
    };
    pending = {errands.run<int>(wait, 0), errands.run<int>([] { return 2; }, 0)};
  }
  go.set_value();
  done.get_future().wait();
  QCoreApplication::processEvents();
  for (const auto& one : pending) EXPECT_FALSE(one.resolved());
}

}  // namespace
}  // namespace vellix
