// Each poll reads the moment, also within a minute of the last and when it brings nothing.
#include "board/ActivityModel.hpp"
#include "board/BoardModel.hpp"
#include "board/PlanModel.hpp"
#include "inspector/InspectorModel.hpp"
#include "notes/NotesModel.hpp"
#include "store/store_test.hpp"
#include "ticket/FileModel.hpp"
#include "views/operations.hpp"

namespace vellix {
namespace {

class Moments : public StoreTest, public testing::WithParamInterface<bool> {
 protected:
  // In three seconds it is due, and what was done was done two minutes ago.
  void SetUp() override {
    const double now = wireOf(desk.time.now());
    const double almostTwoMinutes = now - 117'000;
    FileItem file = ticketAt("t1", 1);
    file.status = "in_review";
    file.due = now + 3'000;
    FileItem reviewed = ticketAt("t2", 1);
    reviewed.status = "reviewed";
    reviewed.status_by = "jorvas@tessarine.example";
    reviewed.status_at = almostTwoMinutes;
    Finding finding = findingOf("f1");
    finding.state = "issue";
    finding.state_by = "jorvas@tessarine.example";
    finding.state_at = almostTwoMinutes;
    Note note;
    note.id = "n1";
    note.page = 0;
    note.by = "jorvas@tessarine.example";
    note.at = almostTwoMinutes;
    FileDetail detail = detailOf(file, {finding});
    detail.file.pages = pagesOf(1);
    detail.file.pages->front().refs = {{"submitted", RefPage{}}};
    detail.comments = {note};
    BoardState board = boardOf({file, reviewed});
    board.events = {{.id = 1, .at = almostTwoMinutes, .kind = "synced"}};
    serveBoard(board);
    serveDetail(detail);
    serveDetail(detailOf(reviewed));
    store().selection.set({"t1"});
    poll();
  }
  void passFiveSeconds() {
    desk.time.advance(Milliseconds{5'000});
    if (!GetParam()) routes.set(kStateLine, std::unexpected(HttpError::notConnected));
    poll();
  }
};

TEST_P(Moments, TellTheListWhatFellOverdue) {
  BoardModel model{store(), desk.defaults, desk.time, desk.calendar};
  ASSERT_EQ(model.head()["overdue"].toString(), "");
  passFiveSeconds();
  EXPECT_EQ(model.head()["overdue"].toString(), "1 overdue");
  const auto row = fieldOf(model.rows(), 1, "ticket").toMap();
  EXPECT_EQ(row["due"].toMap()["text"].toString(), "Overdue 1 min");
  EXPECT_TRUE(model.head()["queues"].toList().value(0).toMap()["late"].toBool());
}

TEST_P(Moments, TellThePlanWhatFellOverdue) {
  PlanModel model{store(), desk.time, desk.calendar};
  ASSERT_EQ(model.due()["text"].toString(), "Due in 1 min");
  passFiveSeconds();
  EXPECT_EQ(model.due()["text"].toString(), "Overdue 1 min");
}

TEST_P(Moments, AgeTheFeed) {
  store().showActivity.set(true);
  ActivityModel model{store(), desk.time, desk.calendar};
  const auto told = [&] { return fieldOf(model.rows(), 0, "when").toString(); };
  ASSERT_EQ(told(), "1 min ago");
  passFiveSeconds();
  EXPECT_EQ(told(), "2 min ago");
}

TEST_P(Moments, AgeTheNotes) {
  NotesModel model{store(), desk.time, desk.calendar};
  const auto told = [&] { return model.rows()[0].toMap()["when"].toString(); };
  ASSERT_EQ(model.rows().size(), 1);
  ASSERT_EQ(told(), "1 min ago");
  passFiveSeconds();
  EXPECT_EQ(told(), "2 min ago");
}

TEST_P(Moments, AgeTheDecisions) {
  InspectorModel model{store(), desk.time, desk.calendar};
  const auto told = [&] { return fieldOf(model.cards(), 0, "decided").toString(); };
  ASSERT_EQ(told(), "Real issue · Jorvas · 1 min ago");
  passFiveSeconds();
  EXPECT_EQ(told(), "Real issue · Jorvas · 2 min ago");
}

TEST_P(Moments, AgeTheReview) {
  store().selection.set({"t2"});
  desk.time.run();
  FileModel model{store(), desk.time, desk.calendar};
  const auto told = [&] {
    return model.header()["facts"].toList().value(0).toMap()["value"].toString();
  };
  ASSERT_EQ(told(), "Jorvas · 1 min ago");
  passFiveSeconds();
  EXPECT_EQ(told(), "Jorvas · 2 min ago");
}

INSTANTIATE_TEST_SUITE_P(OfPolls, Moments, testing::Bool(), [](const auto& each) {
  return each.param ? "ThatBringNothing" : "ThatFail";
});

}  // namespace
}  // namespace vellix
