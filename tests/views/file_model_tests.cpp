// What the shell around the canvas tells its views.
#include "ticket/FileModel.hpp"

#include <QSignalSpy>

#include "store/store_test.hpp"
#include "views/operations.hpp"

namespace vellix {
namespace {

using Lines = std::vector<std::string>;

class FileModels : public StoreTest {
 protected:
  FileModels() {
    FileItem file = ticketAt("t1", 1);
    file.title = "The Lighthouse";
    board = boardOf({file, ticketAt("t2", 1)});
    board.files[1].title = "Harbour Bread";
    store().board.set(board);
    store().selection.set({"t1"});
    desk.time.run();
  }
  void bringDetail(Int pages = 3) {
    FileDetail detail = detailOf(board.files[0]);
    detail.file.pages = pagesOf(pages);
    store().details.set({{"t1", detail}});
    desk.time.run();
  }
  void showBoard() {
    store().board.set(board);
    desk.time.run();
  }
  void select(std::set<std::string> ids) {
    store().selection.set(std::move(ids));
    desk.time.run();
  }
  FileModel& model() {
    if (!model_) model_.emplace(store(), desk.time, desk.calendar);
    return *model_;
  }
  QVariant notes(const char* field) { return model().notesPanel()[field]; }
  QString header(const char* field) { return model().header()[field].toString(); }

  BoardState board;

