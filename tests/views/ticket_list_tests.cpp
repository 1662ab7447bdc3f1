// A long list of tickets under the hand: what stays put, and where the keys go.
#include <QQuickItem>
#include <QTest>

#include "views/view_test.hpp"

namespace vellix {
namespace {

constexpr double kFirstDue = 1'700'000'000'000;

FileItem numbered(int number) {
  FileItem file = ticketOf("t" + std::to_string(number));
  file.title = "Title " + std::to_string(number);
  file.due = kFirstDue + number * 60'000;
  return file;
}

class TicketLists : public ViewTest {
 protected:
  void showTickets(int count) {
    board_ = boardOf({});
    for (int i = 0; i < count; ++i) board_.files.push_back(numbered(i));
    serve();
    const auto all = models();
    show("Board/Sidebar",
         {{"board", all["board"]},
          {"activity", all["activity"]},
          {"log", all["log"]},
          {"pictures", all["pictures"]}},
         {284, 700});
  }
  void serve() {
    serveBoard(board_, "\"" + std::to_string(++tag_) + "\"");
    poll();
  }
  BoardState& board() { return board_; }
  QQuickItem* list() {
    const auto items = window()->contentItem()->findChildren<QQuickItem*>();
    const auto found = std::ranges::find_if(
        items, [](const QQuickItem* item) { return item->inherits("QQuickListView"); });
    return found == items.end() ? nullptr : *found;
  }
  void scrollTo(double y) {
    list()->setProperty("contentY", y);
    settle();
  }
  QString title(int number) { return "Title " + QString::number(number); }
  // Where the row stands on screen once nothing moves any more.
  std::optional<int> place(int number) {
    QTest::qWait(500);
    settle();
    auto* row = reader().find(title(number), QAccessible::ListItem);
    return row ? std::optional{row->rect().y()} : std::nullopt;
  }
  QString focused() {
    QQuickItem* item = window()->activeFocusItem();
    auto* seen = item ? QAccessible::queryAccessibleInterface(item) : nullptr;
    return seen ? seen->text(QAccessible::Name) : QString{};
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window(), key, modifiers);
    settle();
  }
  void focusOn(int number) {
    auto* row = reader().find(title(number), QAccessible::ListItem);
    ASSERT_TRUE(row);
    qobject_cast<QQuickItem*>(row->object())->forceActiveFocus(Qt::TabFocusReason);
    settle();
  }
  bool inView(int number) {
    auto* row = reader().find(title(number), QAccessible::ListItem);
    if (!row) return false;
    const QRectF room = list()->mapRectToScene({{0, 0}, list()->size()});
    const QRect seen{window()->mapFromGlobal(row->rect().topLeft()), row->rect().size()};
    return room.adjusted(0, -1, 0, 1).contains(seen);
  }

