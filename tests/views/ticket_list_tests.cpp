// A long list of tickets under the hand: what stays put, and where the keys go.
#include <QQuickItem>
#include <QTest>

#include "views/sights.hpp"
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
  // As the program's commands do.
  void step(int by) {
    QQuickItem* files = seen(window()->contentItem(), "FileList").value(0);
    QMetaObject::invokeMethod(files, "step", Q_ARG(int, by));
    settle();
  }
  void tabIn() {
    for (int tab = 0; tab < 5; ++tab) key(Qt::Key_Tab);
  }
  bool ringed() { return window()->activeFocusItem()->property("visualFocus").toBool(); }
  static int numberOf(const QString& title) { return title.mid(6).toInt(); }
  bool comesTo(const QString& name) {
    return QTest::qWaitFor([&] {
      settle();
      return focused() == name;
    });
  }
  // How far the list has been scrolled from its top.
  double contentY() {
    return list()->property("contentY").toDouble() - list()->property("originY").toDouble();
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
  for (int i = 0; i < 6; ++i) {
    key(Qt::Key_Tab);
    order.append(focused());
  }
  EXPECT_EQ(order,
            (QStringList{"Up to date", "New titles", "Reprints", "Only mine", "Title 0", "Sync"}))
      << "the list is one stop";
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(focused(), "Title 0");
  EXPECT_TRUE(ringed());
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(focused(), "Only mine");
}

TEST_F(TicketLists, TellTheirKeys) {
  showTickets(3);
  auto* tickets = reader().find("Tickets", QAccessible::List);
  ASSERT_TRUE(tickets);
  const QString told = tickets->text(QAccessible::Description);
  for (const QString key : {"Alt+Up", "Alt+Down", "Page Up", "Page Down", "Home", "End"}) {
    EXPECT_TRUE(told.contains(key)) << key.toStdString();
  }
}

TEST_F(TicketLists, AreComeToAtTheTicketOnShow) {
  showTickets(300);
  store().select({"t200"});
  settle();
  place(200);
  scrollTo(0);
  tabIn();
  EXPECT_EQ(focused(), title(200));
  EXPECT_TRUE(inView(200) && inView(199) && inView(201));
  key(Qt::Key_Home);
  key(Qt::Key_Tab);
  EXPECT_EQ(focused(), "Sync");
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(focused(), title(200));
  store().select({"elsewhere"});
  key(Qt::Key_Tab);
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(focused(), title(0));
}

TEST_F(TicketLists, GoFromRowToRowAndBringThemIntoView) {
  showTickets(300);
  focusOn(0);
  for (int number = 1; number < 30; ++number) {
    step(1);
    ASSERT_EQ(focused(), title(number));
    EXPECT_TRUE(ringed() && inView(number) && inView(number + 1)) << number;
  }
  for (int number = 28; number >= 0; --number) {
    step(-1);
    ASSERT_EQ(focused(), title(number));
    EXPECT_TRUE(ringed() && inView(number)) << number;
  }
  step(-1);
  EXPECT_EQ(focused(), title(0));
  EXPECT_EQ(contentY(), 0) << "with the group's header";
}

