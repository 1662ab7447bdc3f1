// Going out.
#include "store/store_test.hpp"

namespace vellix {
namespace {

constexpr const char* kLogoutLine = "POST api/logout";

class SignOut : public StoreTest {
 protected:
  void SetUp() override {
    serveBoard(boardOf({ticketAt("t1", 1)}));
    serveDetail(detailOf(ticketAt("t1", 1)));
    routes.set(kLogoutLine, answerOf(200, "{}"));
    poll();
    desk.time.run();
  }
};

TEST_F(SignOut, TakesAwayTokenBoardDetailsAndTag) {
  store().startLoop();
  ASSERT_FALSE(store().details().empty());
  store().signOut(false);
  EXPECT_FALSE(desk.tokens.item);
  EXPECT_FALSE(desk.api.token());
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(store().board());
  EXPECT_TRUE(store().details().empty());
  EXPECT_FALSE(store().etag);
  EXPECT_FALSE(store().looping());
}

TEST_F(SignOut, EndsTheNoteThatIsBeingWritten) {
  store().draft.set(DraftNote{"t1", 0, "supplier", 0.5, 0.5, 0, 0, std::nullopt});
  store().draftPin.set(std::pair{0.5, 0.5});
  store().draftFinding.set("f1");
  store().pinning.set(true);
  store().signOut(true);
  EXPECT_FALSE(store().draft());
  EXPECT_FALSE(store().draftPin());
  EXPECT_FALSE(store().draftFinding());
  EXPECT_FALSE(store().pinning());
}

TEST_F(SignOut, ByTheUserTellsTheServiceAfterwardsWithoutAuthorization) {
  store().signOut(false);
  EXPECT_EQ(desk.http.count(kLogoutLine), 0U);
  desk.time.run();
  const auto calls = desk.http.matching(kLogoutLine);
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0]->request.body, "{}");
  EXPECT_FALSE(calls[0]->has("Authorization"));
  EXPECT_FALSE(store().toast());
}

TEST_F(SignOut, ByTheUserIgnoresWhatTheServiceSays) {
  for (const HttpResult& result :
       std::vector<HttpResult>{answerOf(401), answerOf(500), std::unexpected(HttpError::other)}) {
    routes.set(kLogoutLine, result);
    store().signOut(false);
    desk.time.run();
    EXPECT_FALSE(store().toast());
    EXPECT_FALSE(store().problem());
  }
}

TEST_F(SignOut, ByTheServiceSaysSoAndTellsNobody) {
  store().signOut(true);
  desk.time.run();
  EXPECT_EQ(desk.http.count(kLogoutLine), 0U);
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  EXPECT_FALSE(desk.toast()->undoLabel);
}

TEST_F(SignOut, LeavesTheNextSessionAloneWithLateAnswers) {
  routes.leaveOpen(kStateLine);
  const std::size_t late = desk.http.exchanges.size();
  desk.tasks.start(store().refresh());
  desk.tasks.start(store().refresh());
  store().signOut(false);
  desk.time.run();
  desk.api.setToken("token-2");
  store().signedIn.set(true);
  answer(late, answerOf(200, jsonOf(boardOf({ticketOf("old")}))));
  EXPECT_FALSE(store().board());
  answer(late + 1, answerOf(401));
  EXPECT_TRUE(store().signedIn());
  EXPECT_EQ(desk.api.token(), "token-2");
  EXPECT_FALSE(store().toast());
}

TEST_F(SignOut, LeavesAloneWhatServesTheNextSession) {
  store().selection.set({"t1"});
  store().page.set({{"t1", 3}});
  store().focus.set("f1");
  store().viewVersion.set({{"t1", 2}});
  store().fileTags = {{"t1#0", "\"d1\""}};
  store().seenEvent = 9;
  store().stats.set(Stats{.at = 5});
  store().profile.set("a@b");
  store().busy.set({"note"});
  desk.defaults.texts = {{"LastEmail", "a@b"}, {"Queue", "reprint"}};
  desk.defaults.flags = {{"MineOnly", true}, {"DockBadge", false}};
  const Moment started = store().started;
  store().signOut(false);
  desk.time.run();
  EXPECT_EQ(store().selection(), std::set<std::string>{"t1"});
  EXPECT_EQ(store().page().at("t1"), 3);
  EXPECT_EQ(store().focus(), "f1");
  EXPECT_EQ(store().viewVersion().at("t1"), 2);
  EXPECT_EQ(store().fileTags.at("t1#0"), "\"d1\"");
  EXPECT_EQ(store().seenEvent, 9);
  EXPECT_EQ(store().started, started);
  EXPECT_EQ(store().stats()->at, 5);
  EXPECT_EQ(store().profile(), "a@b");
  EXPECT_TRUE(store().busy().contains("note"));
  EXPECT_EQ(desk.defaults.texts.at("LastEmail"), "a@b");
  EXPECT_EQ(desk.defaults.texts.at("Queue"), "reprint");
  EXPECT_TRUE(desk.defaults.flags.at("MineOnly"));
  EXPECT_FALSE(desk.defaults.flags.at("DockBadge"));
}

}  // namespace
}  // namespace vellix
