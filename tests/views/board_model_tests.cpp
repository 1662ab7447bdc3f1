// What the list tells its view, and when.
#include "board/BoardModel.hpp"

#include <QSignalSpy>

#include "store/store_test.hpp"
#include "views/operations.hpp"

namespace vellix {
namespace {

using Lines = std::vector<std::string>;

class BoardModels : public StoreTest {
 protected:
  BoardModel& model() {
    if (!model_) model_.emplace(store(), desk.defaults, desk.time, desk.calendar);
    return *model_;
  }
  QVariantMap ticketAtRow(int row) { return fieldOf(model().rows(), row, "ticket").toMap(); }
  QString dueAtRow(int row) { return ticketAtRow(row)["due"].toMap()["text"].toString(); }
  void wait(double seconds) { desk.time.advance(Milliseconds{seconds * 1'000}); }
  FileItem dueIn(std::string id, double minutes) {
    FileItem file = ticketOf(std::move(id));
    file.due = wireOf(desk.time.now()) + minutes * 60'000;
    return file;
  }

 private:
  std::optional<BoardModel> model_;
};

TEST_F(BoardModels, SignalOneRowForOneChangedTicketOfManyThousand) {
  BoardState board = boardOf({});
  for (int i = 0; i < 5'000; ++i) board.files.push_back(ticketOf("t" + std::to_string(i)));
  serveBoard(board, "\"b1\"");
  poll();
  ASSERT_EQ(model().rows()->rowCount(), 5'001);
  Operations operations{model().rows()};
  const QSignalSpy heads{&model(), &BoardModel::headChanged};
  board.files[1'233].title = "Another title";
  serveBoard(board, "\"b2\"");
  poll();
  EXPECT_EQ(operations.take(), Lines{"change 1234-1234 ticket"});
  EXPECT_EQ(heads.count(), 0);
  EXPECT_EQ(ticketAtRow(1'234)["heading"].toString(), "Another title");
}

TEST_F(BoardModels, MoveATicketThatChangesItsGroup) {
  BoardState board = boardOf({ticketOf("a"), ticketOf("b"), ticketOf("c", "in_review")});
  serveBoard(board, "\"b1\"");
  poll();
  Operations operations{model().rows()};
  board.files[0].status = "in_review";
  serveBoard(board, "\"b2\"");
  poll();
  const auto told = operations.take();
  EXPECT_EQ(told, Lines{"move 1>4"}) << "behind the header of its new group";
}

TEST_F(BoardModels, TellNothingOfAPollThatBringsNothing) {
  serveBoard(boardOf({dueIn("a", 30.5)}));
  poll();
  Operations operations{model().rows()};
  const QSignalSpy heads{&model(), &BoardModel::headChanged};
  wait(5);
  poll();
  ASSERT_EQ(polls(), 2U);
  ASSERT_EQ(store().lastOK(), desk.time.now());
  EXPECT_EQ(operations.take(), Lines{});
  EXPECT_EQ(heads.count(), 0);
}

// Tells how often it was asked for the time of a day.
class AskedCalendar : public FakeCalendar {
 public:
  std::string shortTime(Moment moment) const override {
    ++asked;
    return FakeCalendar::shortTime(moment);
  }
  mutable int asked = 0;
};

TEST_F(BoardModels, MakeNoRowAnewForAPollThatCannotHaveChangedIt) {
  const AskedCalendar calendar;
  BoardModel rows{store(), desk.defaults, desk.time, calendar};
  serveBoard(boardOf({dueIn("a", 90.5), ticketOf("b")}), "\"b1\"");
  poll();
  const QVariant kept = fieldOf(rows.rows(), 1, "kept");
  EXPECT_EQ(std::exchange(calendar.asked, 0), 1);
  wait(5);
  poll();
  EXPECT_EQ(calendar.asked, 0);
  wait(60);
  poll();
  EXPECT_GT(calendar.asked, 0);
}

TEST_F(BoardModels, MoveTheWordsOfTimeOnWithThePolls) {
  serveBoard(boardOf({dueIn("a", 30), ticketOf("b")}));
  poll();
  EXPECT_EQ(dueAtRow(1), "Due in 30 min");
  Operations operations{model().rows()};
  wait(60);
  EXPECT_EQ(operations.take(), Lines{}) << "no timer of its own";
  poll();
  EXPECT_EQ(operations.take(), Lines{"change 1-1 ticket"});
  EXPECT_EQ(dueAtRow(1), "Due in 29 min");
}

TEST_F(BoardModels, CountTheOverdueAnewWithThePolls) {
  serveBoard(boardOf({dueIn("a", 1)}));
  poll();
  EXPECT_EQ(model().head()["overdue"].toString(), "");
  const QSignalSpy heads{&model(), &BoardModel::headChanged};
  wait(61);
  EXPECT_EQ(heads.count(), 0) << "no timer of its own";
  poll();
  EXPECT_EQ(heads.count(), 1);
  EXPECT_EQ(model().head()["overdue"].toString(), "1 overdue");
}

TEST_F(BoardModels, CountTheOverdueAnewWhileTheServiceIsAway) {
  serveBoard(boardOf({dueIn("a", 1)}));
  poll();
  EXPECT_EQ(model().head()["overdue"].toString(), "");
  routes.set(kStateLine, std::unexpected(HttpError::notConnected));
  poll();
  desk.time.advance(Milliseconds{120'000});
  poll();
  EXPECT_EQ(model().head()["overdue"].toString(), "1 overdue");
}

TEST_F(BoardModels, MarkTheTwoRowsOfAnotherSelection) {
  serveBoard(boardOf({ticketOf("a"), ticketOf("b"), ticketOf("c")}));
  poll();
  model().select("a", false);
  desk.time.run();
  Operations operations{model().rows()};
  model().select("c", false);
  desk.time.run();
  EXPECT_EQ(operations.take(), (Lines{"change 1-1 ticket", "change 3-3 ticket"}));
  EXPECT_EQ(store().selection(), std::set<std::string>{"c"});
  model().select("b", true);
  EXPECT_EQ(store().selection(), (std::set<std::string>{"b", "c"}));
}

TEST_F(BoardModels, FoldTheReviewedAndRememberIt) {
  serveBoard(boardOf({ticketOf("a"), ticketOf("b", "reviewed")}));
  poll();
  Operations operations{model().rows()};
  model().toggleReviewed();
  EXPECT_EQ(operations.take(), (Lines{"insert 3-3", "change 2-2 open"}));
  EXPECT_EQ(desk.defaults.flags.at("ShowReviewed"), true);
  model().toggleReviewed();
  EXPECT_EQ(operations.take(), (Lines{"remove 3-3", "change 2-2 open"}));
  EXPECT_EQ(desk.defaults.flags.at("ShowReviewed"), false);
}

TEST_F(BoardModels, ComeUpAsTheyWereLeft) {
  desk.defaults.flags["ShowReviewed"] = true;
  store().board.set(boardOf({ticketOf("b", "reviewed")}));
  EXPECT_EQ(model().rows()->rowCount(), 2);
}

TEST_F(BoardModels, FollowThePreferenceThatFoldsTheReviewed) {
  store().board.set(boardOf({ticketOf("b", "reviewed")}));
  EXPECT_EQ(model().rows()->rowCount(), 1);
  store().prefs.foldReviewed.set(false);
  desk.time.run();
  EXPECT_EQ(model().rows()->rowCount(), 2);
}

TEST_F(BoardModels, SwitchQueuesAndTheFilter) {
  auto reprint = ticketOf("b");
  reprint.track = "reprint";
  serveBoard(boardOf({ticketOf("a"), reprint}));
  poll();
  EXPECT_EQ(ticketAtRow(1)["id"].toString(), "a");
  model().setQueue("reprint");
  desk.time.run();
  EXPECT_EQ(ticketAtRow(1)["id"].toString(), "b");
  EXPECT_EQ(store().selection(), std::set<std::string>{"b"});
  EXPECT_EQ(desk.defaults.texts.at("Queue"), "reprint");
  model().setMineOnly(true);
  desk.time.run();
  EXPECT_EQ(model().rows()->rowCount(), 0);
  EXPECT_TRUE(model().head()["mineOnly"].toBool());
  EXPECT_EQ(model().head()["emptySecond"].toString(), "Turn off Only mine to see everyone's.");
}

TEST_F(BoardModels, AreEmptiedBySigningOut) {
  serveBoard(boardOf({ticketOf("a")}));
  poll();
  EXPECT_EQ(model().rows()->rowCount(), 2);
  store().signOut(true);
  desk.time.run();
  EXPECT_EQ(model().rows()->rowCount(), 0);
  EXPECT_EQ(model().head()["emptyFirst"].toString(), "Nothing to review.");
}

TEST_F(BoardModels, TurnTheLiveDotByThePollAlone) {
  EXPECT_EQ(model().liveDot()["text"].toString(), "Connecting");
  const QSignalSpy dots{&model(), &BoardModel::liveDotChanged};
  serveBoard(boardOf({}));
  poll();
  EXPECT_EQ(model().liveDot()["text"].toString(), "Up to date");
  EXPECT_EQ(dots.count(), 1);
  wait(90);
  EXPECT_EQ(dots.count(), 1) << "no timer of its own";
  routes.set(kStateLine, std::unexpected(HttpError::notConnected));
  poll();
  EXPECT_EQ(model().liveDot()["text"].toString(), "Offline");
  EXPECT_EQ(model().liveDot()["help"].toString(), kOfflineText);
}

TEST_F(BoardModels, AgeTheLiveDotAtAnyChange) {
  serveBoard(boardOf({}));
  model();
  poll();
  wait(120);
  store().zoom.set(2);
  desk.time.run();
  EXPECT_EQ(model().liveDot()["text"].toString(), "Updated 2 min ago");
}

TEST_F(BoardModels, RefreshOnRequest) {
  serveBoard(boardOf({}));
  poll();
  model().refresh();
  EXPECT_TRUE(store().refreshing());
  desk.time.run();
  EXPECT_EQ(desk.toastText(), "Up to date.");
  EXPECT_EQ(model().liveDot()["text"].toString(), "Up to date");
}

TEST_F(BoardModels, AskForASyncAndStopIt) {
  BoardState board = boardOf({});
  board.sync = jobOf("running", "sync");
  routes.set("POST api/jobs", answerOf(200, "{}"));
  routes.set("POST api/jobs/j/stop", answerOf(200, "{}"));
  serveBoard(board);
  const QSignalSpy cards{&model(), &BoardModel::syncCardChanged};
  model().requestSync();
  desk.time.run();
  EXPECT_TRUE(model().syncCard()["working"].toBool());
  EXPECT_EQ(model().syncCard()["text"].toString(), "Syncing");
  EXPECT_GE(cards.count(), 2) << "busy first, then at work";
  model().stopSync();
  desk.time.run();
  EXPECT_EQ(desk.toastText(), "Stopping.");
}

TEST_F(BoardModels, KeepAPersonsPlaceWhenPresenceChanges) {
  BoardState board = boardOf({});
  serveBoard(board, "\"b1\"");
  model();
  poll();
  EXPECT_FALSE(fieldOf(model().people(), 1, "here").toBool());
  Operations operations{model().people()};
  board.users[1].last_seen = wireOf(desk.time.now());
  serveBoard(board, "\"b2\"");
  poll();
  EXPECT_EQ(operations.take(), Lines{"change 1-1 here"});
  EXPECT_TRUE(fieldOf(model().people(), 1, "here").toBool());
  wait(720);
  poll();
  EXPECT_EQ(operations.take(), Lines{"change 1-1 here"}) << "gone, though no board came";
  EXPECT_FALSE(fieldOf(model().people(), 1, "here").toBool());
}

struct RowKey {
  const char* name;
  int key;
  int modifiers;
  bool repeats;
  bool taken;
  bool joins;
};
BOOST_DESCRIBE_STRUCT(RowKey, (), (name, key, modifiers, repeats, taken, joins))

class RowKeys : public BoardModels, public testing::WithParamInterface<RowKey> {};

TEST_P(RowKeys, JoinTheSelectionAsACommandClickDoes) {
  const auto& each = GetParam();
  store().selection.set({"t1"});
  EXPECT_EQ(model().selectByKey("t2", each.key, each.modifiers, each.repeats), each.taken);
  EXPECT_EQ(store().selection().contains("t2"), each.joins);
  EXPECT_TRUE(store().selection().contains("t1"));
}

constexpr int kKeypad = Qt::ControlModifier | Qt::KeypadModifier;
constexpr int kMore = Qt::ControlModifier | Qt::ShiftModifier;

INSTANTIATE_TEST_SUITE_P(
    All, RowKeys,
    testing::Values(RowKey{"Space", Qt::Key_Space, Qt::ControlModifier, false, true, true},
                    RowKey{"Return", Qt::Key_Return, Qt::ControlModifier, false, true, true},
                    RowKey{"Enter", Qt::Key_Enter, kKeypad, false, true, true},
                    RowKey{"HeldDown", Qt::Key_Space, Qt::ControlModifier, true, true, false},
                    RowKey{"Plain", Qt::Key_Space, Qt::NoModifier, false, false, false},
                    RowKey{"WithAnother", Qt::Key_Return, kMore, false, false, false},
                    RowKey{"AnotherKey", Qt::Key_A, Qt::ControlModifier, false, false, false}),
    [](const auto& each) { return each.param.name; });

// The rows that come into sight, one after the other.
class FollowedRows : public BoardModels {
 protected:
  FollowedRows() {
    serve({"a", "b", "c"});
    spy_.emplace(&model(), &BoardModel::followed);
  }
  void serve(const std::vector<std::string>& ids) {
    BoardState board = boardOf({});
    for (const auto& id : ids) board.files.push_back(ticketOf(id));
    answer(std::move(board));
    poll();
  }
  // The next poll brings those, one reviewed one and a reprint.
  void answer(BoardState board) {
    board.files.push_back(ticketOf("d", "reviewed"));
    board.files.push_back(ticketOf("r"));
    board.files.back().track = "reprint";
    serveBoard(board, "\"" + std::to_string(++tag_) + "\"");
    for (const FileItem& file : board.files) {
      routes.set("POST api/files/" + file.id + "/status", answerOf(200, "{}"));
      routes.set("GET api/files/" + file.id, std::unexpected(HttpError::notConnected));
    }
  }
  // Since the last time.
  std::vector<int> rows() {
    desk.time.run();
    std::vector<int> rows;
    for (const auto& told : std::exchange(*static_cast<QList<QList<QVariant>>*>(&*spy_), {})) {
      rows.push_back(told[0].toInt());
    }
    return rows;
  }
  using Rows = std::vector<int>;

 private:
  std::optional<QSignalSpy> spy_;
  int tag_ = 0;
};

TEST_F(FollowedRows, AreThoseThatTheProgramSelects) {
  store().select({"c"});
  EXPECT_EQ(rows(), Rows{3});
  store().select({"c"});
  EXPECT_EQ(rows(), Rows{}) << "it is selected";
  store().select({"a", "b"});
  EXPECT_EQ(rows(), Rows{}) << "two of them";
  store().select({"d"});
  EXPECT_EQ(rows(), Rows{}) << "folded away";
  model().toggleReviewed();
  EXPECT_EQ(rows(), Rows{}) << "the group's header stays under the hand";
}

TEST_F(FollowedRows, AreNotThoseThatArePressed) {
  model().select("c", false);
  EXPECT_EQ(rows(), Rows{});
  model().select("b", true);
  model().select("c", true);
  EXPECT_EQ(rows(), Rows{});
  store().setMineOnly(true);
  EXPECT_EQ(rows(), Rows{});
  store().setMineOnly(false);
  EXPECT_EQ(rows(), Rows{});
}

TEST_F(FollowedRows, AreThoseThatFollowOnAReviewedOne) {
  store().select({"b"});
  EXPECT_EQ(rows(), Rows{2});
  store().setStatus(*store().currentFile(), "reviewed");
  EXPECT_EQ(rows(), Rows{1});
  model().select("c", false);
  store().setStatus(*store().currentFile(), "reviewed");
  EXPECT_EQ(rows(), Rows{1}) << "pressed before, and followed on by the program";
}

TEST_F(FollowedRows, AreThoseOfAnotherQueue) {
  store().setQueue("reprint");
  EXPECT_EQ(rows(), Rows{1});
  store().select({"b"});
  EXPECT_EQ(rows(), Rows{}) << "it is in the other queue";
  store().setQueue("new_title");
  EXPECT_EQ(rows(), Rows{2});
}

TEST_F(FollowedRows, StayWhereAPollPutsThem) {
  store().select({"c"});
  EXPECT_EQ(rows(), Rows{3});
  serve({"x", "a", "b", "c"});
  serve({"c", "a"});
  EXPECT_EQ(rows(), Rows{});
}

TEST_F(FollowedRows, ComeOnceTheyAreListed) {
  store().select({"x"});
  EXPECT_EQ(rows(), Rows{});
  serve({"a", "b", "c"});
  EXPECT_EQ(rows(), Rows{}) << "not yet";
  serve({"a", "x", "b"});
  EXPECT_EQ(rows(), Rows{2});
  serve({"x", "a", "b"});
  EXPECT_EQ(rows(), Rows{}) << "it has been in sight";
  store().select({"y"});
  model().select("b", false);
  model().select("y", true);
  model().select("b", true);
  serve({"a", "b", "y"});
  EXPECT_EQ(rows(), Rows{}) << "somebody has pressed rows since";
}

TEST_F(FollowedRows, AreNotThoseThatAFilterLetsInLater) {
  store().setMineOnly(true);
  store().select({"c"});
  EXPECT_EQ(rows(), Rows{});
  store().setMineOnly(false);
  EXPECT_EQ(rows(), Rows{});
}

TEST_F(FollowedRows, AreThoseThatTheirOwnerMoves) {
  model().select("b", false);
  answer(boardOf({ticketOf("a"), ticketOf("b", "in_review"), ticketOf("c")}));
  store().setStatus(*store().currentFile(), "in_review");
  EXPECT_EQ(rows(), Rows{4});
  poll();
  EXPECT_EQ(rows(), Rows{});
  answer(boardOf({ticketOf("a"), ticketOf("b"), ticketOf("c")}));
  poll();
  EXPECT_EQ(rows(), Rows{}) << "a colleague's doing";
}

TEST_F(FollowedRows, AreThoseThatAreDueSooner) {
  model().select("c", false);
  routes.set("POST api/files/c/due", answerOf(200, "{}"));
  answer(boardOf({ticketOf("a"), ticketOf("b"), dueIn("c", 30)}));
  store().setUrgent(*store().currentFile(), true);
  EXPECT_EQ(rows(), Rows{1});
  answer(boardOf({dueIn("a", 9), ticketOf("b"), dueIn("c", 40)}));
  poll();
  EXPECT_EQ(rows(), Rows{}) << "a colleague's doing";
}

TEST_F(FollowedRows, AreThoseThatAreTakenBack) {
  model().select("c", false);
  answer(boardOf({ticketOf("a"), ticketOf("b"), ticketOf("c", "reviewed")}));
  store().setStatus(*store().currentFile(), "reviewed");
  EXPECT_EQ(rows(), Rows{1}) << "the next";
  ASSERT_EQ(store().selection(), std::set<std::string>{"a"});
  answer(boardOf({ticketOf("a"), ticketOf("b"), ticketOf("c")}));
  store().undoToast();
  EXPECT_EQ(rows(), Rows{3}) << "out of a group that is folded";
  EXPECT_EQ(store().selection(), std::set<std::string>{"c"});
}

TEST_F(FollowedRows, ComeAgainWithTheBoardOfTheNextSession) {
  store().select({"c"});
  EXPECT_EQ(rows(), Rows{3});
  const auto board = store().board();
  store().board.set(std::nullopt);
  EXPECT_EQ(rows(), Rows{});
  store().board.set(board);
  EXPECT_EQ(rows(), Rows{3});
}

}  // namespace
}  // namespace vellix
