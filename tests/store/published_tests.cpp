#include "store/published.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "support/virtual_time.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

// A value that cannot be compared.
struct Opaque {
  int value = 0;
};

class PublishedState : public testing::Test {
 protected:
  static constexpr Changes::Fields kName = 1;
  static constexpr Changes::Fields kCount = 2;
  static constexpr Changes::Fields kOpaque = 4;

  VirtualTime time;
  Changes changes{time};
  Published<std::string> name{changes, kName, "first"};
  Published<int> count{changes, kCount, 0};
  Published<Opaque> opaque{changes, kOpaque};
  int told = 0;

  Changes::Subscription watch(Changes::Fields fields) {
    return changes.observe(fields, [this] { ++told; });
  }
};

TEST_F(PublishedState, ReadsAsItsValueAtOnce) {
  EXPECT_EQ(name(), "first");
  name.set("second");
  EXPECT_EQ(name(), "second");
}

TEST_F(PublishedState, TellsInTheNextTurn) {
  const auto watching = watch(kName);
  name.set("second");
  EXPECT_EQ(told, 0);
  time.run();
  EXPECT_EQ(told, 1);
  time.run();
  EXPECT_EQ(told, 1);
}

TEST_F(PublishedState, TellsOnceATurnHoweverManyWrites) {
  const auto watching = watch(kName | kCount);
  for (int i = 1; i <= 10; ++i) {
    count.set(i);
    name.set(std::to_string(i));
  }
  time.run();
  EXPECT_EQ(told, 1);
  count.set(11);
  time.run();
  EXPECT_EQ(told, 2);
}

TEST_F(PublishedState, TellsNothingOfAnEqualValue) {
  const auto watching = watch(kName | kCount);
  name.set("first");
  count.set(0);
  time.run();
  EXPECT_EQ(told, 0);
}

TEST_F(PublishedState, TellsOfEveryValueThatCannotBeCompared) {
  const auto watching = watch(kOpaque);
  opaque.set({});
  time.run();
  EXPECT_EQ(told, 1);
}

TEST_F(PublishedState, TellsOfEveryEdit) {
  const auto watching = watch(kCount);
  count.edit([](int& value) { value += 5; });
  EXPECT_EQ(count(), 5);
  time.run();
  EXPECT_EQ(told, 1);
}

TEST_F(PublishedState, TellsOnlyOfTheFieldsThatAreWatched) {
  const auto watching = watch(kName);
  count.set(1);
  time.run();
  EXPECT_EQ(told, 0);
  count.set(2);
  name.set("second");
  time.run();
  EXPECT_EQ(told, 1);
}

TEST_F(PublishedState, TellsEachObserverInTheOrderTheyCame) {
  std::vector<int> order;
  const auto first = changes.observe(kName, [&] { order.push_back(1); });
  const auto second = changes.observe(kName, [&] { order.push_back(2); });
  name.set("second");
  time.run();
  EXPECT_THAT(order, ElementsAre(1, 2));
}

TEST_F(PublishedState, TellsNobodyWhoCameAfterTheTurn) {
  name.set("second");
  time.run();
  const auto watching = watch(kName);
  time.run();
  EXPECT_EQ(told, 0);
}

TEST_F(PublishedState, TellsOfAWriteMadeWhileTellingInTheTurnAfter) {
  const auto writing = changes.observe(kName, [&] {
    ++told;
    if (told < 3) name.set("again " + std::to_string(told));
  });
  name.set("second");
  time.run();
  EXPECT_EQ(told, 3);
}

TEST_F(PublishedState, LetsAnObserverEndItselfWhileItIsTold) {
  std::optional<Changes::Subscription> own;
  own = changes.observe(kName, [&] {
    ++told;
    own.reset();
  });
  const auto other = watch(kName);
  name.set("second");
  time.run();
  EXPECT_EQ(told, 2);
  name.set("third");
  time.run();
  EXPECT_EQ(told, 3);
}

TEST_F(PublishedState, LetsAnObserverEndOthersBeforeTheyAreTold) {
  std::optional<Changes::Subscription> later;
  const auto ending = changes.observe(kName, [&] { later.reset(); });
  later = watch(kName);
  name.set("second");
  time.run();
  EXPECT_EQ(told, 0);
}

TEST_F(PublishedState, LetsAnObserverBringAnotherWhoIsToldFromTheNextTurnOn) {
  std::vector<Changes::Subscription> more;
  const auto bringing = changes.observe(kName, [&] {
    if (more.empty()) more.push_back(watch(kName));
  });
  name.set("second");
  time.run();
  EXPECT_EQ(told, 0);
  name.set("third");
  time.run();
  EXPECT_EQ(told, 1);
}

TEST_F(PublishedState, IsWatchedNoLongerThanTheSubscription) {
  {
    const auto watching = watch(kName);
    name.set("second");
  }
  time.run();
  EXPECT_EQ(told, 0);
}

TEST_F(PublishedState, KeepsToASubscriptionThatMoved) {
  auto first = watch(kName);
  Changes::Subscription second;
  second = std::move(first);
  name.set("second");
  time.run();
  EXPECT_EQ(told, 1);
  second = Changes::Subscription{};
  name.set("third");
  time.run();
  EXPECT_EQ(told, 1);
}

TEST(EndOfChanges, LeavesSubscriptionsAndPostedTurnsHarmless) {
  VirtualTime time;
  int told = 0;
  Changes::Subscription watching;
  {
    Changes changes{time};
    watching = changes.observe(1, [&] { ++told; });
    changes.note(1);
  }
  time.run();
  EXPECT_EQ(told, 0);
  watching = Changes::Subscription{};
}

TEST(EndOfChanges, WhileTellingIsHarmless) {
  VirtualTime time;
  int told = 0;
  auto changes = std::make_unique<Changes>(time);
  const auto watching = changes->observe(1, [&] {
    ++told;
    changes.reset();
  });
  changes->note(1);
  time.run();
  EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace vellix
