// The wrapper that actions run through.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

class Action : public StoreTest {
 protected:
  Resolver<API::Result<Done>> work;
  int begun = 0;

  Task<API::Result<Done>> waitForWork() {
    ++begun;
    const auto pending = work.pending();
    co_return co_await pending;
  }
  void act(std::optional<std::string> ok = "Done it.", const std::string& key = "key") {
    store().action(key, std::move(ok), [this] { return waitForWork(); });
  }
  void end(API::Result<Done> result) {
    work(std::move(result));
    desk.time.run();
  }
};

TEST_F(Action, HoldsItsKeyAtOnceAndBeginsInATurnOfItsOwn) {
  act();
  EXPECT_THAT(store().busy(), ElementsAre("key"));
  EXPECT_EQ(begun, 0);
  desk.time.run();
  EXPECT_EQ(begun, 1);
  EXPECT_THAT(store().busy(), ElementsAre("key"));
  EXPECT_FALSE(store().toast());
}

TEST_F(Action, SaysSoThenFetchesTheWholeBoardAndOnlyThenLetsGo) {
  store().etag = "\"b1\"";
  act();
  desk.time.run();
  EXPECT_EQ(polls(), 0U);
  end(Done{});
  EXPECT_EQ(desk.toastText(), "Done it.");
  EXPECT_FALSE(desk.toast()->undoLabel);
  EXPECT_FALSE(desk.toast()->undo);
  ASSERT_EQ(polls(), 1U);
  EXPECT_FALSE(desk.http.exchanges[0].has("If-None-Match"));
  EXPECT_THAT(store().busy(), ElementsAre("key"));
  answer(0, answerOf(200, jsonOf(boardOf({})), "\"b2\""));
  EXPECT_TRUE(store().busy().empty());
  EXPECT_EQ(store().etag, "\"b2\"");
}

TEST_F(Action, LetsGoAlsoWhenTheRefreshFails) {
  routes.set(kStateLine, std::unexpected(HttpError::notConnected));
  act();
  desk.time.run();
  end(Done{});
  EXPECT_TRUE(store().busy().empty());
  EXPECT_EQ(desk.toastText(), "Done it.");
  EXPECT_EQ(store().problem(), kOfflineText);
  EXPECT_FALSE(store().etag) << "the next poll is unconditional too";
}

TEST_F(Action, WithoutASuccessTextShowsNoToastButRefreshes) {
  serveBoard(boardOf({}));
  act(std::nullopt);
  desk.time.run();
  end(Done{});
  EXPECT_FALSE(store().toast());
  EXPECT_EQ(polls(), 1U);
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(Action, RefreshesTheDetailOnlyWhenTheBoardSaysItMoved) {
  store().selection.set({"t1"});
  serveBoard(boardOf({ticketAt("t1", 2)}));
  store().details.set({{"t1", detailOf(ticketAt("t1", 1))}});
  serveDetail(detailOf(ticketAt("t1", 2)));
  act();
  desk.time.run();
  end(Done{});
  EXPECT_EQ(detailRequests(), 1U);
  EXPECT_EQ(store().details().at("t1").file.rev, 2);
}

struct FailureCase {
  const char* name;
  Failure failure;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(FailureCase, (), (name, text))

class FailedActions : public Action, public testing::WithParamInterface<FailureCase> {};

TEST_P(FailedActions, AreToldWithoutARefresh) {
  store().etag = "\"b1\"";
  act();
  desk.time.run();
  end(std::unexpected(GetParam().failure));
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_FALSE(desk.toast()->undoLabel);
  EXPECT_TRUE(store().busy().empty());
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_EQ(store().etag, "\"b1\"");
  EXPECT_TRUE(store().signedIn());
}

INSTANTIATE_TEST_SUITE_P(
    All, FailedActions,
    testing::Values(
        FailureCase{"Refused", Failure::server("Not yours."), "Not yours."},
        FailureCase{"Offline", Failure::offline("Off."), "Off."},
        FailureCase{"Unwritable", Failure::unwritable("nan"), "That didn't go through. Try again."},
        FailureCase{"Unreadable", Failure::unreadable("?"), "That didn't go through. Try again."},
        FailureCase{"Cancelled", Failure::cancelled(), "That didn't go through. Try again."}),
    [](const auto& each) { return each.param.name; });

TEST_F(Action, ThatIsNotKnownSignsOut) {
  store().board.set(boardOf({}));
  act();
  desk.time.run();
  end(std::unexpected(Failure::signedOut()));
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(store().board());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  EXPECT_TRUE(store().busy().empty());
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST_F(Action, IsNotRefusedWhileItsKeyIsHeld) {
  act("Once.");
  act("Twice.");
  desk.time.run();
  EXPECT_EQ(begun, 2);
  EXPECT_EQ(store().busy().size(), 1U);
}

TEST_F(Action, HoldsKeysBesideOneAnother) {
  serveBoard(boardOf({}));
  act("One.", "a");
  desk.time.run();
  store().action("b", std::nullopt, [this] { return waitForWork(); });
  EXPECT_THAT(store().busy(), ElementsAre("a", "b"));
  end(Done{});
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(Action, ThatSucceedsAfterASignOutAsksForNothing) {
  act();
  desk.time.run();
  store().signOut(true);
  end(Done{});
  EXPECT_EQ(polls(), 0U);
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(Action, EndsWithTheStore) {
  act();
  desk.time.run();
  desk.endStore();
  end(Done{});
  EXPECT_TRUE(desk.http.exchanges.empty());
}

}  // namespace
}  // namespace vellix
