// The column of tickets, worked as a reviewer would.
#include <QQuickItem>
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

using Ids = std::set<std::string>;

class BoardViews : public ViewTest {
 protected:
  BoardViews() {
    serveTheDay();
    const auto all = models();
    show("Board/Sidebar",
         {{"board", all["board"]},
          {"activity", all["activity"]},
          {"log", all["log"]},
          {"pictures", all["pictures"]}},
         {284, 700});
  }
  BoardModel& model() { return *models()["board"].value<BoardModel*>(); }
  QStringList tickets() { return reader().names(QAccessible::ListItem); }
  // Rows that go are seen to go.
  bool comesTo(const QStringList& expected) {
    return QTest::qWaitFor([&] { return tickets() == expected; });
  }
  static bool showsText(const QString& text, const QQuickItem* root) {
    if (root->isVisible() && root->property("text").toString() == text) return true;
    return std::ranges::any_of(root->childItems(),
                               [&](const QQuickItem* child) { return showsText(text, child); });
  }
  void click(const QString& ticket, Qt::KeyboardModifiers modifiers) {
    auto* row = reader().find(ticket, QAccessible::ListItem);
    ASSERT_TRUE(row);
    const QPoint middle = window()->mapFromGlobal(row->rect().center());
    QTest::mouseClick(window(), Qt::LeftButton, modifiers, middle);
    settle();
  }
};

TEST_F(BoardViews, ShowTheOpenTicketsByName) {
  EXPECT_EQ(tickets(), (QStringList{"The Lighthouse", "Harbour Bread"}));
  auto* row = reader().find("The Lighthouse", QAccessible::ListItem);
  ASSERT_TRUE(row);
  EXPECT_TRUE(row->text(QAccessible::Description).startsWith("PO 7 · Harrow Print, "));
}

TEST_F(BoardViews, ChooseATicketByItsRow) {
  ASSERT_TRUE(press("Harbour Bread", QAccessible::ListItem));
  EXPECT_EQ(store().selection(), Ids{"t2"});
  EXPECT_TRUE(reader().find("Harbour Bread", QAccessible::ListItem)->state().selected);
  EXPECT_FALSE(reader().find("The Lighthouse", QAccessible::ListItem)->state().selected);
}

TEST_F(BoardViews, AddATicketByACommandClick) {
  click("The Lighthouse", Qt::NoModifier);
  click("Harbour Bread", Qt::ControlModifier);
  EXPECT_EQ(store().selection(), (Ids{"t1", "t2"}));
  click("The Lighthouse", Qt::ControlModifier);
  EXPECT_EQ(store().selection(), Ids{"t2"});
}

TEST_F(BoardViews, AddATicketByTheKeysOfACommandClick) {
  click("The Lighthouse", Qt::NoModifier);
  const auto keyed = [this] { return window()->activeFocusItem()->property("label").toString(); };
  for (int i = 0; i < 40 && keyed() != "The Lighthouse"; ++i)
    QTest::keyClick(window(), Qt::Key_Tab);
  QMetaObject::invokeMethod(seen(window()->contentItem(), "Sidebar").value(0), "step",
                            Q_ARG(int, 1));
  ASSERT_EQ(keyed(), "Harbour Bread");
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    QTest::keyClick(window(), key, Qt::ControlModifier);
    EXPECT_EQ(store().selection(), (Ids{"t1", "t2"}));
    QTest::keyClick(window(), key, Qt::ControlModifier);
    EXPECT_EQ(store().selection(), Ids{"t1"});
  }
  QTest::keyClick(window(), Qt::Key_Space, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(store().selection(), Ids{"t1"});
}

TEST_F(BoardViews, TakeNoRangeByShift) {
  click("The Lighthouse", Qt::NoModifier);
  click("Harbour Bread", Qt::ShiftModifier);
  EXPECT_EQ(store().selection(), Ids{"t2"});
}

TEST_F(BoardViews, UnfoldTheReviewed) {
  ASSERT_TRUE(press("Reviewed"));
  EXPECT_TRUE(comesTo({"The Lighthouse", "Harbour Bread", "Rain"}));
  ASSERT_TRUE(press("Reviewed"));
  EXPECT_TRUE(comesTo({"The Lighthouse", "Harbour Bread"}));
}

TEST_F(BoardViews, SwitchTheQueue) {
  ASSERT_TRUE(press("Reprints", QAccessible::RadioButton));
  EXPECT_EQ(store().effectiveQueue(), "reprint");
  EXPECT_TRUE(comesTo({}));
  EXPECT_TRUE(reader().find("No reprints here.", QAccessible::StaticText));
  EXPECT_TRUE(reader().find("Nothing waiting in this queue.", QAccessible::StaticText));
  ASSERT_TRUE(press("New titles", QAccessible::RadioButton));
  EXPECT_TRUE(comesTo({"The Lighthouse", "Harbour Bread"}));
  EXPECT_FALSE(reader().find("No reprints here.", QAccessible::StaticText));
}

