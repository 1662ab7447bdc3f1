#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/ports/pending.hpp"
#include "platform/ports/task.hpp"

namespace vellix::test {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;
using Log = std::vector<std::string>;

// Notes its own end.
class Local {
 public:
  Local(std::string name, Log* log) : name_(std::move(name)), log_(log) {}
  Local(const Local&) = delete;
  Local& operator=(const Local&) = delete;
  ~Local() { log_->push_back(name_ + " gone"); }

 private:
  std::string name_;
  Log* log_;
};

Task<> waitOn(Pending<> pending, std::string name, Log* log) {
  const Local local{name, log};
  co_await pending;
  log->push_back(name + " went on");
}

Task<> waitWithin(Pending<> pending, std::string name, Log* log) {
  const Local local{name + "'s caller", log};
  co_await waitOn(pending, name, log);
}

TEST(ATaskScope, RunsATaskUpToItsFirstSuspension) {
  Log log;
  Resolver<> resolver;
  TaskScope scope;
  EXPECT_TRUE(scope.idle());
  scope.start(waitOn(resolver.pending(), "a", &log));
  EXPECT_FALSE(scope.idle());
  EXPECT_TRUE(log.empty());
  resolver();
  EXPECT_THAT(log, ElementsAre("a went on", "a gone"));
  EXPECT_TRUE(scope.idle());
}

TEST(ATaskScope, EndsItsTasksWhereTheyAreSuspended) {
  Log log;
  Resolver<> resolver;
  {
    TaskScope scope;
    scope.start(waitWithin(resolver.pending(), "a", &log));
    scope.start(waitOn(resolver.pending(), "b", &log));
    EXPECT_TRUE(log.empty());
  }
  EXPECT_THAT(log, UnorderedElementsAre("a gone", "a's caller gone", "b gone"));
  resolver();
  EXPECT_EQ(log.size(), 3u) << "a later value finds nobody";
}

TEST(ATaskScope, EndsTasksWhosePortNeverAnswers) {
  Log log;
  {
    TaskScope scope;
    scope.start(waitOn(Resolver<>{}.pending(), "a", &log));
    EXPECT_TRUE(log.empty());
  }
  EXPECT_THAT(log, ElementsAre("a gone"));
}

TEST(ATaskScope, KeepsTheOthersWhenOneEnds) {
  Log log;
  Resolver<> first;
  Resolver<> second;
  Resolver<> third;
  TaskScope scope;
  scope.start(waitOn(first.pending(), "a", &log));
  scope.start(waitOn(second.pending(), "b", &log));
  scope.start(waitOn(third.pending(), "c", &log));
  second();
  EXPECT_THAT(log, ElementsAre("b went on", "b gone"));
  first();
  third();
  EXPECT_EQ(log.size(), 6u);
  EXPECT_TRUE(scope.idle());
}

Task<> startAnother(Pending<> pending, TaskScope* scope, Log* log) {
  co_await pending;
  scope->start(waitOn(Resolver<>{}.pending(), "started", log));
  log->push_back("starter ends");
}

TEST(ATaskScope, MayBeGivenATaskByOneOfItsOwn) {
  Log log;
  Resolver<> resolver;
  {
    TaskScope scope;
    scope.start(startAnother(resolver.pending(), &scope, &log));
    resolver();
    EXPECT_THAT(log, ElementsAre("starter ends"));
    EXPECT_FALSE(scope.idle());
  }
  EXPECT_THAT(log, ElementsAre("starter ends", "started gone"));
}

// Resolves as it goes, as a member of a screen may that is closed.
class ResolvesAtItsEnd {
 public:
  explicit ResolvesAtItsEnd(Resolver<> resolver) : resolver_(std::move(resolver)) {}
  ResolvesAtItsEnd(const ResolvesAtItsEnd&) = delete;
  ResolvesAtItsEnd& operator=(const ResolvesAtItsEnd&) = delete;
  ~ResolvesAtItsEnd() { resolver_(); }

 private:
  Resolver<> resolver_;
};

Task<> resolveAtEnd(Resolver<> resolver) {
  const ResolvesAtItsEnd end{resolver};
  const Resolver<> never;
  co_await never.pending();
}

TEST(ATaskScope, EndsWellWhenOneTasksEndWakesTheNext) {
  Log log;
  {
    Resolver<> resolver;
    TaskScope scope;
    scope.start(resolveAtEnd(resolver));
    scope.start(waitOn(resolver.pending(), "a", &log));
  }
  EXPECT_THAT(log, ElementsAre("a went on", "a gone"));
}

Task<> endScope(Pending<> pending, std::unique_ptr<TaskScope>* scope, Log* log) {
  co_await pending;
  scope->reset();
  log->push_back("scope ended");
}

TEST(ATaskScope, MayBeEndedByAWaiterOfTheSameValueThatCameBefore) {
  Log log;
  Resolver<> resolver;
  auto ended = std::make_unique<TaskScope>();
  TaskScope scope;
  scope.start(endScope(resolver.pending(), &ended, &log));
  ended->start(waitWithin(resolver.pending(), "a", &log));
  ended->start(waitOn(resolver.pending(), "b", &log));
  scope.start(waitOn(resolver.pending(), "c", &log));
  resolver();
  EXPECT_EQ(log.size(), 6u);
  EXPECT_THAT(log, testing::Not(testing::Contains("a went on")));
  EXPECT_THAT(log, testing::Not(testing::Contains("b went on")));
  EXPECT_THAT(log, testing::Contains("c went on")) << "the walk goes on past those that are gone";
  EXPECT_TRUE(scope.idle());
}

TEST(ATaskScope, MayBeEndedByAWaiterOfTheSameValueThatCameAfter) {
  Log log;
  Resolver<> resolver;
  auto ended = std::make_unique<TaskScope>();
  TaskScope scope;
  ended->start(waitOn(resolver.pending(), "a", &log));
  scope.start(endScope(resolver.pending(), &ended, &log));
  resolver();
  EXPECT_THAT(log, ElementsAre("a went on", "a gone", "scope ended"));
}

}  // namespace
}  // namespace vellix::test
