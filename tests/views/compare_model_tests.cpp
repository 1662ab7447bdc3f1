// What the canvas tells its view, and what it asks the service for.
#include "compare/CompareModel.hpp"

#include <QSignalSpy>

#include "store/store_test.hpp"
#include "views/operations.hpp"

namespace vellix {
namespace {

using Lines = std::vector<std::string>;

class CompareModels : public StoreTest {
 protected:
  // Three pages, each with pictures of its own.
  static FileDetail ticket(std::string id, Int rev = 1) {
    FileDetail detail = detailOf(ticketAt(std::move(id), rev));
    detail.file.pages = pagesOf(3);
    for (auto& page : *detail.file.pages) {
      const std::string number = detail.file.id + "-" + std::to_string(page.i);
      page.img = "supplier-" + number;
      page.refs = {{"submitted", RefPage{.img = "submitted-" + number}},
                   {"fbc", RefPage{.img = "fbc-" + number}}};
    }
    return detail;
  }
  void serve(const std::vector<FileDetail>& details, std::string tag = "\"b1\"") {
    BoardState board = boardOf({});
    for (const auto& detail : details) {
      board.files.push_back(detail.file);
      board.files.back().pages.reset();
      serveDetail(detail, "\"" + detail.file.id + std::to_string(*detail.file.rev) + "\"");
    }
    serveBoard(board, std::move(tag));
  }
  void select(const std::string& id) {
    store().selection.set({id});
    desk.time.run();
  }
  CompareModel& model() {
    if (!model_) model_.emplace(store(), desk.time);
    return *model_;
  }
  QString picture(int pane) { return fieldOf(model().panes(), pane, "img").toString(); }

