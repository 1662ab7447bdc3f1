#include "platform/ports/pending.hpp"

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/ports/task.hpp"

namespace vellix::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Log = std::vector<std::string>;

Task<> tell(Pending<std::string> pending, std::string name, Log* log) {
  const auto value = co_await pending;
  log->push_back(name + " got " + value);
}

TEST(APending, WakesItsWaitersInTheOrderTheyCame) {
  Log log;
  Resolver<std::string> resolver;
  TaskScope scope;
  for (const auto* name : {"a", "b", "c"}) scope.start(tell(resolver.pending(), name, &log));
  EXPECT_THAT(log, IsEmpty());
  resolver("it");
  EXPECT_THAT(log, ElementsAre("a got it", "b got it", "c got it"));
}

TEST(APending, TakesTheFirstValueOnly) {
  Log log;
  const Resolver<std::string> resolver;
  TaskScope scope;
  scope.start(tell(resolver.pending(), "a", &log));
  resolver("one");
  resolver("two");
  scope.start(tell(resolver.pending(), "b", &log));
  EXPECT_THAT(log, ElementsAre("a got one", "b got one"));
}

TEST(APending, GoesOnAtOnceWhenItIsResolvedAlready) {
  Log log;
  Resolver<std::string> resolver;
  EXPECT_FALSE(resolver.resolved());
  EXPECT_FALSE(resolver.pending().resolved());
  resolver("it");
  EXPECT_TRUE(resolver.resolved());
  EXPECT_TRUE(resolver.pending().resolved());
  TaskScope scope;
  scope.start(tell(resolver.pending(), "a", &log));
  EXPECT_THAT(log, ElementsAre("a got it"));
  EXPECT_TRUE(scope.idle());
}

TEST(APending, SharesItsStateWithCopiesOfItsResolver) {
  Log log;
  Resolver<std::string> resolver;
  const Resolver<std::string> copy = resolver;
  TaskScope scope;
  scope.start(tell(resolver.pending(), "a", &log));
  copy("it");
  resolver("other");
  EXPECT_THAT(log, ElementsAre("a got it"));
}

Task<> drop(Pending<> pending, std::optional<Resolver<>>* resolver, Log* log) {
  co_await pending;
  resolver->reset();
  log->push_back("dropped");
}

Task<> goOn(Pending<> pending, Log* log) {
  co_await pending;
  log->push_back("went on");
}

TEST(APending, WakesTheRestWhenAWaiterDropsItsResolver) {
  Log log;
  std::optional<Resolver<>> resolver{std::in_place};
  TaskScope scope;
  scope.start(drop(resolver->pending(), &resolver, &log));
  scope.start(goOn(resolver->pending(), &log));
  (*resolver)();
  EXPECT_THAT(log, ElementsAre("dropped", "went on"));
  EXPECT_FALSE(resolver);
}

Task<> again(Pending<std::string> pending, Resolver<std::string> resolver, Log* log) {
  const auto first = co_await pending;
  resolver("other");
  const auto second = co_await pending;
  log->push_back(first + ", " + second);
}

TEST(APending, MayBeAwaitedAndResolvedAgainByItsWaiter) {
  Log log;
  Resolver<std::string> resolver;
  TaskScope scope;
  scope.start(again(resolver.pending(), resolver, &log));
  scope.start(tell(resolver.pending(), "b", &log));
  resolver("it");
  EXPECT_THAT(log, ElementsAre("it, it", "b got it"));
}

Task<> startWaiter(Pending<std::string> pending, TaskScope* scope, Log* log) {
  co_await pending;
  scope->start(tell(pending, "late", log));
  log->push_back("starter ends");
}

TEST(APending, ServesAWaiterThatComesWhileItResolves) {
  Log log;
  Resolver<std::string> resolver;
  TaskScope scope;
  scope.start(startWaiter(resolver.pending(), &scope, &log));
  scope.start(tell(resolver.pending(), "b", &log));
  resolver("it");
  EXPECT_THAT(log, ElementsAre("late got it", "starter ends", "b got it"));
}

TEST(APending, SkipsAWaiterThatIsGone) {
  Log log;
  Resolver<std::string> resolver;
  TaskScope staying;
  {
    TaskScope leaving;
    staying.start(tell(resolver.pending(), "a", &log));
    leaving.start(tell(resolver.pending(), "b", &log));
    staying.start(tell(resolver.pending(), "c", &log));
  }
  resolver("it");
  EXPECT_THAT(log, ElementsAre("a got it", "c got it"));
}

TEST(APending, HasAValueOfItsOwnForEachWaiter) {
  Log log;
  Resolver<std::string> resolver;
  TaskScope scope;
  const auto pending = resolver.pending();
  scope.start(tell(pending, "a", &log));
  scope.start(tell(pending, "b", &log));
  resolver(std::string(100, 'x'));
  EXPECT_THAT(log, ElementsAre("a got " + std::string(100, 'x'), "b got " + std::string(100, 'x')));
}

}  // namespace
}  // namespace vellix::test