 private:
  BoardState board_;
  int tag_ = 0;
};

struct Poll {
  const char* name;
  std::function<void(BoardState&)> change;
};
BOOST_DESCRIBE_STRUCT(Poll, (), (name))

class PollsBesideTheView : public TicketLists, public testing::WithParamInterface<Poll> {};

TEST_P(PollsBesideTheView, LeaveWhatTheReaderLooksAtInItsPlace) {
  showTickets(300);
  scrollTo(150 * 60);
  const auto rows = reader().names(QAccessible::ListItem);
  ASSERT_GT(rows.size(), 6);
  const int looked = rows[rows.size() / 2].mid(6).toInt();
  ASSERT_GT(looked, 100);
  const auto before = place(looked);
  ASSERT_TRUE(before);
  GetParam().change(board());
  serve();
  EXPECT_EQ(place(looked), before);
}

FileItem early(int number) {
  FileItem file = numbered(number);
  file.due = kFirstDue - number;
  return file;
}

INSTANTIATE_TEST_SUITE_P(
    All, PollsBesideTheView,
    testing::Values(
        Poll{"OneComesInAbove", [](BoardState& board) { board.files.push_back(early(900)); }},
        Poll{"ManyComeInAbove",
             [](BoardState& board) {
               for (int i = 0; i < 40; ++i) board.files.push_back(early(900 + i));
             }},
        Poll{"SomeGoAbove",
             [](BoardState& board) {
               board.files.erase(board.files.begin() + 5, board.files.begin() + 9);
             }},
        Poll{"OneIsTakenUpForReview",
             [](BoardState& board) { board.files[3].status = "in_review"; }},
        Poll{"OneGoesBackAbove", [](BoardState& board) { board.files[290].due = kFirstDue - 1; }},
        Poll{"OneBecomesHigher",
             [](BoardState& board) {
               board.files[3].due.reset();
               board.files[3].received = 1;
             }},
        Poll{"OneChangesBelow", [](BoardState& board) { board.files[299].po = "PO 9"; }},
        Poll{"SomeGoBelow", [](BoardState& board) { board.files.resize(250); }}),
    [](const auto& each) { return each.param.name; });

TEST_F(TicketLists, KeepTheSelectionOverAnyPoll) {
  showTickets(300);
  store().selection.set({"t3", "t200"});
  board().files.erase(board().files.begin());
  board().files.push_back(early(900));
  serve();
  EXPECT_EQ(store().selection(), (std::set<std::string>{"t3", "t200"}));
  board().files.clear();
  serve();
  EXPECT_EQ(store().selection(), (std::set<std::string>{"t3", "t200"}));
}

TEST_F(TicketLists, MakeOnlyTheRowsThatAreNearTheView) {
  showTickets(5'000);
  const auto rows = [this] {
    return list()->property("contentItem").value<QQuickItem*>()->childItems().size();
  };
  EXPECT_LT(rows(), 60);
  scrollTo(60 * 2'500);
  EXPECT_GT(rows(), 5);
  EXPECT_LT(rows(), 60);
}

TEST_F(TicketLists, GoThroughTheColumnByTabAsTheEyeDoes) {
  showTickets(3);
  reader().find("Up to date", QAccessible::Button);
  QStringList order;
  for (int i = 0; i < 7; ++i) {
    key(Qt::Key_Tab);
    order.append(focused());
  }
  EXPECT_EQ(order, (QStringList{"Up to date", "New titles", "Reprints", "Only mine", "Title 0",
                                "Title 1", "Title 2"}));
  key(Qt::Key_Tab);
  EXPECT_EQ(focused(), "Sync");
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(focused(), "Title 2");
}

TEST_F(TicketLists, GoDownByTabAndBringTheRowIntoView) {
  showTickets(300);
  focusOn(0);
  for (int number = 1; number < 30; ++number) {
    key(Qt::Key_Tab);
    ASSERT_EQ(focused(), title(number));
    EXPECT_TRUE(inView(number)) << number;
  }
  for (int number = 28; number >= 0; --number) {
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(focused(), title(number));
    EXPECT_TRUE(inView(number)) << number;
  }
}

TEST_F(TicketLists, KeepTheTabOrderWhenTicketsMove) {
  showTickets(6);
  board().files[4].due = kFirstDue - 1;
  board().files.push_back(early(900));
  serve();
  place(0);
  focusOn(4);
  QStringList order{focused()};
  for (int i = 0; i < 3; ++i) {
    key(Qt::Key_Tab);
    order.append(focused());
  }
  EXPECT_EQ(order, (QStringList{title(4), title(0), title(1), title(2)}));
}

TEST_F(TicketLists, PressTheFocusedRowBySpaceAndReturn) {
  showTickets(4);
  focusOn(2);
  key(Qt::Key_Space);
  EXPECT_EQ(store().selection(), std::set<std::string>{"t2"});
  focusOn(3);
  key(Qt::Key_Return);
  EXPECT_EQ(store().selection(), std::set<std::string>{"t3"});
}

TEST_F(TicketLists, KeepTheFocusOnAQueueWhoseCountChanges) {
  showTickets(2);
  for (int tab = 0; tab < 2; ++tab) key(Qt::Key_Tab);
  ASSERT_EQ(focused(), "New titles");
  board().files[0].status = "reviewed";
  serve();
  settle();
  EXPECT_EQ(focused(), "New titles");
}

TEST_F(TicketLists, TakeThePressOnAQueueWhoseCountChangesMeanwhile) {
  showTickets(2);
  auto* reprints = reader().find("Reprints", QAccessible::RadioButton);
  ASSERT_TRUE(reprints);
  const QPoint middle = window()->mapFromGlobal(reprints->rect().center());
  QTest::mousePress(window(), Qt::LeftButton, {}, middle);
  board().files[0].track = "reprint";
  serve();
  settle();
  QTest::mouseRelease(window(), Qt::LeftButton, {}, middle);
  settle();
  EXPECT_EQ(store().queue(), "reprint");
}

TEST_F(TicketLists, TakeNoArrowKeysOfTheirOwn) {
  showTickets(300);
  focusOn(2);
  const QVariant before = list()->property("contentY");
  for (const Qt::Key arrow :
       {Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Left, Qt::Key_PageDown, Qt::Key_End}) {
    key(arrow);
    EXPECT_EQ(focused(), title(2));
    EXPECT_EQ(list()->property("contentY"), before);
    EXPECT_EQ(list()->property("currentIndex").toInt(), -1);
  }
}

TEST_F(TicketLists, StayBlankOverTicketsOfNoGroup) {
  showTickets(1);
  board().files[0].status = "archived";
  serve();
  place(0);
  EXPECT_TRUE(reader().names(QAccessible::ListItem).isEmpty());
  EXPECT_FALSE(reader().find("Nothing to review.", QAccessible::StaticText));
  EXPECT_FALSE(reader().find("No new titles here.", QAccessible::StaticText));
}

}  // namespace
}  // namespace vellix
