#include "gateway/late_token_store.hpp"

#include <gmock/gmock.h>

#include "support/awaiting.hpp"
#include "support/desk.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A place whose writing ends when the test says so.
class FakePlace : public DurableTokenStore {
 public:
  std::optional<std::string> read() override { return tokens.read(); }
  void remove() override { tokens.remove(); }
  void add(const std::string& token) override { tokens.add(token); }
  Pending<> settled() override { return writing.pending(); }

  FakeTokenStore tokens;
  Resolver<> writing;
};

Task<> mark(Pending<> pending, bool* done) {
  co_await pending;
  *done = true;
}

class LateTokenStoreTest : public testing::Test {
 protected:
  void come(std::optional<std::string> token = std::nullopt) {
    place->tokens.item = std::move(token);
    opening(place);
    time.run();
  }
  void watch(Pending<> pending, bool* done) { tasks.start(mark(std::move(pending), done)); }

  VirtualTime time;
  std::shared_ptr<FakePlace> place = std::make_shared<FakePlace>();
  Resolver<LateTokenStore::Place> opening;
  LateTokenStore store{opening.pending(), time};
  TaskScope tasks;
};

TEST_F(LateTokenStoreTest, ReadsAsEmptyUntilItsPlaceHasCome) {
  EXPECT_EQ(store.read(), std::nullopt);
  EXPECT_FALSE(store.primed().resolved());
  come("kept");
  EXPECT_TRUE(store.primed().resolved());
  EXPECT_EQ(store.read(), "kept");
  EXPECT_THAT(place->tokens.calls, IsEmpty());
}

TEST_F(LateTokenStoreTest, HandsOnWhatComesAfterwards) {
  come("kept");
  store.remove();
  store.add("next");
  EXPECT_THAT(place->tokens.calls, ElementsAre("remove", "add next"));
  EXPECT_EQ(store.read(), "next");
}

TEST_F(LateTokenStoreTest, PrefersWhatWasWrittenMeanwhile) {
  store.remove();
  store.add("fresh");
  EXPECT_EQ(store.read(), "fresh");
  come("kept");
  EXPECT_EQ(store.read(), "fresh");
  EXPECT_THAT(place->tokens.calls, ElementsAre("remove", "add fresh"));
}

TEST_F(LateTokenStoreTest, RemovesThereWhatWasRemovedMeanwhile) {
  store.add("fresh");
  store.remove();
  EXPECT_EQ(store.read(), std::nullopt);
  come("kept");
  EXPECT_EQ(store.read(), std::nullopt);
  EXPECT_THAT(place->tokens.calls, ElementsAre("remove"));
}

TEST_F(LateTokenStoreTest, IsWaitedForNoLongerThanThePatience) {
  bool shown = false;
  watch(store.primedWithin(Milliseconds{2'000}), &shown);
  time.advance(Milliseconds{1'999});
  EXPECT_FALSE(shown);
  time.advance(Milliseconds{1});
  EXPECT_TRUE(shown);
  EXPECT_FALSE(store.primed().resolved());
  come("kept");
  EXPECT_TRUE(store.primed().resolved());
}

TEST_F(LateTokenStoreTest, IsWaitedForNoLongerThanItTakes) {
  bool shown = false;
  watch(store.primedWithin(Milliseconds{2'000}), &shown);
  time.advance(Milliseconds{10});
  come("kept");
  EXPECT_TRUE(shown);
  time.advance(Milliseconds{5'000});
  EXPECT_TRUE(store.primedWithin(Milliseconds{2'000}).resolved());
}

TEST_F(LateTokenStoreTest, HasSettledAtOnceWithNothingWritten) {
  bool settled = false;
  watch(store.settled(), &settled);
  EXPECT_FALSE(settled) << "in a later turn";
  time.run();
  EXPECT_TRUE(settled);
}

TEST_F(LateTokenStoreTest, SettlesOnceItsPlaceHasWhatWasWritten) {
  bool settled = false;
  store.add("fresh");
  watch(store.settled(), &settled);
  time.run();
  EXPECT_FALSE(settled);
  come();
  EXPECT_FALSE(settled);
  place->writing();
  EXPECT_TRUE(settled);
}

TEST_F(LateTokenStoreTest, SettlesAsItsPlaceDoesAfterwards) {
  bool settled = false;
  come();
  watch(store.settled(), &settled);
  time.run();
  EXPECT_FALSE(settled);
  place->writing();
  EXPECT_TRUE(settled);
}

TEST(LateTokenStoreEnd, LeavesNothingBehindThatWaits) {
  VirtualTime time;
  const Resolver<LateTokenStore::Place> opening;
  {
    LateTokenStore store{opening.pending(), time};
    store.add("fresh");
    store.settled();
    store.primedWithin(Milliseconds{100});
  }
  opening(std::make_shared<FakePlace>());
  time.advance(Milliseconds{200});
}

}  // namespace
}  // namespace vellix
