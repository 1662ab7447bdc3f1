// The activity feed over the column of tickets.
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class ActivityViews : public ViewTest {
 protected:
  ActivityViews() { serveTheDay(); }

  void open(int events = 3) {
    tell(events);
    showMain({1'500, 940});
    theme()->setReducedMotion(true);
    window()->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  }
  // The newest first, as the service tells them.
  void tell(int events) {
    BoardState board = *store().board();
    board.rev += 1;
    board.events.clear();
    for (Int id = events; id > 0; --id) {
      Event event{.id = id,
                  .at = wireOf(desk.time.now()),
                  .by = "jorvas@tessarine.example",
                  .kind = "status",
                  .text = "Told " + std::to_string(id)};
      // The oldest are of tickets that are here: the second of one's fifth page.
      if (id <= 2) event.file_id = "t2";
      if (id == 2) event.page = 4;
      if (id == 3) event.file_id = "gone";
      board.events.push_back(event);
    }
    serveBoard(board, "\"b" + std::to_string(board.rev) + "\"");
    poll();
    if (window()) settle();
  }
  bool shown() { return reader().find("Activity", QAccessible::Dialog); }
  bool comes() {
    const bool there = QTest::qWaitFor([this] { return shown(); });
    settle();
    return there;
  }
  bool goes() {
    return QTest::qWaitFor([this] { return !shown(); });
  }
  void openFeed() {
    ASSERT_TRUE(press("Activity: who did what"));
    ASSERT_TRUE(comes());
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window(), key, modifiers);
    settle();
  }
  QString keyed() {
    auto* at = window()->activeFocusItem();
    auto* seenAs = at ? QAccessible::queryAccessibleInterface(at) : nullptr;
    return seenAs ? seenAs->text(QAccessible::Name) : QString{};
  }
  // From the top; a list makes its rows in any order.
  QList<QQuickItem*> lines() {
    QList<QQuickItem*> all = seen(window()->contentItem(), "ActivityLine");
    std::ranges::sort(all, {}, [](const QQuickItem* line) { return line->y(); });
    return all;
  }
  QQuickItem* list() {
    for (QQuickItem* view : seen(window()->contentItem(), "QQuickListView")) {
      auto* seenAs = QAccessible::queryAccessibleInterface(view);
      if (seenAs && seenAs->text(QAccessible::Name) == "Activity") return view;
    }
    return nullptr;
  }
};

TEST_F(ActivityViews, OpenByTheClockButton) {
  open();
  EXPECT_FALSE(shown());
  openFeed();
  EXPECT_TRUE(store().showActivity());
  EXPECT_TRUE(reader().find("Activity", QAccessible::Heading));
  ASSERT_EQ(lines().size(), 3);
  QQuickItem* line = lines().value(0);
  EXPECT_EQ(line->property("label").toString(), "Jorvas told 3");
  EXPECT_TRUE(seenText(line, "Jorvas"));
  EXPECT_TRUE(seenText(line, "told 3"));
  EXPECT_EQ(seen(line, "Avatar").value(0)->width(), 20);
  QQuickItem* popup = seen(window()->contentItem(), "QQuickPopupItem").value(0);
  ASSERT_TRUE(popup);
  EXPECT_EQ(popup->size(), QSizeF(360, 460));
}

TEST_F(ActivityViews, TellWhenAndWhere) {
  open();
  openFeed();
  EXPECT_TRUE(seenText(lines().value(0), "just now"));
  EXPECT_TRUE(seenText(lines().value(1), "just now · Harbour Bread · p5"));
  EXPECT_TRUE(seenText(lines().value(2), "just now · Harbour Bread"));
  desk.time.advance(Milliseconds{225'000});
  poll();
  settle();
  EXPECT_TRUE(seenText(lines().value(0), "3 min ago"));
}

TEST_F(ActivityViews, OpenAndCloseByTheCommand) {
  open();
  key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_TRUE(comes());
  key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_TRUE(goes());
  EXPECT_FALSE(store().showActivity());
  ASSERT_TRUE(press("Review", QAccessible::MenuItem));
  ASSERT_TRUE(press("Activity", QAccessible::MenuItem));
  EXPECT_TRUE(comes());
}

TEST_F(ActivityViews, AreThereFromTheStart) {
  store().showActivity.set(true);
  open();
  EXPECT_TRUE(comes());
  EXPECT_EQ(lines().size(), 3);
}

TEST_F(ActivityViews, LeadToATicketAndItsPage) {
  open();
  openFeed();
  ASSERT_TRUE(press("Jorvas told 2"));
  EXPECT_TRUE(goes());
  EXPECT_FALSE(store().showActivity());
  EXPECT_EQ(store().selection(), std::set<std::string>{"t2"});
  EXPECT_EQ(store().page().at("t2"), 4);
}

TEST_F(ActivityViews, LeadNowhereWithoutATicket) {
  open();
  openFeed();
  const auto selected = store().selection();
  EXPECT_FALSE(reader().find("Jorvas told 3", QAccessible::Button));
  auto* line = reader().find("Jorvas told 3", QAccessible::ListItem);
  ASSERT_TRUE(line);
  QTest::mouseClick(window(), Qt::LeftButton, {}, window()->mapFromGlobal(line->rect().center()));
  settle();
  EXPECT_TRUE(shown());
  EXPECT_EQ(store().selection(), selected);
}

TEST_F(ActivityViews, AreWorkedByKeyAndGiveTheKeyboardBack) {
  open();
  QQuickItem* clock = seen(window()->contentItem(), "ActivityButton").value(0);
  clock->forceActiveFocus(Qt::TabFocusReason);
  key(Qt::Key_Return);
  ASSERT_TRUE(QTest::qWaitFor([this] { return keyed() == "Jorvas told 3"; }))
      << keyed().toStdString();
  EXPECT_TRUE(window()->activeFocusItem()->property("visualFocus").toBool());
  key(Qt::Key_Down);
  EXPECT_EQ(keyed(), "Jorvas told 2");
  key(Qt::Key_End);
  EXPECT_EQ(keyed(), "Jorvas told 1");
  key(Qt::Key_Down);
  EXPECT_EQ(keyed(), "Jorvas told 1") << "the last stays the last";
  key(Qt::Key_Home);
  EXPECT_EQ(keyed(), "Jorvas told 3");
  key(Qt::Key_Tab);
  EXPECT_EQ(keyed(), "Jorvas told 3") << "there is nothing else here";
  key(Qt::Key_Return);
  EXPECT_TRUE(shown()) << "it leads nowhere";
  key(Qt::Key_Escape);
  EXPECT_TRUE(goes());
  EXPECT_FALSE(store().showActivity());
  EXPECT_TRUE(QTest::qWaitFor([&] { return clock->hasActiveFocus(); }));
  EXPECT_TRUE(clock->property("visualFocus").toBool());
  key(Qt::Key_Return);
  ASSERT_TRUE(comes());
  key(Qt::Key_End);
  key(Qt::Key_Return);
  EXPECT_TRUE(goes());
  EXPECT_EQ(store().selection(), std::set<std::string>{"t2"});
}

TEST_F(ActivityViews, ComeToTheKeyboardFromThePointerToo) {
  open();
  openFeed();
  key(Qt::Key_Down);
  EXPECT_EQ(keyed(), "Jorvas told 3");
  EXPECT_TRUE(window()->activeFocusItem()->property("visualFocus").toBool());
}

TEST_F(ActivityViews, ComeToTheKeyboardFromTheCommand) {
  open();
  key(Qt::Key_Y, Qt::ControlModifier);
  ASSERT_TRUE(comes());
  key(Qt::Key_Down);
  EXPECT_EQ(keyed(), "Jorvas told 3");
  EXPECT_TRUE(window()->activeFocusItem()->property("visualFocus").toBool());
  key(Qt::Key_Down);
  EXPECT_EQ(keyed(), "Jorvas told 2");
  EXPECT_TRUE(window()->activeFocusItem()->property("visualFocus").toBool());
}

TEST_F(ActivityViews, APressElsewhereCloses) {
  open();
  openFeed();
  const auto selected = store().selection();
  QTest::mouseClick(window(), Qt::LeftButton, {}, {120, 200});
  EXPECT_TRUE(goes());
  EXPECT_FALSE(store().showActivity());
  EXPECT_EQ(store().selection(), selected);
  openFeed();
  ASSERT_TRUE(press("Activity: who did what"));
  EXPECT_TRUE(goes());
}

TEST_F(ActivityViews, BuildOnlyTheLinesInSight) {
  open(500);
  openFeed();
  EXPECT_EQ(list()->property("count").toInt(), 500);
  EXPECT_GT(lines().size(), 5);
  EXPECT_LT(lines().size(), 40);
}

TEST_F(ActivityViews, FollowTheBoardAtTheTop) {
  open(100);
  openFeed();
  tell(103);
  EXPECT_EQ(lines().value(0)->property("label").toString(), "Jorvas told 103");
  EXPECT_GE(lines().value(0)->mapToScene({}).y(), list()->mapToScene({}).y());
}

TEST_F(ActivityViews, KeepTheScrollingAndTheFocusOverAPoll) {
  open(100);
  openFeed();
  key(Qt::Key_Down);
  for (int i = 0; i < 30; ++i) key(Qt::Key_Down);
  EXPECT_EQ(keyed(), "Jorvas told 70");
  QQuickItem* line = window()->activeFocusItem();
  const qreal place = line->mapToScene({}).y();
  tell(104);
  EXPECT_EQ(keyed(), "Jorvas told 70");
  EXPECT_EQ(window()->activeFocusItem(), line);
  EXPECT_EQ(line->mapToScene({}).y(), place);
  key(Qt::Key_Up);
  EXPECT_EQ(keyed(), "Jorvas told 71");
}

TEST_F(ActivityViews, StayWithoutEvents) {
  open(0);
  openFeed();
  EXPECT_TRUE(lines().isEmpty());
  key(Qt::Key_Down);
  EXPECT_TRUE(shown());
  key(Qt::Key_Escape);
  EXPECT_TRUE(goes());
}

TEST_F(ActivityViews, ShortenWhatIsLong) {
  tell(2);
  BoardState board = *store().board();
  board.users[1].name = std::string(80, 'M') + " Lind";
  board.events[0].text = std::string(400, 'w') + " " + std::string(400, 'x');
  board.events[1].text = "<img src='x'> & <b>bold</b>";
  store().board.set(board);
  showMain({760, 540});
  theme()->setReducedMotion(true);
  openFeed();
  QQuickItem* line = lines().value(0);
  for (QQuickItem* label : seen(line, "Label")) {
    EXPECT_LE(label->mapToItem(line, {label->width(), 0}).x(), line->width() - 7);
  }
  EXPECT_LT(line->height(), 100);
  EXPECT_TRUE(seenText(lines().value(1), "<img src='x'> & <b>bold</b>")) << "as it was written";
}

TEST_F(ActivityViews, GoWithTheSession) {
  open();
  openFeed();
  store().signOut(false);
  settle();
  EXPECT_TRUE(goes());
  EXPECT_FALSE(store().showActivity()) << "the next one begins without";
}

}  // namespace
}  // namespace vellix