 private:
  std::optional<FileModel> model_;
};

TEST_F(FileModels, ShowTheHeaderAheadOfTheDetail) {
  const QSignalSpy headers{&model(), &FileModel::headerChanged};
  EXPECT_EQ(header("heading"), "The Lighthouse");
  bringDetail();
  EXPECT_EQ(headers.count(), 0);
  select({"t2"});
  EXPECT_EQ(header("heading"), "Harbour Bread");
  EXPECT_EQ(headers.count(), 1);
}

TEST_F(FileModels, TellTheFactsAndLinksAsLists) {
  board.files[0].po = "7781";
  board.files[0].links = Links{.gmail = "https://mail.example"};
  showBoard();
  const auto fact = model().header()["facts"].toList().value(0).toMap();
  EXPECT_EQ(fact["label"], "PO");
  EXPECT_EQ(fact["value"], "7781");
  const auto link = model().header()["links"].toList().value(0).toMap();
  EXPECT_EQ(link["label"], "Email");
  EXPECT_EQ(link["url"], "https://mail.example");
}

TEST_F(FileModels, LetTheReviewGrowOlderWithThePolls) {
  board.files[0].status = "reviewed";
  board.files[0].status_by = "jorvas@tessarine.example";
  board.files[0].status_at = wireOf(desk.time.now());
  showBoard();
  const auto reviewed = [this] {
    return model().header()["facts"].toList().value(0).toMap()["value"].toString();
  };
  EXPECT_EQ(reviewed(), "Jorvas · just now");
  desk.time.advance(Milliseconds{120'000});
  EXPECT_EQ(reviewed(), "Jorvas · just now");
  store().lastOK.set(desk.time.now());
  desk.time.run();
  EXPECT_EQ(reviewed(), "Jorvas · 2 min ago");
}

TEST_F(FileModels, ShowAStripWhereThereIsRoom) {
  bringDetail();
  const QSignalSpy shows{&model(), &FileModel::showsStripChanged};
  EXPECT_FALSE(model().showsStrip()) << "not laid out yet";
  for (const double width : {0.0, -5.0, std::nan("")}) model().lay(width);
  EXPECT_FALSE(model().showsStrip());
  model().lay(860);
  EXPECT_TRUE(model().showsStrip());
  EXPECT_EQ(model().pages()->rowCount(), 3);
  model().lay(859);
  EXPECT_FALSE(model().showsStrip());
  EXPECT_EQ(model().pages()->rowCount(), 3) << "it slides out with them";
  model().selectPage(2);
  EXPECT_TRUE(store().page().empty()) << "and is pressed no more";
  EXPECT_EQ(shows.count(), 2);
}

TEST_F(FileModels, ShowAStripWhileItIsWanted) {
  bringDetail();
  model().lay(1'000);
  store().prefs.showPageStrip.set(false);
  desk.time.run();
  EXPECT_FALSE(model().showsStrip());
  store().prefs.showPageStrip.set(true);
  desk.time.run();
  EXPECT_TRUE(model().showsStrip());
}

TEST_F(FileModels, ChangeNoMoreOfTheStripThanTheOpenPage) {
  bringDetail();
  model().lay(1'000);
  const QSignalSpy opens{&model(), &FileModel::openPageChanged};
  Operations operations{model().pages()};
  model().selectPage(2);
  desk.time.run();
  EXPECT_EQ(model().openPage(), 2);
  EXPECT_EQ(opens.count(), 1);
  EXPECT_EQ(operations.take(), (Lines{"change 0-0 open", "change 2-2 open"}));
  showBoard();
  EXPECT_EQ(operations.take(), Lines{});
}

TEST_F(FileModels, MakeNoPagesAnewForAnotherWidth) {
  bringDetail();
  model().lay(1'000);
  Operations operations{model().pages()};
  store().page.set({{"t1", 2}});
  model().lay(1'001);
  EXPECT_EQ(operations.take(), Lines{}) << "that is told when the Store tells it";
  desk.time.run();
  EXPECT_EQ(operations.take(), (Lines{"change 0-0 open", "change 2-2 open"}));
  model().lay(500);
  store().page.set({{"t1", 1}});
  desk.time.run();
  EXPECT_EQ(operations.take(), Lines{}) << "nor for a strip that is not there";
  model().lay(1'000);
  EXPECT_EQ(operations.take(), (Lines{"change 1-1 open", "change 2-2 open"}));
}

TEST_F(FileModels, SelectAPageAndLetGoOfTheFinding) {
  bringDetail();
  model().lay(1'000);
  store().focus.set("f1");
  store().draft.set(DraftNote{.fileID = "t1"});
  model().selectPage(1);
  EXPECT_EQ(store().page().at("t1"), 1);
  EXPECT_FALSE(store().focus());
  EXPECT_TRUE(store().draft()) << "it stays on its page";
  select({});
  model().selectPage(2);
  EXPECT_EQ(store().page().size(), 1U);
}

TEST_F(FileModels, ReplaceTheStripAcrossTickets) {
  bringDetail();
  model().lay(1'000);
  Operations operations{model().pages()};
  FileDetail other = detailOf(board.files[1]);
  other.file.pages = pagesOf(2);
  store().details.edit([&](auto& all) { all["t2"] = other; });
  select({"t2"});
  EXPECT_EQ(operations.take(), (Lines{"remove 0-2", "insert 0-1"}));
}

TEST_F(FileModels, KeepNoStripOfAnotherTicket) {
  model().lay(1'500);
  bringDetail();
  ASSERT_EQ(model().pages()->rowCount(), 3);
  store().prefs.showPageStrip.set(false);
  desk.time.run();
  EXPECT_EQ(model().pages()->rowCount(), 3) << "while it slides out";
  store().prefs.showPageStrip.set(true);
  desk.time.run();
  select({"t2"});
  EXPECT_FALSE(model().showsStrip());
  EXPECT_EQ(model().pages()->rowCount(), 0);
}

TEST_F(FileModels, NameTheTicketsWhileSeveralAreSelected) {
  const auto multi = [this](const char* field) { return model().multi()[field].toString(); };
  EXPECT_EQ(multi("heading"), "");
  select({"t1", "t2"});
  EXPECT_EQ(multi("heading"), "2 files");
  EXPECT_EQ(multi("titles"), "The Lighthouse · Harbour Bread");
  EXPECT_EQ(header("heading"), "");
}

TEST_F(FileModels, FloatTheNotesWhereTheViewIsNarrow) {
  ASSERT_TRUE(notes("open").toBool());
  model().lay(899);
  EXPECT_TRUE(notes("floats").toBool());
  EXPECT_FALSE(notes("open").toBool());
  model().toggleNotes();
  desk.time.run();
  EXPECT_TRUE(notes("open").toBool());
  EXPECT_TRUE(store().prefs.showNotes());
  model().lay(900);
  EXPECT_FALSE(notes("floats").toBool());
  model().toggleNotes();
  desk.time.run();
  EXPECT_FALSE(notes("open").toBool());
  EXPECT_FALSE(store().prefs.showNotes());
}

TEST_F(FileModels, KnowTheNotesPanelBeforeTheDetailIsHere) {
  store().prefs.showNotes.set(false);
  model().lay(1'000);
  desk.time.run();
  EXPECT_FALSE(notes("open").toBool());
  EXPECT_EQ(notes("width").toDouble(), 290);
}

TEST_F(FileModels, IgnoreAWidthThatIsNone) {
  model().lay(1'200);
  for (const double width : {0.0, -5.0, std::nan("")}) model().lay(width);
  EXPECT_EQ(notes("width").toDouble(), 330);
  EXPECT_FALSE(store().notesFloat());
}

TEST_F(FileModels, OpenTheNotesForAPin) {
  store().prefs.showNotes.set(false);
  desk.time.run();
  model().openNotes();
  EXPECT_TRUE(store().prefs.showNotes());
  desk.time.run();
  model().openNotes();
  EXPECT_TRUE(store().prefs.showNotes());
}

TEST_F(FileModels, AreEmptiedBySigningOut) {
  bringDetail();
  model().lay(1'000);
  ASSERT_EQ(model().pages()->rowCount(), 3);
  store().signOut(false);
  desk.time.run();
  EXPECT_EQ(header("heading"), "");
  EXPECT_EQ(model().pages()->rowCount(), 0);
  EXPECT_FALSE(model().showsStrip());
}

}  // namespace
}  // namespace vellix
