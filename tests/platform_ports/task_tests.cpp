#include "platform/ports/task.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/ports/pending.hpp"

namespace vellix::test {
namespace {

using testing::ElementsAre;
using Log = std::vector<std::string>;

Task<int> two(Log* log) {
  log->push_back("two");
  co_return 2;
}

Task<int> sum(Log* log) {
  log->push_back("sum begins");
  const int first = co_await two(log);
  const int second = co_await two(log);
  log->push_back("sum ends");
  co_return first + second;
}

Task<std::string> inWords(Log* log) {
  const int value = co_await sum(log);
  co_return "it is " + std::to_string(value);
}

Task<> note(Task<std::string> words, Log* log) {
  auto text = co_await std::move(words);
  log->push_back(std::move(text));
}

TEST(ATask, PassesItsValueThroughNestedTasks) {
  Log log;
  TaskScope scope;
  scope.start(note(inWords(&log), &log));
  EXPECT_THAT(log, ElementsAre("sum begins", "two", "two", "sum ends", "it is 4"));
  EXPECT_TRUE(scope.idle());
}

TEST(ATask, DoesNothingUntilItIsAwaited) {
  Log log;
  {
    const auto task = sum(&log);
  }
  EXPECT_TRUE(log.empty());
}

struct Counted {
  explicit Counted(int* living) : living(living) { ++*living; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  ~Counted() { --*living; }
  int* living;
};

Task<> hold(std::unique_ptr<Counted>) { co_return; }

TEST(ATask, LetsGoOfItsParametersWhenItNeverRuns) {
  int living = 0;
  {
    const auto task = hold(std::make_unique<Counted>(&living));
    EXPECT_EQ(living, 1);
  }
  EXPECT_EQ(living, 0);
}

Task<std::unique_ptr<int>> boxed(int value) { co_return std::make_unique<int>(value); }

Task<> unbox(int* to) {
  const auto box = co_await boxed(7);
  *to = *box;
}

TEST(ATask, MayReturnWhatCanOnlyBeMoved) {
  int value = 0;
  TaskScope scope;
  scope.start(unbox(&value));
  EXPECT_EQ(value, 7);
}

Task<int> waitFor(Pending<int> pending) { co_return co_await pending + 1; }

Task<> addUp(Pending<int> first, Pending<int> second, int* total) {
  *total += co_await waitFor(first);
  *total += co_await waitFor(second);
}

TEST(ATask, SuspendsThroughEveryLevelUntilAPortResolves) {
  Resolver<int> first;
  Resolver<int> second;
  int total = 0;
  TaskScope scope;
  scope.start(addUp(first.pending(), second.pending(), &total));
  EXPECT_EQ(total, 0);
  first(10);
  EXPECT_EQ(total, 11);
  EXPECT_FALSE(scope.idle());
  second(100);
  EXPECT_EQ(total, 112);
  EXPECT_TRUE(scope.idle());
}

Task<int> one() { co_return 1; }

Task<> countUp(int times, int* count) {
  for (int i = 0; i < times; ++i) *count += co_await one();
}

TEST(ATask, MayAwaitManyThatEndAtOnce) {
  int count = 0;
  TaskScope scope;
  scope.start(countUp(1'000, &count));
  EXPECT_EQ(count, 1'000);
}

}  // namespace
}  // namespace vellix::test
