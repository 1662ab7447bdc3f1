// Which pictures are asked for first, and which are given up.
#include <gmock/gmock.h>

#include "pictures/images_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ImagesWanted : public ImagesTest {
 protected:
  // Takes up all that may be under way at once.
  void fillTheLane() {
    for (std::size_t i = 0; i < kMostInALane; ++i) ask("full" + std::to_string(i), {100, {}});
  }
  void freeAPlace() {
    desk.http.answer(freed++, answerOf(404));
    desk.time.run();
  }
  // The keys that were asked for after the lane was full.
  std::vector<std::string> after() {
    std::vector<std::string> keys;
    for (std::size_t i = kMostInALane; i < desk.http.exchanges.size(); ++i) {
      keys.push_back(desk.http.exchanges[i].line().substr(lineOf("").size()));
    }
    return keys;
  }
  bool isGivenUp(std::size_t index) { return desk.http.exchanges.at(index).resolver.resolved(); }
  // As long as what is under way may still take when nobody waits for it.
  void wait() { desk.time.advance(Milliseconds{500}); }
  void stopNow(std::stop_source& stop) {
    stop.request_stop();
    desk.time.run();
  }
  static Page pageOf(const std::string& key) {
    Page page;
    page.img = key;
    return page;
  }

  std::stop_source one;
  std::stop_source other;
  std::size_t freed = 0;
};

TEST_F(ImagesWanted, NoMoreAreUnderWayThanTheLaneTakes) {
  fillTheLane();
  ask("a");
  EXPECT_THAT(after(), IsEmpty());
  freeAPlace();
  EXPECT_THAT(after(), ElementsAre("a"));
}

TEST_F(ImagesWanted, WhatIsWantedMostGoesFirstAndEqualsInTheirOrder) {
  fillTheLane();
  ask("ahead");
  ask("small", {10, {}});
  ask("large", {50, {}});
  ask("smaller", {10, {}});
  for (int i = 0; i < 4; ++i) freeAPlace();
  EXPECT_THAT(after(), ElementsAre("large", "small", "smaller", "ahead"));
}

TEST_F(ImagesWanted, OfOneTurnTheMostWantedGoesFirstToo) {
  for (std::size_t i = 0; i < kMostInALane; ++i) begin("thumb" + std::to_string(i), {10, {}});
  begin("page", {50, {}});
  desk.time.run();
  EXPECT_EQ(desk.http.exchanges.at(0).line(), lineOf("page"));
}

TEST_F(ImagesWanted, WhoJoinsMakesItMoreUrgent) {
  fillTheLane();
  ask("a", {10, {}});
  ask("b");
  ask("b", {50, {}});
  freeAPlace();
  EXPECT_THAT(after(), ElementsAre("b"));
}

TEST_F(ImagesWanted, WhoLeavesTakesTheUrgencyAlong) {
  fillTheLane();
  ask("a", {10, {}});
  ask("b");
  ask("b", {50, one.get_token()});
  stopNow(one);
  freeAPlace();
  EXPECT_THAT(after(), ElementsAre("a"));
}

TEST_F(ImagesWanted, WhatNobodyWantsAnyMoreIsNotAskedFor) {
  fillTheLane();
  auto& place = ask("a", {10, one.get_token()});
  ask("b");
  stopNow(one);
  EXPECT_EQ(place.value(), nullptr);
  freeAPlace();
  freeAPlace();
  EXPECT_THAT(after(), ElementsAre("b"));
}

TEST_F(ImagesWanted, WhatIsUnderWayIsGivenUpAndItsPlaceIsAnothers) {
  auto& place = ask("a", {10, one.get_token()});
  for (std::size_t i = 1; i < kMostInALane; ++i) ask("full" + std::to_string(i));
  ask("b");
  stopNow(one);
  EXPECT_FALSE(isGivenUp(0)) << "the answer may be near";
  wait();
  EXPECT_TRUE(isGivenUp(0));
  EXPECT_EQ(place.value(), nullptr);
  EXPECT_THAT(after(), ElementsAre("b"));
  EXPECT_TRUE(files.files.empty());
}

TEST_F(ImagesWanted, WhatComesSoonAfterItWasLeftIsTaken) {
  ask("a", {10, one.get_token()});
  stopNow(one);
  desk.http.answer(0, answerOf(200, "picture"));
  desk.time.run();
  EXPECT_TRUE(images().cached("a"));
  wait();
  EXPECT_EQ(requests(), 1U);
}

TEST_F(ImagesWanted, WhoComesBackInTimeWaitsForTheSameRequest) {
  ask("a", {10, one.get_token()});
  stopNow(one);
  auto& back = ask("a", {10, other.get_token()});
  wait();
  EXPECT_FALSE(isGivenUp(0));
  desk.http.answer(0, answerOf(200, "picture"));
  desk.time.run();
  EXPECT_TRUE(back.value());
  EXPECT_EQ(requests(), 1U);
}

TEST_F(ImagesWanted, EachPartingHasItsOwnTime) {
  ask("a", {10, one.get_token()});
  stopNow(one);
  desk.time.advance(Milliseconds{300});
  ask("a", {10, other.get_token()});
  stopNow(other);
  desk.time.advance(Milliseconds{300});
  EXPECT_FALSE(isGivenUp(0));
  desk.time.advance(Milliseconds{200});
  EXPECT_TRUE(isGivenUp(0));
}

