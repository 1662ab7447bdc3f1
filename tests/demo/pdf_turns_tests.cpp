// Who reads next.
#include <gtest/gtest.h>

#include <mutex>
#include <thread>
#include <vector>

#include "pdf_turns.hpp"

namespace vellix::demo {
namespace {

// Takes a turn on a thread of its own, and keeps it.
class Reader {
 public:
  Reader(Turns& turns, Urgency urgency, std::vector<Urgency>& order, std::mutex& mutex)
      : thread_([&turns, urgency, &order, &mutex, this] {
          if (!turns.take({urgency, stop_.get_token()})) return;
          const std::lock_guard lock(mutex);
          order.push_back(urgency);
        }) {}
  void giveUp() { stop_.request_stop(); }

 private:
  std::stop_source stop_;
  std::jthread thread_;
};

class TurnsTaken : public testing::Test {
 protected:
  std::unique_ptr<Reader> waiting(Urgency urgency) {
    const int before = turns_.waiting(urgency);
    auto reader = std::make_unique<Reader>(turns_, urgency, order_, mutex_);
    while (turns_.waiting(urgency) == before) std::this_thread::yield();
    return reader;
  }
  std::vector<Urgency> orderOf(std::size_t count) {
    while (true) {
      const std::lock_guard lock(mutex_);
      if (order_.size() >= count) return order_;
      std::this_thread::yield();
    }
  }

  Turns turns_{2};
  std::vector<Urgency> order_;
  std::mutex mutex_;
};

TEST_F(TurnsTaken, AreTwoAtOnceAndOneMoreForWhatSomebodyLooksAt) {
  EXPECT_TRUE(turns_.take({Urgency::checked}));
  EXPECT_TRUE(turns_.take({Urgency::ahead}));
  EXPECT_TRUE(turns_.take({Urgency::looked}));
  const auto checked = waiting(Urgency::checked);
  const auto looked = waiting(Urgency::looked);
  turns_.give();
  EXPECT_EQ(orderOf(1), (std::vector{Urgency::looked}));
  EXPECT_EQ(turns_.waiting(Urgency::checked), 1);
  turns_.give();
  EXPECT_EQ(turns_.waiting(Urgency::checked), 1) << "two are at it still";
  turns_.give();
  EXPECT_EQ(orderOf(2), (std::vector{Urgency::looked, Urgency::checked}));
}

TEST_F(TurnsTaken, GoToTheMostUrgentFirst) {
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(turns_.take({Urgency::looked}));
  const auto ahead = waiting(Urgency::ahead);
  const auto checked = waiting(Urgency::checked);
  const auto looked = waiting(Urgency::looked);
  for (std::size_t i = 1; i <= 3; ++i) {
    turns_.give();
    if (i == 1) turns_.give();  // the place that is only for what is looked at
    orderOf(i);
  }
  EXPECT_EQ(orderOf(3), (std::vector{Urgency::looked, Urgency::checked, Urgency::ahead}));
}

TEST_F(TurnsTaken, AreNotWaitedForByWhoGaveUp) {
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(turns_.take({Urgency::looked}));
  const auto checked = waiting(Urgency::checked);
  auto ahead = waiting(Urgency::ahead);
  checked->giveUp();
  while (turns_.waiting(Urgency::checked) > 0) std::this_thread::yield();
  turns_.give();
  turns_.give();
  EXPECT_EQ(orderOf(1), (std::vector{Urgency::ahead}));
  std::stop_source over;
  over.request_stop();
  turns_.give();
  EXPECT_FALSE(turns_.take({Urgency::looked, over.get_token()})) << "however free the places are";
  EXPECT_TRUE(turns_.take({Urgency::checked}));
}

}  // namespace
}  // namespace vellix::demo
