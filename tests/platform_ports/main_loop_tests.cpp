#include "platform/ports/main_loop.hpp"

#include <gmock/gmock.h>

#include <deque>
#include <string>
#include <vector>

#include "platform/ports/task.hpp"

namespace vellix::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Log = std::vector<std::string>;

class QueueLoop : public MainLoop {
 public:
  void post(std::function<void()> work) override { posted_.push_back(std::move(work)); }
  Moment now() const override { return momentOf(0); }
  Pending<> sleep(Milliseconds, std::stop_token) override { return turn(); }

  // Runs what was posted before this turn.
  void runTurn() {
    auto works = std::exchange(posted_, {});
    for (const auto& work : works) work();
  }

 private:
  std::deque<std::function<void()>> posted_;
};

Task<> takeTurns(MainLoop* loop, int turns, std::string name, Log* log) {
  for (int i = 1; i <= turns; ++i) {
    const auto turn = loop->turn();
    co_await turn;
    log->push_back(name + std::to_string(i));
  }
}

TEST(AMainLoopsTurn, ComesNextForEachInOrder) {
  Log log;
  QueueLoop loop;
  TaskScope scope;
  scope.start(takeTurns(&loop, 2, "a", &log));
  scope.start(takeTurns(&loop, 1, "b", &log));
  EXPECT_THAT(log, IsEmpty());
  loop.runTurn();
  EXPECT_THAT(log, ElementsAre("a1", "b1"));
  loop.runTurn();
  EXPECT_THAT(log, ElementsAre("a1", "b1", "a2"));
  EXPECT_TRUE(scope.idle());
}

TEST(AMainLoopsTurn, ThatNobodyAwaitsAnyMoreIsHarmless) {
  Log log;
  QueueLoop loop;
  {
    TaskScope scope;
    scope.start(takeTurns(&loop, 1, "a", &log));
  }
  loop.runTurn();
  EXPECT_THAT(log, IsEmpty());
}

TEST(AMoment, ReadsAndWritesTheWiresMilliseconds) {
  EXPECT_EQ(wireOf(momentOf(1700000000123.5)), 1700000000123.5);
  EXPECT_EQ(secondsBetween(momentOf(1000), momentOf(2500)), 1.5);
  EXPECT_EQ(secondsBetween(momentOf(2500), momentOf(1000)), -1.5);
}

}  // namespace
}  // namespace vellix::test
