// The refresh that the user asks for.
#include "store/sign_in_test.hpp"

namespace vellix {
namespace {

class ManualRefresh : public StoreTest {
 protected:
  void holdABoard() {
    serveBoard(boardOf({}));
    poll();
  }
  void refreshByHand() {
    store().requestRefresh();
    EXPECT_TRUE(store().refreshing());
    desk.time.run();
  }
};

TEST_F(ManualRefresh, AsksForTheWholeBoardAndSaysSo) {
  holdABoard();
  refreshByHand();
  EXPECT_FALSE(desk.http.matching(kStateLine).back()->has("If-None-Match"));
  EXPECT_FALSE(store().refreshing());
  EXPECT_EQ(desk.toastText(), "Up to date.");
  EXPECT_FALSE(desk.toast()->undoLabel);
  EXPECT_EQ(store().etag, "\"b1\"");
}

TEST_F(ManualRefresh, IsUnderWayUntilTheAnswerIsIn) {
  store().requestRefresh();
  desk.time.run();
  EXPECT_TRUE(store().refreshing());
  EXPECT_FALSE(store().toast());
  answer(0, answerOf(200, jsonOf(boardOf({}))));
  EXPECT_FALSE(store().refreshing());
  EXPECT_EQ(desk.toastText(), "Up to date.");
}

TEST_F(ManualRefresh, EndsInTheOfflineTextWhileTheNetworkIsDown) {
  holdABoard();
  routes.set(kStateLine, std::unexpected(HttpError::notConnected));
  refreshByHand();
  EXPECT_EQ(desk.toastText(), kOfflineText);
  EXPECT_FALSE(store().refreshing());
}

TEST_F(ManualRefresh, EndsInTheTextOfWhateverWentWrong) {
  for (const auto& [result, text] : std::vector<std::pair<HttpResult, std::string>>{
           {answerOf(500), kRefusedText}, {answerOf(200, "?"), kUnreadableText}}) {
    routes.set(kStateLine, result);
    refreshByHand();
    EXPECT_EQ(desk.toastText(), text);
  }
}

TEST_F(ManualRefresh, LeavesTheLastWordToASessionThatEnded) {
  holdABoard();
  routes.set(kStateLine, answerOf(401));
  refreshByHand();
  EXPECT_FALSE(store().refreshing());
  EXPECT_FALSE(store().signedIn());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
}

// Asked for by somebody who goes before it is answered, and somebody else comes.
class RefreshAcrossSessions : public ManualRefresh {
 protected:
  void SetUp() override {
    holdABoard();
    routes.leaveOpen(kStateLine);
    routes.set(kExchangeLine, answerOf(200, kExchangeAnswer));
    refreshByHand();
    late = desk.http.exchanges.size() - 1;
    store().signOut(false);
    EXPECT_FALSE(store().refreshing());
    serveBoard(boardOf({}));
    desk.tasks.start(store().completeSignIn(kCallback));
    desk.time.run();
    ASSERT_TRUE(store().signedIn());
  }
  std::size_t late = 0;
};

TEST_F(RefreshAcrossSessions, SaysNothingInTheNextOne) {
  EXPECT_FALSE(store().refreshing());
  answer(late, answerOf(500));
  EXPECT_FALSE(store().toast());
  EXPECT_FALSE(store().problem());
}

TEST_F(RefreshAcrossSessions, LeavesTheOneOfTheNextAlone) {
  routes.leaveOpen(kStateLine);
  refreshByHand();
  answer(late, answerOf(200, jsonOf(boardOf({}))));
  EXPECT_TRUE(store().refreshing());
  EXPECT_FALSE(store().toast());
  answer(desk.http.exchanges.size() - 1, answerOf(500));
  EXPECT_FALSE(store().refreshing());
  EXPECT_EQ(desk.toastText(), kRefusedText);
}

TEST_F(ManualRefresh, AskedForInTheLastTurnOfASessionIsNotSentInTheNext) {
  holdABoard();
  store().requestRefresh();
  store().signOut(true);
  store().signedIn.set(true);
  desk.time.run();
  EXPECT_EQ(polls(), 1U);
  EXPECT_FALSE(store().refreshing());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
}

TEST_F(ManualRefresh, GivesEachToastAnIdentityOfItsOwn) {
  holdABoard();
  refreshByHand();
  const Toast first = *desk.toast();
  refreshByHand();
  EXPECT_EQ(desk.toastText(), first.text);
  EXPECT_FALSE(*desk.toast() == first);
}

}  // namespace
}  // namespace vellix