 private:
  std::optional<CompareModel> model_;
};

TEST_F(CompareModels, AskForTheDetailOnceForEachTicketShown) {
  model();
  store().board.set(boardOf({ticketAt("t1", 1), ticketAt("t2", 1)}));
  select("t1");
  EXPECT_EQ(detailRequests("t1"), 1U);
  for (Int rev = 2; rev < 6; ++rev) {
    store().board.set(boardOf({ticketAt("t1", rev), ticketAt("t2", rev)}));
    desk.time.run();
  }
  EXPECT_EQ(detailRequests("t1"), 1U) << "the polls look after it from here";
  select("t2");
  EXPECT_EQ(detailRequests("t2"), 1U);
  EXPECT_EQ(detailRequests("t1"), 1U);
}

TEST_F(CompareModels, AskAgainForATicketThatComesBack) {
  model();
  store().board.set(boardOf({ticketAt("t1", 1), ticketAt("t2", 1)}));
  select("t1");
  store().selection.set({});
  desk.time.run();
  select("t1");
  EXPECT_EQ(detailRequests("t1"), 2U);
}

TEST_F(CompareModels, NeedNoAnswerTwice) {
  model();
  serve({ticket("t1"), ticket("t2")});
  poll();
  select("t1");
  for (int i = 0; i < 5; ++i) poll();
  EXPECT_EQ(polls(), 6U);
  EXPECT_EQ(detailRequests("t1"), 1U);
}

TEST_F(CompareModels, TellWhenTheDetailIsHere) {
  const QSignalSpy loads{&model(), &CompareModel::loadedChanged};
  store().board.set(boardOf({ticketAt("t1", 1)}));
  select("t1");
  EXPECT_FALSE(model().loaded());
  store().details.set({{"t1", ticket("t1")}});
  desk.time.run();
  EXPECT_TRUE(model().loaded());
  EXPECT_EQ(loads.count(), 1);
}

TEST_F(CompareModels, ChangeTheirPanesInPlaceAcrossPageSteps) {
  serve({ticket("t1")});
  poll();
  ASSERT_EQ(model().panes()->rowCount(), 3);
  EXPECT_EQ(picture(1), "submitted-t1-0");
  Operations operations{model().panes()};
  model().stepPage(1);
  desk.time.run();
  EXPECT_EQ(operations.take(),
            (Lines{"change 0-0 img label", "change 1-1 img label", "change 2-2 img label"}));
  EXPECT_EQ(picture(1), "submitted-t1-1");
  model().stepPage(-1);
  desk.time.run();
  EXPECT_EQ(operations.take().size(), 3U);
  EXPECT_EQ(picture(1), "submitted-t1-0");
}

TEST_F(CompareModels, ReplaceTheirPanesAcrossTickets) {
  model();
  serve({ticket("t1"), ticket("t2")});
  poll();
  select("t2");
  select("t1");
  ASSERT_EQ(store().details().size(), 2U);
  Operations operations{model().panes()};
  select("t2");
  EXPECT_EQ(operations.take(), (Lines{"remove 0-2", "insert 0-2"}));
  EXPECT_EQ(picture(0), "supplier-t2-0");
}

TEST_F(CompareModels, TellNothingOfAPollThatBringsTheSame) {
  serve({ticket("t1")});
  poll();
  ASSERT_TRUE(model().loaded());
  Operations operations{model().panes()};
  const QSignalSpy bars{&model(), &CompareModel::barChanged};
  poll();
  serve({ticket("t1", 2)}, "\"b2\"");
  poll();
  ASSERT_EQ(detailRequests("t1"), 2U);
  EXPECT_EQ(operations.take(), Lines{});
  EXPECT_EQ(bars.count(), 0);
}

TEST_F(CompareModels, TakeAPaneAwayAndBringItBackInItsPlace) {
  serve({ticket("t1")});
  poll();
  Operations operations{model().panes()};
  model().togglePane("submitted");
  desk.time.run();
  EXPECT_EQ(operations.take(), Lines{"remove 1-1"});
  model().togglePane("submitted");
  desk.time.run();
  EXPECT_EQ(operations.take(), Lines{"insert 1-1"});
}

TEST_F(CompareModels, ZoomWithinBounds) {
  serve({ticket("t1")});
  poll();
  const QSignalSpy bars{&model(), &CompareModel::barChanged};
  model().zoomIn();
  desk.time.run();
  EXPECT_EQ(model().bar()["percent"].toString(), "125%");
  EXPECT_EQ(bars.count(), 1);
  model().zoomTo(1.37);
  EXPECT_EQ(store().zoom(), 1.37);
  model().zoomIn();
  EXPECT_EQ(store().zoom(), 1.75);
  model().zoomOut();
  EXPECT_EQ(store().zoom(), 1.5);
  model().zoomTo(9);
  EXPECT_EQ(store().zoom(), 4);
  model().zoomTo(0);
  EXPECT_EQ(store().zoom(), 1);
  model().zoomIn();
  model().fit();
  EXPECT_EQ(store().zoom(), 1);
}

TEST_F(CompareModels, AreEmptiedBySigningOut) {
  serve({ticket("t1")});
  poll();
  ASSERT_TRUE(model().loaded());
  store().signOut(false);
  desk.time.run();
  EXPECT_FALSE(model().loaded());
  EXPECT_EQ(model().panes()->rowCount(), 0);
  EXPECT_EQ(model().toggles()->rowCount(), 0);
}

TEST_F(CompareModels, ZoomToNothingThatIsNoNumber) {
  model().zoomTo(2);
  model().zoomTo(std::nan(""));
  EXPECT_EQ(store().zoom(), 2);
  model().zoomTo(std::numeric_limits<double>::infinity());
  EXPECT_EQ(store().zoom(), 4);
}

TEST_F(CompareModels, KnowWhatThePointerCameToLast) {
  const QSignalSpy told{&model(), &CompareModel::pointedChanged};
  model().point("f1", true);
  EXPECT_EQ(model().pointed(), "f1");
  model().point("f2", true);
  model().point("f1", false);
  EXPECT_EQ(model().pointed(), "f2") << "what is left is told of later";
  EXPECT_EQ(told.count(), 2);
  model().point("f2", true);
  model().point("f2", false);
  EXPECT_EQ(model().pointed(), "f2") << "from its card to its mark";
  EXPECT_EQ(told.count(), 2);
  model().point("f2", false);
  model().point("f2", false);
  EXPECT_EQ(model().pointed(), "");
  EXPECT_EQ(told.count(), 3);
}

TEST_F(CompareModels, ForgetThePointerWithTheirTicket) {
  serve({ticket("t1"), ticket("t2")});
  poll();
  select("t1");
  const QSignalSpy told{&model(), &CompareModel::pointedChanged};
  model().point("f1", true);
  select("t2");
  EXPECT_EQ(model().pointed(), "");
  EXPECT_EQ(told.count(), 2);
  model().point("f1", false);
  EXPECT_EQ(told.count(), 2);
}

TEST_F(CompareModels, TellOfADraftOnceItIsBegun) {
  serve({ticket("t1"), ticket("t2")});
  poll();
  select("t1");
  const QSignalSpy drafted{&model(), &CompareModel::drafted};
  const DraftNote draft{.fileID = "t1", .side = "supplier", .x = 0.5, .y = 0.5};
  store().draft.set(draft);
  desk.time.run();
  EXPECT_EQ(drafted.count(), 1);
  for (const Int page : {1, 0}) {
    store().goToPage("t1", page);
    desk.time.run();
  }
  for (const char* id : {"t2", "t1"}) select(id);
  EXPECT_EQ(drafted.count(), 1) << "it is only back";
  store().draft.set(std::nullopt);
  desk.time.run();
  store().draft.set(draft);
  desk.time.run();
  EXPECT_EQ(drafted.count(), 2);
}

}  // namespace
}  // namespace vellix
