// A ticket's review: what shows at once.
#include "store/ticket_status_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

TEST_F(TicketStatus, ReviewedShowsAtOnceAheadOfAnyRequest) {
  show({ticketOf("t1"), ticketOf("t2")});
  desk.time.advance(Milliseconds{1'234});
  store().setStatus(held(), "reviewed");
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_EQ(held().status, "reviewed");
  EXPECT_EQ(held().status_by, "renny@tessarine.example");
  EXPECT_EQ(held().status_at, 1'700'000'001'234.0);
  EXPECT_EQ(held("t2"), ticketOf("t2"));
  EXPECT_THAT(store().busy(), ElementsAre("status"));
  EXPECT_FALSE(store().toast());
  desk.time.run();
  ASSERT_THAT(lines(), ElementsAre(kPost));
  EXPECT_EQ(lastBody(), R"({"status":"reviewed"})");
}

TEST_F(TicketStatus, IsSaidThenTheWholeBoardIsFetchedAndOnlyThenItLetsGo) {
  show({ticketOf("t1")});
  store().etag = "\"b1\"";
  mark();
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(desk.toastText(), "Marked reviewed.");
  EXPECT_EQ(desk.toast()->undoLabel, "Undo");
  ASSERT_THAT(lines(), ElementsAre(kPost, kStateLine));
  EXPECT_FALSE(desk.http.exchanges[1].has("If-None-Match"));
  EXPECT_THAT(store().busy(), ElementsAre("status"));
  FileItem settled = ticketOf("t1", "reviewed");
  settled.status_by = "as the service says";
  answer(1, answerOf(200, jsonOf(boardOf({settled})), "\"b2\""));
  EXPECT_EQ(held().status_by, "as the service says");
  EXPECT_TRUE(store().busy().empty());
}

struct StatusCase {
  const char* status;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(StatusCase, (), (status, text))

class OtherStatus : public TicketStatus, public testing::WithParamInterface<StatusCase> {};

TEST_P(OtherStatus, ChangesNothingBeforeThePoll) {
  show({ticketOf("t1", "reviewed"), ticketOf("t2")});
  const auto before = store().board();
  mark(GetParam().status);
  EXPECT_EQ(store().board(), before);
  EXPECT_THAT(store().selection(), ElementsAre("t1"));
  EXPECT_EQ(store().focus(), "f1");
  EXPECT_THAT(store().busy(), ElementsAre("status"));
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_EQ(desk.toast()->undoLabel, "Undo");
  EXPECT_EQ(held().status, "reviewed");
}

INSTANTIATE_TEST_SUITE_P(All, OtherStatus,
                         testing::Values(StatusCase{"in_review", "Back in review."},
                                         StatusCase{"new", "Moved to New."},
                                         StatusCase{"anything", "Moved to New."}),
                         [](const auto& each) { return each.param.status; });

TEST_F(TicketStatus, OfATicketThatIsNotOnTheBoardIsOnlySent) {
  show({ticketOf("t1"), ticketOf("t2")});
  const auto before = store().board();
  store().setStatus(ticketOf("t9"), "reviewed");
  desk.time.run();
  EXPECT_EQ(store().board(), before);
  EXPECT_THAT(store().selection(), ElementsAre("t1"));
  EXPECT_EQ(desk.http.count("POST api/files/t9/status"), 1U);
}

TEST_F(TicketStatus, WithoutABoardIsOnlySent) {
  store().setStatus(ticketOf("t1"), "reviewed");
  desk.time.run();
  EXPECT_FALSE(store().board());
  EXPECT_EQ(posts(), 1U);
}

}  // namespace
}  // namespace vellix
