// What comes between the press and the end of an upload.
#include "store/revision_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

class RevisionMeanwhile : public RevisionTest {
 protected:
  static constexpr const char* kUploaded = "Uploaded v4. The Mac mini is checking it against v3.";
  void nextSession() {
    store().signOut(false);
    desk.time.run();
    desk.api.setToken("token-2");
    store().signedIn.set(true);
  }
};

TEST_F(RevisionMeanwhile, TwoPressesSendItOnce) {
  store().uploadRevision(file, kPdf, "");
  store().uploadRevision(file, kPdf, "");
  desk.time.run();
  upload();
  EXPECT_EQ(desk.http.count(kPut), 1U);
  EXPECT_THAT(desk.files.opened, ElementsAre(kPdf));
  routes.set(kStateLine, answerOf(304));
  routes.set(kDetailLine, answerOf(304));
  answer(0, answerOf(200, "{}"));
  EXPECT_TRUE(store().busy().empty());
  upload();
  EXPECT_EQ(desk.http.count(kPut), 2U) << "the one before has ended";
}

TEST_F(RevisionMeanwhile, AFailedOneMayBeSentAgain) {
  upload();
  answer(0, answerOf(500));
  upload();
  EXPECT_EQ(desk.http.count(kPut), 2U);
  EXPECT_THAT(store().busy(), ElementsAre("revision"));
}

TEST_F(RevisionMeanwhile, APollTakesNothingAway) {
  store().viewVersion.set({{"t1", 2}});
  store().page.set({{"t1", 4}});
  store().details.set({{"t1", detailOf(ticketAt("t1", 1, 2))}});
  serveBoard(boardOf({file}));
  upload();
  poll();
  EXPECT_THAT(store().busy(), ElementsAre("revision"));
  EXPECT_EQ(store().viewVersion().at("t1"), 2);
  EXPECT_EQ(store().page().at("t1"), 4);
  EXPECT_FALSE(store().toast());
  EXPECT_EQ(desk.http.count(kPut), 1U);
}

TEST_F(RevisionMeanwhile, ATicketThatHasGoneIsNotFetched) {
  upload();
  serveBoard(boardOf({ticketAt("t2", 1)}));
  answer(0, answerOf(200, R"({"version":4})"));
  EXPECT_EQ(desk.toastText(), kUploaded);
  EXPECT_EQ(detailRequests(), 0U);
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(RevisionMeanwhile, AnotherTicketStaysOnShowAsItIs) {
  store().page.set({{"t1", 4}, {"t2", 2}});
  upload();
  store().select({"t2"});
  store().focus.set("f1");
  store().details.edit([](auto& all) { all.insert_or_assign("t2", detailOf(ticketAt("t2", 1))); });
  serveBoard(boardOf({nextVersion(), ticketAt("t2", 1)}));
  serveDetail(detailOf(nextVersion()));
  answer(0, answerOf(200, R"({"version":4})"));
  EXPECT_THAT(store().selection(), ElementsAre("t2"));
  EXPECT_EQ(store().focus(), "f1");
  EXPECT_EQ(store().page(), (std::map<std::string, Int>{{"t1", 0}, {"t2", 2}}));
  EXPECT_EQ(detailRequests("t2"), 0U);
  EXPECT_EQ(detailRequests("t1"), 1U) << "its own";
  EXPECT_EQ(store().details().at("t1").version, 4);
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(RevisionMeanwhile, AnOlderVersionStillOnItsWayDoesNotComeBack) {
  store().viewVersion.set({{"t1", 2}});
  upload();
  load(file, true);
  ASSERT_EQ(desk.http.exchanges[1].line(), "GET api/files/t1?v=2");
  serveBoard(boardOf({nextVersion()}));
  serveDetail(detailOf(nextVersion()));
  answer(0, answerOf(200, R"({"version":4})"));
  answer(1, answerOf(200, jsonOf(detailOf(ticketAt("t1", 1, 2)))));
  EXPECT_EQ(store().currentDetail()->version, 4);
}

TEST_F(RevisionMeanwhile, ASignOutBeforeItsTurnSendsNothing) {
  store().uploadRevision(file, kPdf, "");
  store().signOut(true);
  desk.time.run();
  EXPECT_TRUE(desk.files.opened.empty());
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_TRUE(store().busy().empty());
}

// Signs out in the first turn of those that the file takes to open.
TEST_F(RevisionMeanwhile, ASignOutWhileTheFileIsOpenedSendsNothing) {
  store().uploadRevision(file, kPdf, "");
  desk.time.post([this] { nextSession(); });
  desk.time.run();
  EXPECT_THAT(desk.files.opened, ElementsAre(kPdf));
  EXPECT_EQ(desk.http.count(kPut), 0U);
  EXPECT_FALSE(store().toast());
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(RevisionMeanwhile, AnAnswerAfterASignOutIsNobodys) {
  for (const HttpResult& late :
       {HttpResult{answerOf(200, R"({"version":4})")}, HttpResult{answerOf(401)},
        HttpResult{answerOf(500)}, HttpResult{std::unexpected(HttpError::bodyLost)}}) {
    store().viewVersion.set({{"t1", 2}});
    store().page.set({{"t1", 4}});
    upload();
    const std::size_t put = desk.http.exchanges.size() - 1;
    nextSession();
    const std::size_t sent = desk.http.exchanges.size();
    EXPECT_THAT(store().busy(), ElementsAre("revision")) << "a PUT that cannot be stopped";
    answer(put, late);
    EXPECT_FALSE(store().toast());
    EXPECT_TRUE(store().signedIn());
    EXPECT_EQ(desk.http.exchanges.size(), sent);
    EXPECT_EQ(store().viewVersion().at("t1"), 2);
    EXPECT_EQ(store().page().at("t1"), 4);
    EXPECT_TRUE(store().busy().empty());
  }
}

TEST_F(RevisionMeanwhile, ASignOutStopsItForWhoeverComesNext) {
  store().startLoop();
  desk.time.run();
  upload();
  EXPECT_THAT(store().busy(), ElementsAre("revision"));
  nextSession();
  EXPECT_TRUE(store().busy().empty());
  EXPECT_FALSE(store().toast()) << "nobody is told";
}

TEST_F(RevisionMeanwhile, A401OfAPollEndsTheSessionAndItStaysAtThat) {
  upload();
  routes.set(kStateLine, answerOf(401));
  poll();
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  const auto told = desk.toast()->id;
  answer(0, std::unexpected(HttpError::connectionLost));
  EXPECT_EQ(desk.toast()->id, told) << "one toast";
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(RevisionMeanwhile, A401OfThePollBehindItSignsOut) {
  upload();
  routes.set(kStateLine, answerOf(401));
  answer(0, answerOf(200, R"({"version":4})"));
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  EXPECT_EQ(detailRequests(), 0U);
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(RevisionMeanwhile, AFailedPollBehindItStillFetchesItsTicket) {
  upload();
  routes.set(kStateLine, std::unexpected(HttpError::notConnected));
  serveDetail(detailOf(nextVersion()));
  answer(0, answerOf(200, R"({"version":4})"));
  EXPECT_EQ(desk.toastText(), kUploaded);
  EXPECT_EQ(store().currentDetail()->version, 4);
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(RevisionMeanwhile, TheEndOfTheStoreIsTheEndOfIt) {
  upload();
  answer(0, answerOf(200, "{}"));
  desk.endStore();
  answer(1, answerOf(200, jsonOf(boardOf({nextVersion()}))));
  EXPECT_THAT(lines(), ElementsAre(kPut, kStateLine));
}

}  // namespace
}  // namespace vellix
