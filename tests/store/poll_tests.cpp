// One poll of the board, by its outcome.
#include "store/store_test.hpp"

namespace vellix {
namespace {

class Poll : public StoreTest {
 protected:
  // Brings in a first board, and moves the clock on.
  void holdABoard() {
    serveBoard(boardOf({ticketOf("t1")}));
    serveDetail(detailOf(ticketOf("t1")));
    poll();
    firstOK = store().lastOK().value();
    desk.time.advance(Milliseconds{1'000});
  }
  Moment firstOK;
};

TEST_F(Poll, AsksWithoutATagFirstAndWithTheLastTagAfterwards) {
  holdABoard();
  poll();
  const auto asked = desk.http.matching(kStateLine);
  EXPECT_FALSE(asked.at(0)->has("If-None-Match"));
  EXPECT_EQ(asked.at(1)->header("If-None-Match"), "\"b1\"");
  EXPECT_EQ(asked.at(1)->header("Authorization"), "Bearer token-1");
}

TEST_F(Poll, AsksNothingWhileSignedOutOrOverSamples) {
  store().signedIn.set(false);
  poll();
  store().signedIn.set(true);
  store().sample = true;
  poll();
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_FALSE(store().lastOK());
}

TEST_F(Poll, ReplacesTheBoardAndItsTag) {
  holdABoard();
  auto board = boardOf({ticketOf("t1"), ticketOf("t2")});
  board.rev = 0;  // plays no part
  serveBoard(board, "\"b2\"");
  poll();
  EXPECT_EQ(store().board(), board);
  EXPECT_EQ(store().etag, "\"b2\"");
  EXPECT_EQ(store().lastOK(), desk.time.now());
}

TEST_F(Poll, GoesOnWithTheRecordsOfTicketsThatHaveNotChanged) {
  auto board = boardOf({ticketOf("t1"), ticketOf("t2"), ticketOf("t3")});
  serveBoard(board, "\"b1\"");
  poll();
  const FileItem* first = store().board()->files.find("t1");
  const FileItem* last = store().board()->files.find("t3");
  board.files[1].status = "reviewed";
  serveBoard(board, "\"b2\"");
  poll();
  EXPECT_EQ(store().board(), board);
  EXPECT_EQ(store().board()->files.find("t1"), first);
  EXPECT_EQ(store().board()->files.find("t3"), last);
}

TEST_F(Poll, ThatIsNotModifiedIsASuccessWithNoChange) {
  holdABoard();
  const auto before = store().board();
  store().problem.set("Earlier trouble.");
  store().seenEvent = 7;
  poll();
  EXPECT_EQ(store().board(), before);
  EXPECT_EQ(store().etag, "\"b1\"");
  EXPECT_EQ(store().seenEvent, 7);
  EXPECT_FALSE(store().problem());
  EXPECT_EQ(store().lastOK(), desk.time.now());
}

TEST_F(Poll, ThatIsNotModifiedTellsNoObserverOfTheBoard) {
  holdABoard();
  int told = 0;
  const auto watching = store().changes.observe(
      Store::kBoard | Store::kDetails | Store::kSelection | Store::kProblem, [&] { ++told; });
  poll();
  EXPECT_EQ(told, 0);
}

TEST_F(Poll, WithoutAnEtagMakesTheNextOneUnconditional) {
  holdABoard();
  routes.set(kStateLine, answerOf(200, jsonOf(boardOf({}))));
  poll();
  EXPECT_FALSE(store().etag);
  poll();
  EXPECT_FALSE(desk.http.exchanges.back().has("If-None-Match"));
}

// Small on its way, and some hundred megabytes decoded.
std::string tooManyTickets() {
  std::string files = R"({"id":"t","status":"s"})";
  for (int i = 0; i < 60'000; ++i) files += R"(,{"id":"","status":""})";
  return R"({"rev":2,"me":{"email":"a","name":"b"},"users":[],"jobs":[],"reports":[],)"
         R"("events":[],"files":[)" +
         files + "]}";
}

struct TroubleCase {
  const char* name;
  HttpResult answer;
  const char* problem;
};
BOOST_DESCRIBE_STRUCT(TroubleCase, (), (name, problem))

class TroubledPolls : public Poll, public testing::WithParamInterface<TroubleCase> {};

TEST_P(TroubledPolls, KeepTheBoardAndSayWhatIsWrong) {
  holdABoard();
  const auto before = store().board();
  routes.set(kStateLine, GetParam().answer);
  poll();
  EXPECT_EQ(store().problem(), GetParam().problem);
  EXPECT_EQ(store().board(), before);
  EXPECT_EQ(store().etag, "\"b1\"");
  EXPECT_EQ(store().lastOK(), firstOK);
  EXPECT_TRUE(store().signedIn());
  EXPECT_FALSE(store().toast());
  EXPECT_EQ(detailRequests(), 1U) << "no top-up after a failure";
}

TEST_P(TroubledPolls, AreForgottenAtTheFirstGoodAnswer) {
  holdABoard();
  routes.next(kStateLine, GetParam().answer);
  poll();
  ASSERT_TRUE(store().problem());
  poll();
  EXPECT_FALSE(store().problem());
  EXPECT_EQ(store().lastOK(), desk.time.now());
  EXPECT_FALSE(store().toast());
}

TEST_P(TroubledPolls, LeaveAStoreThatNeverHadABoardWithoutOne) {
  routes.set(kStateLine, GetParam().answer);
  poll();
  EXPECT_EQ(store().problem(), GetParam().problem);
  EXPECT_FALSE(store().board());
  EXPECT_FALSE(store().lastOK());
  EXPECT_FALSE(store().etag);
}

INSTANTIATE_TEST_SUITE_P(
    All, TroubledPolls,
    testing::Values(
        TroubleCase{"Offline", std::unexpected(HttpError::notConnected), kOfflineText},
        TroubleCase{"Cut", std::unexpected(HttpError::connectionLost), kOfflineText},
        TroubleCase{"TimedOut", std::unexpected(HttpError::timedOut), kUnreachableText},
        TroubleCase{"TooLarge", std::unexpected(HttpError::tooLarge), kUnreachableText},
        TroubleCase{"NotHttp", std::unexpected(HttpError::notHttp), kUnreadableText},
        TroubleCase{"Garbage", answerOf(200, "\x01garbage", "\"b9\""), kUnreadableText},
        TroubleCase{"Empty", answerOf(200, "", "\"b9\""), kUnreadableText},
        TroubleCase{"CutJson", answerOf(200, R"({"rev":2,"me":{"email")", "\"b9\""),
                    kUnreadableText},
        TroubleCase{"OtherRecord", answerOf(200, R"({"rev":2})", "\"b9\""), kUnreadableText},
        TroubleCase{"TooMuch", answerOf(200, tooManyTickets(), "\"b9\""), kUnreadableText},
        TroubleCase{"Html", answerOf(500, "<html>"), kRefusedText},
        TroubleCase{"Refused", answerOf(403, R"({"error":"Not today."})"), "Not today."},
        TroubleCase{"Down", answerOf(503), kRefusedText}),
    [](const auto& each) { return each.param.name; });

TEST_F(Poll, ThatIsNotKnownSignsOut) {
  holdABoard();
  routes.set(kStateLine, answerOf(401, R"({"error":"x"})"));
  poll();
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(store().board());
  EXPECT_FALSE(desk.api.token());
  EXPECT_FALSE(store().problem());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  EXPECT_EQ(desk.http.count("POST api/logout"), 0U);
}

TEST_F(Poll, ChoosesATicketWhenNoneIsSelected) {
  serveBoard(boardOf({ticketOf("t1", "reviewed"), ticketOf("t2")}));
  poll();
  EXPECT_EQ(store().selection(), std::set<std::string>{"t2"});
}

TEST_F(Poll, LeavesASelectionAloneThatLeftTheBoard) {
  holdABoard();
  store().focus.set("f1");
  serveBoard(boardOf({ticketOf("t2")}), "\"b2\"");
  poll();
  EXPECT_EQ(store().selection(), std::set<std::string>{"t1"});
  EXPECT_EQ(store().focus(), "f1");
  EXPECT_FALSE(store().currentFile());
}

TEST_F(Poll, LeavesAMultipleSelectionAlone) {
  store().selection.set({"t1", "gone"});
  holdABoard();
  EXPECT_EQ(store().selection(), (std::set<std::string>{"gone", "t1"}));
  EXPECT_EQ(detailRequests(), 0U);
}

TEST_F(Poll, TopsUpTheDetailOfTheTicketOnShow) {
  serveBoard(boardOf({ticketAt("t1", 1)}));
  serveDetail(detailOf(ticketAt("t1", 1)));
  poll();
  ASSERT_TRUE(store().currentDetail());
  EXPECT_EQ(store().currentDetail()->file.rev, 1);
  // The board has moved on: the fresh ticket decides.
  serveBoard(boardOf({ticketAt("t1", 2)}), "\"b2\"");
  serveDetail(detailOf(ticketAt("t1", 2)), "\"d2\"");
  poll();
  EXPECT_EQ(store().currentDetail()->file.rev, 2);
  EXPECT_EQ(detailRequests(), 2U);
}

TEST_F(Poll, TopsUpTheDetailAlsoWhenTheBoardIsNotModified) {
  serveBoard(boardOf({ticketAt("t1", 1)}));
  routes.set("GET api/files/t1", answerOf(500));
  poll();
  EXPECT_FALSE(store().currentDetail());
  serveDetail(detailOf(ticketAt("t1", 1)));
  poll();
  EXPECT_EQ(desk.http.matching(kStateLine).back()->header("If-None-Match"), "\"b1\"");
  EXPECT_TRUE(store().currentDetail());
}

TEST_F(Poll, IsNoProblemWhenOnlyTheDetailFails) {
  serveBoard(boardOf({ticketAt("t1", 1)}));
  routes.set("GET api/files/t1", std::unexpected(HttpError::notConnected));
  poll();
  EXPECT_FALSE(store().problem());
  EXPECT_TRUE(store().lastOK());
}

TEST_F(Poll, OfSeveralAtATimeTheLastAnswerWins) {
  desk.tasks.start(store().refresh());
  desk.tasks.start(store().refresh());
  ASSERT_EQ(polls(), 2U);
  auto board = boardOf({});
  board.rev = 2;
  answer(1, answerOf(200, jsonOf(board), "\"second\""));
  board.rev = 1;
  answer(0, answerOf(200, jsonOf(board), "\"first\""));
  EXPECT_EQ(store().board()->rev, 1);
  EXPECT_EQ(store().etag, "\"first\"");
}

TEST_F(Poll, DoesNotBringABoardBackAfterASignOut) {
  desk.tasks.start(store().refresh());
  store().signOut(true);
  answer(0, answerOf(200, jsonOf(boardOf({})), "\"late\""));
  EXPECT_FALSE(store().board());
  EXPECT_FALSE(store().etag);
}

}  // namespace
}  // namespace vellix
