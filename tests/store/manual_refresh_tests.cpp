// The refresh that the user asks for.
#include "store/store_test.hpp"

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
