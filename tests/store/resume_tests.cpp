// Coming in by a token that was kept, and came late.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

class Resumed : public StoreTest {
 protected:
  Resumed() : StoreTest(std::nullopt) { serveBoard(boardOf({})); }
};

TEST_F(Resumed, WithATokenThatCameLateItFetchesTheBoard) {
  ASSERT_FALSE(store().signedIn());
  desk.tokens.item = "late";
  store().resume();
  EXPECT_TRUE(store().signedIn());
  EXPECT_TRUE(store().looping());
  desk.time.run();
  EXPECT_TRUE(store().board());
  EXPECT_EQ(polls(), 1U);
  EXPECT_EQ(desk.http.exchanges.at(0).header("Authorization"), "Bearer late");
  EXPECT_THAT(desk.tokens.calls, testing::IsEmpty()) << "it is kept already";
}

TEST_F(Resumed, WithoutATokenItStaysSignedOut) {
  store().resume();
  desk.time.run();
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(store().looping());
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST_F(Resumed, ASessionThatRunsAlreadyGoesOnAsItIs) {
  desk.tokens.item = "early";
  store().startLoop();
  desk.time.run();
  ASSERT_EQ(polls(), 1U);
  store().resume();
  desk.time.run();
  EXPECT_EQ(polls(), 1U);
}

TEST_F(Resumed, ALateTokenThatTheServiceRefusesEndsInTheSignInScreen) {
  store();
  routes.set(kStateLine, answerOf(401));
  desk.tokens.item = "stale";
  store().resume();
  desk.time.run();
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(store().looping());
  EXPECT_FALSE(desk.tokens.item);
  EXPECT_EQ(desk.toastText(), kSignedOutText);
}

}  // namespace
}  // namespace vellix