TEST_F(BoardViews, ShowOnlyTheReviewersOwn) {
  ASSERT_TRUE(press("Only mine", QAccessible::CheckBox));
  EXPECT_TRUE(store().mineOnly());
  EXPECT_TRUE(reader().find("Only mine", QAccessible::CheckBox)->state().checked);
  EXPECT_TRUE(comesTo({}));
}

TEST_F(BoardViews, SayHowManyAreOverdue) {
  EXPECT_FALSE(reader().find("1 overdue", QAccessible::StaticText));
  desk.time.advance(Milliseconds{61'000});
  poll();
  settle();
  EXPECT_TRUE(reader().find("1 overdue", QAccessible::StaticText));
}

TEST_F(BoardViews, AskForTheThumbsOfTheirRows) { EXPECT_TRUE(pictures.asked.contains("thumb-1")); }

TEST_F(BoardViews, RefreshByTheLiveDot) {
  ASSERT_TRUE(press("Up to date"));
  EXPECT_EQ(desk.toastText(), "Up to date.");
  EXPECT_EQ(reader().find("Up to date", QAccessible::Button)->text(QAccessible::Description),
            "Refresh (Ctrl+R)");
  routes.set(kStateLine, std::unexpected(HttpError::notConnected));
  poll();
  settle();
  auto* offline = reader().find("Offline", QAccessible::Button);
  ASSERT_TRUE(offline);
  EXPECT_EQ(offline->text(QAccessible::Description), kOfflineText);
}

TEST_F(BoardViews, KeepTheLiveDotsWordsAsItsHelpWhenThereIsNoRoom) {
  store().lastOK.set(desk.time.now() - Milliseconds{300'000});
  settle();
  const QString words = model().liveDot()["text"].toString();
  auto* wide = reader().find(words, QAccessible::Button);
  ASSERT_TRUE(wide);
  const int before = wide->rect().width();
  resize({180, 700});
  auto* narrow = reader().find(words, QAccessible::Button);
  ASSERT_TRUE(narrow);
  EXPECT_LT(narrow->rect().width(), before);
  EXPECT_EQ(narrow->object()->property("help").toString(), words);
}

TEST_F(BoardViews, AskForASync) {
  routes.set("POST api/jobs", answerOf(200, "{}"));
  auto* sync = reader().find("Sync", QAccessible::Button);
  ASSERT_TRUE(sync);
  EXPECT_EQ(
      sync->text(QAccessible::Description),
      "Check supplier mail for new proofs, file them to Drive and run the checks (Ctrl+Shift+S)");
  EXPECT_FALSE(reader().find("Stop", QAccessible::Button));
  ASSERT_TRUE(press("Sync"));
  EXPECT_EQ(desk.toastText(), "Asked the Mac mini to sync.");
}

TEST_F(BoardViews, WatchASyncAndStopIt) {
  BoardState board = *store().board();
  board.sync = jobOf("queued", "sync");
  for (const auto& [status, step, text] : {std::tuple{"queued", "", "In line"},
                                           {"running", "Reading mail", "Reading mail"},
                                           {"stuck", "", "Mac mini not answering"}}) {
    board.sync->status = status;
    board.sync->step = step;
    store().board.set(board);
    settle();
    EXPECT_TRUE(reader().find(text, QAccessible::StaticText)) << text;
    EXPECT_FALSE(reader().find("Sync", QAccessible::Button));
    EXPECT_EQ(reader().enabled("Stop"), 1);
  }
  ASSERT_TRUE(press("Stop"));
  EXPECT_EQ(desk.http.count("POST api/jobs/j/stop"), 1U);
  EXPECT_EQ(reader().enabled("Stop"), 0) << "while the request is on its way";
}

TEST_F(BoardViews, ShowWhoIsHere) {
  const auto told = [this](const QString& person) {
    auto* seen = reader().find(person, QAccessible::Button);
    return seen ? seen->text(QAccessible::Description) : "nobody";
  };
  EXPECT_EQ(told("Your page and stats"), "");
  EXPECT_EQ(told("Jorvas's page and stats"), "");
  BoardState board = *store().board();
  board.users[1].last_seen = wireOf(desk.time.now());
  store().board.set(board);
  settle();
  EXPECT_EQ(told("Your page and stats"), "");
  EXPECT_EQ(told("Jorvas's page and stats"), "In Vellix now");
}

TEST_F(BoardViews, ShowThePhotoInThePlaceOfTheLetter) {
  const auto letter = [this](const QString& text) {
    return showsText(text, window()->contentItem());
  };
  EXPECT_TRUE(letter("R"));
  EXPECT_TRUE(letter("J"));
  BoardState board = *store().board();
  board.users[0].photo = "photo-1";
  store().board.set(board);
  settle();
  EXPECT_TRUE(pictures.asked.contains("photo-1"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !letter("R"); }));
  EXPECT_TRUE(letter("J"));
  board.users[0].photo.reset();
  store().board.set(board);
  settle();
  EXPECT_TRUE(letter("R"));
}

}  // namespace
}  // namespace vellix
