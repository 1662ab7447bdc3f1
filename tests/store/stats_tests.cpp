// A person's page and the figures on it.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

constexpr const char* kStatsLine = "GET api/stats";
constexpr const char* kRenny = "renny@tessarine.example";

Stats statsOf(Int reviewed) {
  PersonStats person;
  person.reviewed = reviewed;
  return {.at = 1, .users = {{kRenny, person}}};
}

class StatsTest : public StoreTest {
 protected:
  void serveStats(Int reviewed) {
    routes.set(kStatsLine, answerOf(200, jsonOf(statsOf(reviewed))));
  }
  Int reviewed() { return store().stats() ? store().stats()->users.at(kRenny).reviewed : -1; }
  void open() {
    store().openProfile(kRenny);
    desk.time.run();
  }
};

TEST_F(StatsTest, AnOpenedPageFetchesThem) {
  open();
  EXPECT_EQ(store().profile(), kRenny);
  EXPECT_THAT(lines(), ElementsAre(kStatsLine));
  EXPECT_EQ(reviewed(), -1);
  answer(0, answerOf(200, jsonOf(statsOf(9))));
  EXPECT_EQ(reviewed(), 9);
}

TEST_F(StatsTest, EachOpeningFetchesThemAnew) {
  serveStats(9);
  open();
  store().openProfile(std::nullopt);
  EXPECT_FALSE(store().profile());
  serveStats(10);
  open();
  EXPECT_EQ(reviewed(), 10);
  EXPECT_EQ(desk.http.count(kStatsLine), 2U);
}

TEST_F(StatsTest, AClosedPageFetchesNothing) {
  store().openProfile(std::nullopt);
  serveBoard(boardOf({}));
  poll();
  EXPECT_EQ(desk.http.count(kStatsLine), 0U);
}

TEST_F(StatsTest, APollFetchesThemWhileThePageIsOpenAlsoWhenTheBoardIsUnchanged) {
  serveStats(9);
  serveBoard(boardOf({ticketAt("t1", 1)}));
  serveDetail(detailOf(ticketAt("t1", 1)));
  store().profile.set(kRenny);
  poll();
  EXPECT_EQ(desk.http.count(kStatsLine), 1U);
  EXPECT_EQ(detailRequests(), 1U);
  serveStats(10);
  routes.set(kStateLine, answerOf(304));
  poll();
  EXPECT_EQ(reviewed(), 10);
}

TEST_F(StatsTest, APollThatFailsDoesNot) {
  store().profile.set(kRenny);
  routes.set(kStateLine, answerOf(500));
  poll();
  EXPECT_EQ(desk.http.count(kStatsLine), 0U);
}

struct FailureCase {
  const char* name;
  HttpResult result;
};
BOOST_DESCRIBE_STRUCT(FailureCase, (), (name))

class FailedStats : public StatsTest, public testing::WithParamInterface<FailureCase> {};

TEST_P(FailedStats, LeaveWhatWasThereAndSayNothing) {
  serveStats(9);
  open();
  routes.set(kStatsLine, GetParam().result);
  open();
  EXPECT_EQ(reviewed(), 9);
  EXPECT_EQ(desk.http.count(kStatsLine), 2U);
  EXPECT_FALSE(store().toast());
  EXPECT_FALSE(store().problem());
  EXPECT_TRUE(store().signedIn());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FailedStats,
    testing::Values(FailureCase{"Refused", answerOf(500)}, FailureCase{"Unknown", answerOf(401)},
                    FailureCase{"Offline", std::unexpected(HttpError::notConnected)},
                    FailureCase{"Unreadable", answerOf(200, "{")},
                    FailureCase{"WithoutUsers", answerOf(200, R"({"at":1})")}),
    [](const auto& tested) { return std::string{tested.param.name}; });

TEST_F(StatsTest, AnOlderAnswerDoesNotUndoALaterOne) {
  open();
  open();
  answer(1, answerOf(200, jsonOf(statsOf(10))));
  answer(0, answerOf(200, jsonOf(statsOf(9))));
  EXPECT_EQ(reviewed(), 10);
}

TEST_F(StatsTest, AnAnswerAfterASignOutIsDropped) {
  open();
  store().signOut(false);
  answer(0, answerOf(200, jsonOf(statsOf(9))));
  EXPECT_FALSE(store().stats());
}

TEST_F(StatsTest, TheyServeTheNextSessionAsWell) {
  serveStats(9);
  open();
  store().signOut(false);
  EXPECT_EQ(reviewed(), 9);
  EXPECT_EQ(store().profile(), kRenny);
}

TEST_F(StatsTest, AStagedWindowAsksForNone) {
  store().pollNothing();
  open();
  EXPECT_EQ(store().profile(), kRenny);
  EXPECT_EQ(desk.http.count(kStatsLine), 0U);
}

TEST_F(StatsTest, ChoosingATicketClosesThePage) {
  store().profile.set(kRenny);
  store().select({"t1"});
  EXPECT_FALSE(store().profile());
  store().profile.set(kRenny);
  store().toggleSelected("t2");
  EXPECT_FALSE(store().profile());
}

TEST_F(StatsTest, WhatIsChosenForThePersonLeavesItOpen) {
  store().profile.set(kRenny);
  serveStats(9);
  serveBoard(boardOf({ticketAt("t1", 1)}));
  serveDetail(detailOf(ticketAt("t1", 1)));
  poll();
  EXPECT_THAT(store().selection(), ElementsAre("t1"));
  EXPECT_EQ(store().profile(), kRenny);
}

}  // namespace
}  // namespace vellix