TEST_F(ImagesWanted, WhatAnotherStillWaitsForGoesOn) {
  auto& left = ask("a", {10, one.get_token()});
  auto& stays = ask("a", {10, other.get_token()});
  stopNow(one);
  wait();
  EXPECT_FALSE(isGivenUp(0));
  desk.http.answer(0, answerOf(200, "picture"));
  desk.time.run();
  EXPECT_TRUE(stays.value());
  EXPECT_TRUE(left.value());
  EXPECT_EQ(requests(), 1U);
}

TEST_F(ImagesWanted, AKeyThatIsAskedForAgainAfterADropIsLoadedAgain) {
  auto& dropped = ask("a", {10, one.get_token()});
  stopNow(one);
  wait();
  auto& again = ask("a", {10, other.get_token()});
  EXPECT_EQ(dropped.value(), nullptr);
  ASSERT_EQ(requests("a"), 2U);
  EXPECT_FALSE(again);
  serve("a", "picture");
  desk.http.answer(1, answerOf(200, "picture"));
  desk.time.run();
  EXPECT_TRUE(again.value());
}

TEST_F(ImagesWanted, OneThatWaitsAgainAfterADropIsAskedForOnce) {
  fillTheLane();
  ask("a", {10, one.get_token()});
  stopNow(one);
  ask("a", {10, other.get_token()});
  freeAPlace();
  freeAPlace();
  EXPECT_THAT(after(), ElementsAre("a"));
}

TEST_F(ImagesWanted, WhatHasArrivedIsKeptThoughNobodyWantsItAnyMore) {
  auto& place = ask("a", {10, one.get_token()});
  desk.http.exchanges[0].resolver(answerOf(200, "picture"));
  ASSERT_EQ(decoder.decoded.size(), 1U);
  stopNow(one);
  EXPECT_TRUE(place.value());
  EXPECT_TRUE(images().cached("a"));
}

TEST_F(ImagesWanted, WhoHasLeftBeforeAsksForNothing) {
  one.request_stop();
  EXPECT_EQ(ask("a", {10, one.get_token()}).value(), nullptr);
  EXPECT_EQ(requests(), 0U);
}

TEST_F(ImagesWanted, WhatIsAtHandIsGivenWhoeverLeaves) {
  files.files["a"] = "picture";
  one.request_stop();
  EXPECT_TRUE(ask("a", {10, one.get_token()}).value());
}

TEST_F(ImagesWanted, WhoLeavesInTheMiddleOfAnAnswerHarmsNobody) {
  const auto leaving = [](Task<PictureHandle> loading, std::stop_source stop) -> Task<> {
    const auto picture = co_await std::move(loading);
    stop.request_stop();
  };
  desk.tasks.start(leaving(images().image("a"), one));
  auto& place = ask("a", {10, one.get_token()});
  serve("a", "picture");
  desk.http.answer(0, answerOf(200, "picture"));
  desk.time.run();
  EXPECT_TRUE(place.value());
}

TEST_F(ImagesWanted, PagesLeftAreFetchedAheadNoMore) {
  images().prefetch({pageOf("a"), pageOf("b")});
  desk.time.run();
  ASSERT_EQ(requests(), 2U);
  images().prefetch({pageOf("b"), pageOf("c")});
  wait();
  EXPECT_TRUE(isGivenUp(0));
  EXPECT_FALSE(isGivenUp(1)) << "it is still beside the page on show";
  EXPECT_EQ(requests("b"), 1U);
  EXPECT_EQ(requests("c"), 1U);
}

TEST_F(ImagesWanted, APageThatAViewWaitsForComesAlsoWhenItIsLeft) {
  images().prefetch({pageOf("a")});
  desk.time.run();
  auto& view = ask("a", {10, one.get_token()});
  images().prefetch({});
  wait();
  EXPECT_FALSE(isGivenUp(0));
  EXPECT_FALSE(view);
}

TEST_F(ImagesWanted, TheRestOfAPageLeftIsNotAskedFor) {
  Page page = pageOf("own");
  page.refs = {{"submitted", RefPage{.img = "ref"}}};
  images().prefetch({page});
  desk.time.run();
  ask("own", {10, {}});
  images().prefetch({});
  desk.http.answer(0, answerOf(200, "picture"));
  desk.time.run();
  EXPECT_EQ(requests("ref"), 0U);
}

TEST_F(ImagesWanted, PagesComeAgainWhenTheyAreWantedAgain) {
  images().prefetch({pageOf("a")});
  desk.time.run();
  images().prefetch({});
  wait();
  images().prefetch({pageOf("a")});
  desk.time.run();
  EXPECT_EQ(requests("a"), 2U);
  EXPECT_FALSE(isGivenUp(1));
}

TEST_F(ImagesWanted, PagesThatFailedAreFetchedAheadAgain) {
  routes.set(lineOf("a"), answerOf(503));
  images().prefetch({pageOf("a")});
  desk.time.run();
  images().prefetch({pageOf("a")});
  desk.time.run();
  EXPECT_EQ(requests("a"), 2U);
}

}  // namespace
}  // namespace vellix