TEST_F(TicketLists, GoByScreenfulsAndToTheirEnds) {
  showTickets(5'000);
  focusOn(0);
  key(Qt::Key_PageDown);
  const int first = numberOf(focused());
  EXPECT_GT(first, 4);
  EXPECT_LT(first, 12);
  EXPECT_TRUE(ringed() && inView(first));
  key(Qt::Key_PageDown);
  EXPECT_NEAR(numberOf(focused()), 2 * first, 2);
  key(Qt::Key_PageUp);
  EXPECT_NEAR(numberOf(focused()), first, 2);
  key(Qt::Key_End);
  EXPECT_EQ(focused(), title(4'999));
  EXPECT_TRUE(ringed() && inView(4'999) && inView(4'998));
  step(1);
  key(Qt::Key_PageDown);
  EXPECT_EQ(focused(), title(4'999));
  key(Qt::Key_End, Qt::ShiftModifier);
  key(Qt::Key_Home, Qt::AltModifier);
  EXPECT_EQ(focused(), title(4'999)) << "meant without other keys";
  key(Qt::Key_Home);
  EXPECT_EQ(focused(), title(0));
  EXPECT_TRUE(ringed() && inView(0));
  EXPECT_LT(list()->property("contentItem").value<QQuickItem*>()->childItems().size(), 60);
}

TEST_F(TicketLists, GoPastAHeaderAndOntoOneThatFolds) {
  showTickets(3);
  board().files[1].status = "in_review";
  board().files[2].status = "reviewed";
  serve();
  place(0);
  focusOn(0);
  step(1);
  EXPECT_EQ(focused(), title(1));
  step(1);
  EXPECT_EQ(focused(), "Reviewed");
  EXPECT_TRUE(ringed());
  key(Qt::Key_Return);
  place(2);
  EXPECT_EQ(focused(), "Reviewed");
  step(1);
  EXPECT_EQ(focused(), title(2));
}

TEST_F(TicketLists, KeepTheKeyboardOnARowThatIsScrolledAway) {
  showTickets(300);
  focusOn(3);
  scrollTo(200 * 60);
  EXPECT_EQ(focused(), title(3));
  step(1);
  EXPECT_EQ(focused(), title(4));
  EXPECT_TRUE(inView(4));
}

TEST_F(TicketLists, TellTheRowWithTheKeyboardOfTimeThatPassesHoweverFarAway) {
  showTickets(300);
  focusOn(3);
  const auto told = [&] {
    auto* row = QAccessible::queryAccessibleInterface(window()->activeFocusItem());
    return row ? row->text(QAccessible::Description).section(u',', 0, 0) : QString{};
  };
  EXPECT_EQ(told(), "Due in 3 min");
  for (int screen = 1; screen < 20; ++screen) scrollTo(screen * 600);
  qmlEngine(list())->collectGarbage();
  desk.time.advance(Milliseconds{60'000});
  poll();
  settle();
  EXPECT_EQ(focused(), title(3));
  EXPECT_EQ(told(), "Due in 2 min");
}

TEST_F(TicketLists, HandTheKeyboardOnFromARowThatGoes) {
  showTickets(9);
  store().select({"t2"});
  settle();
  focusOn(5);
  board().files.erase(board().files.begin() + 5);
  serve();
  EXPECT_TRUE(comesTo(title(6))) << "it stands in its place";
  EXPECT_TRUE(ringed());
  board().files.pop_back();
  board().files.pop_back();
  board().files.pop_back();
  serve();
  EXPECT_TRUE(comesTo(title(4))) << "the last there is";
  focusOn(2);
  store().setStatus(*store().currentFile(), "reviewed");
  EXPECT_TRUE(comesTo(title(0))) << "the ticket that follows";
  EXPECT_TRUE(ringed());
  EXPECT_EQ(store().selection(), std::set<std::string>{"t0"});
}

TEST_F(TicketLists, KeepTheRowThatAScreenReaderGoesTo) {
  showTickets(9);
  store().select({"t2"});
  settle();
  auto* row = reader().find(title(6), QAccessible::ListItem);
  ASSERT_TRUE(row && row->state().focusable);
  row->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  place(6);
  EXPECT_EQ(focused(), title(6));
  step(1);
  EXPECT_EQ(focused(), title(7));
  for (const QString& name : reader().names(QAccessible::ListItem)) {
    EXPECT_TRUE(reader().find(name, QAccessible::ListItem)->state().focusable);
  }
}

TEST_F(TicketLists, RememberTheRowWhileAnotherWindowIsInFront) {
  showTickets(9);
  window()->requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  focusOn(6);
  QQuickWindow other;
  other.show();
  other.requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  settle();
  window()->requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  settle();
  EXPECT_EQ(focused(), title(6));
  EXPECT_TRUE(ringed());
  step(1);
  EXPECT_EQ(focused(), title(7));
}

TEST_F(TicketLists, KeepTheOrderWhenTicketsMove) {
  showTickets(6);
  board().files[4].due = kFirstDue - 1;
  board().files.push_back(early(900));
  serve();
  place(0);
  focusOn(4);
  QStringList order{focused()};
  for (int i = 0; i < 3; ++i) {
    step(1);
    order.append(focused());
  }
  EXPECT_EQ(order, (QStringList{title(4), title(0), title(1), title(2)}));
  EXPECT_EQ(reader().names(QAccessible::ListItem).mid(1, 4), order);
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
  for (const Qt::Key arrow : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Left}) {
    for (const Qt::KeyboardModifier held : {Qt::NoModifier, Qt::ShiftModifier, Qt::AltModifier}) {
      key(arrow, held);
      EXPECT_EQ(focused(), title(2));
      EXPECT_EQ(list()->property("contentY"), before);
    }
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

class TicketListPlaces : public TicketLists {
 protected:
  double height() { return list()->height(); }
  QObject* glide() {
    const auto all = list()->findChildren<QObject*>();
    const auto found = std::ranges::find_if(all, [](const QObject* each) {
      return each->inherits("QQuickNumberAnimation") && each->property("row").isValid();
    });
    return found == all.end() ? nullptr : *found;
  }
  double end() { return list()->property("contentHeight").toDouble() + 16 - height(); }
  void stand() {
    ASSERT_TRUE(QTest::qWaitFor([this] {
      const double before = contentY();
      QTest::qWait(50);
      settle();
      return contentY() == before;
    }));
  }
};

TEST_F(TicketListPlaces, KeepTheirMarginAtTheEnd) {
  showTickets(30);
  focusOn(0);
  key(Qt::Key_End);
  EXPECT_EQ(contentY(), end());
  scrollTo(list()->property("contentY").toDouble() - 16);
  step(-1);
  EXPECT_EQ(contentY(), end()) << "beside the last";
  key(Qt::Key_Home);
  EXPECT_EQ(contentY(), 0);
}

TEST_F(TicketListPlaces, GlideToWhatTheProgramSelects) {
  showTickets(300);
  QTest::qWait(200);
  settle();
  store().select({"t10"});
  settle();
  const double first = contentY();
  EXPECT_FALSE(inView(10)) << "on its way";
  stand();
  EXPECT_GT(contentY(), first);
  EXPECT_TRUE(inView(9) && inView(10) && inView(11));
  const double near = contentY();
  store().select({"t9"});
  stand();
  EXPECT_EQ(contentY(), near) << "it is in sight with its neighbours";
  store().select({"t250"});
  settle();
  EXPECT_GT(contentY(), 100 * 60) << "from afar the last of the way alone";
  stand();
  EXPECT_TRUE(inView(249) && inView(250) && inView(251));
  EXPECT_LT(list()->property("contentItem").value<QQuickItem*>()->childItems().size(), 60);
  store().select({"t0"});
  stand();
  EXPECT_EQ(contentY(), 0);
}

struct Landing {
  const char* name;
  int from;      // is selected first
  int to;        // then this
  int more = 0;  // come in above at the same time
  int gone = 0;  // tickets, from the tenth on, that go then
};
BOOST_DESCRIBE_STRUCT(Landing, (), (name, from, to, more, gone))

class TicketListLandings : public TicketListPlaces, public testing::WithParamInterface<Landing> {};

TEST_P(TicketListLandings, AreGlidedToInOneGo) {
  const auto& each = GetParam();
  showTickets(300);
  QTest::qWait(200);
  store().select({"t" + std::to_string(each.from)});
  stand();
  for (int i = 0; i < each.more; ++i) board().files.push_back(early(900 + i));
  board().files.erase(board().files.begin() + 10, board().files.begin() + 10 + each.gone);
  store().board.set(board());
  store().select({"t" + std::to_string(each.to)});
  desk.time.run();
  std::vector<double> frames;
  const auto told = QObject::connect(window(), &QQuickWindow::afterAnimating, window(),
                                     [&] { frames.push_back(contentY()); });
  settle();
  const double aim = glide()->property("to").toDouble();
  stand();
  QObject::disconnect(told);
  EXPECT_EQ(list()->property("contentY").toDouble(), aim) << "no leap at the end";
  EXPECT_TRUE(inView(each.to - 1) && inView(each.to) && inView(each.to + 1));
  frames.push_back(contentY());
  if (each.to > each.from) {
    EXPECT_TRUE(std::ranges::is_sorted(frames)) << testing::PrintToString(frames);
  } else {
    EXPECT_TRUE(std::ranges::is_sorted(frames, std::greater{})) << testing::PrintToString(frames);
  }
}

INSTANTIATE_TEST_SUITE_P(All, TicketListLandings,
                         testing::Values(Landing{"Down", 2, 12}, Landing{"FarDown", 2, 200},
                                         Landing{"Up", 40, 33}, Landing{"FarUp", 250, 20},
                                         Landing{"DownPastNewOnes", 2, 5, 7},
                                         Landing{"DownPastMany", 2, 9, 60},
                                         Landing{"DownWhereOthersGo", 2, 30, 0, 15},
                                         Landing{"FarDownPastNewOnes", 2, 200, 7},
                                         Landing{"UpWhereOthersGo", 60, 48, 0, 9}),
                         [](const auto& each) { return each.param.name; });

TEST_F(TicketListPlaces, ShowTheTicketOnShowInTheOtherQueue) {
  showTickets(300);
  QTest::qWait(200);
  for (int i = 0; i < 300; i += 2) board().files[static_cast<std::size_t>(i)].track = "reprint";
  serve();
  store().select({"t150"});
  stand();
  EXPECT_EQ(contentY(), 0) << "it is not in this one";
  ASSERT_TRUE(press("Reprints", QAccessible::RadioButton));
  stand();
  EXPECT_EQ(store().selection(), std::set<std::string>{"t150"});
  EXPECT_TRUE(inView(148) && inView(150) && inView(152));
  EXPECT_GT(contentY(), 60 * 60);
}

TEST_F(TicketListPlaces, JumpWhereMotionIsReduced) {
  showTickets(300);
  QTest::qWait(200);
  theme()->setReducedMotion(true);
  store().select({"t250"});
  settle();
  EXPECT_TRUE(inView(249) && inView(250) && inView(251));
}

TEST_F(TicketListPlaces, BeginAtTheTicketOnShow) {
  BoardState all = boardOf({});
  for (int i = 0; i < 300; ++i) all.files.push_back(numbered(i));
  store().board.set(all);
  store().select({"t150"});
  desk.time.run();
  showTickets(300);
  ASSERT_TRUE(QTest::qWaitFor([this] { return contentY() > 0; }));
  settle();
  EXPECT_TRUE(inView(149) && inView(150) && inView(151));
}

TEST_F(TicketListPlaces, LeaveARowThatIsPressedWhereItIs) {
  showTickets(300);
  QTest::qWait(200);
  scrollTo(100 * 60 + 20);
  const QStringList names = reader().names(QAccessible::ListItem);
  for (const QString& name : {names.first(), names[names.size() / 2], names.last()}) {
    const double before = contentY();
    ASSERT_TRUE(press(name, QAccessible::ListItem));
    stand();
    EXPECT_EQ(contentY(), before) << name.toStdString();
    EXPECT_EQ(store().selection(), std::set<std::string>{"t" + std::to_string(numberOf(name))});
  }
}

TEST_F(TicketListPlaces, FollowFromTicketToTicketAsTheyAreReviewed) {
  showTickets(40);
  QTest::qWait(200);
  store().select({"t30"});
  stand();
  ASSERT_TRUE(inView(30));
  store().setStatus(*store().currentFile(), "reviewed");
  stand();
  EXPECT_EQ(store().selection(), std::set<std::string>{"t0"});
  EXPECT_TRUE(inView(0));
  EXPECT_EQ(contentY(), 0);
}

TEST_F(TicketListPlaces, DrawALineOverThemOnlyWhileTheyAreScrolled) {
  showTickets(300);
  theme()->setReducedMotion(true);
  const auto lines = [this] {
    const auto found = seen(seen(window()->contentItem(), "FileList").value(0), "Hairline");
    QList<double> tops;
    for (const QQuickItem* line : found) {
      tops.append(line->y() - list()->y());
    }
    return tops;
  };
  EXPECT_EQ(lines(), QList<double>{});
  scrollTo(30);
  EXPECT_EQ(lines(), QList<double>{0});
  QMetaObject::invokeMethod(list(), "positionViewAtBeginning");
  settle();
  EXPECT_EQ(lines(), QList<double>{});
}

}  // namespace
}  // namespace vellix
