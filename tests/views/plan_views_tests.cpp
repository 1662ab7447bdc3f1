// When a ticket is due and who reviews it, changed in the main window as a reviewer would.
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class PlanViews : public ViewTest {
 protected:
  PlanViews() { serveTheDay(); }

  void open(QSize size = {1'500, 940}) {
    showMain(size);
    theme()->setReducedMotion(true);
    window()->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  }
  void change(const std::function<void(BoardState&)>& how) {
    BoardState board = *store().board();
    how(board);
    store().board.set(board);
    if (window()) settle();
  }
  void changeTicket(const std::function<void(FileItem&)>& how) {
    change([&](BoardState& board) { how(board.files[0]); });
  }
  // What a poll brings while something is open.
  void pollAnother() {
    BoardState board = *store().board();
    board.rev += 1;
    board.files[0].rev = board.files[0].rev.value_or(0) + 1;
    board.files[0].summary = "Another summary";
    board.users[1].last_seen = wireOf(desk.time.now());
    serveBoard(board, "\"b" + std::to_string(board.rev) + "\"");
    poll();
    settle();
  }
  std::vector<std::string> posted() {
    std::vector<std::string> all;
    for (const auto& each : desk.http.exchanges) {
      if (each.line().starts_with("POST")) {
        all.push_back(each.line() + " " + each.request.body.value_or(""));
      }
    }
    return all;
  }
  bool has(const QString& name, QAccessible::Role role) { return reader().find(name, role); }
  bool says(const QString& text) { return has(text, QAccessible::StaticText); }
  bool dueOpen() { return has("Review due", QAccessible::Dialog); }
  bool assignOpen() { return has("Reviewer", QAccessible::Dialog); }
  void openDue() {
    ASSERT_TRUE(press(dueLabel()));
    ASSERT_TRUE(QTest::qWaitFor([this] { return dueOpen(); }));
    settle();
  }
  void openAssign(const QString& label = "Assign") {
    ASSERT_TRUE(press(label));
    ASSERT_TRUE(QTest::qWaitFor([this] { return assignOpen(); }));
    settle();
  }
  bool dueCloses() {
    return QTest::qWaitFor([this] { return !dueOpen(); });
  }
  bool assignCloses() {
    return QTest::qWaitFor([this] { return !assignOpen(); });
  }
  QString dueLabel() { return button("DueButton")->property("label").toString(); }
  QQuickItem* button(const char* type) {
    QQuickItem* found = seen(window()->contentItem(), type).value(0);
    EXPECT_TRUE(found) << type;
    return found;
  }
  // The whole of what is picked, as it is read.
  QString picked() {
    QStringList parts;
    for (const QString& name : reader().names(QAccessible::SpinBox)) {
      parts.append(name.section(": ", 1));
    }
    return parts.join(' ');
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
  bool ringed() { return window()->activeFocusItem()->property("visualFocus").toBool(); }
  void tabTo(const QString& name) {
    for (int i = 0; i < 60 && keyed() != name; ++i) key(Qt::Key_Tab);
    ASSERT_EQ(keyed(), name);
  }
  void focusOn(const char* type) {
    button(type)->forceActiveFocus(Qt::TabFocusReason);
    settle();
  }
};

using Lines = std::vector<std::string>;

TEST_F(PlanViews, StandInTheTitleInTheOrderOfTheEye) {
  open();
  QQuickItem* due = button("DueButton");
  QQuickItem* assign = button("AssignButton");
  const auto right = [](QQuickItem* item) { return item->mapToScene({item->width(), 0}).x(); };
  EXPECT_GT(due->mapToScene({}).x(), right(seen(window()->contentItem(), "TrackPill").value(0)));
  EXPECT_GT(assign->mapToScene({}).x(), right(due));
  focusOn("DueButton");
  key(Qt::Key_Tab);
  EXPECT_EQ(keyed(), "Assign");
  key(Qt::Key_Tab);
  EXPECT_EQ(keyed(), "Share");
  key(Qt::Key_Tab);
  EXPECT_EQ(keyed(), "Mark reviewed");
}

TEST_F(PlanViews, TellWhatTheyAreFor) {
  open();
  auto* due = reader().find("Due in 1 min", QAccessible::Button);
  ASSERT_TRUE(due);
  EXPECT_EQ(due->text(QAccessible::Description), "When the review is due");
  auto* assign = reader().find("Assign", QAccessible::Button);
  ASSERT_TRUE(assign);
  EXPECT_EQ(assign->text(QAccessible::Description), "Who reviews this");
}

TEST_F(PlanViews, TellTheDueDateInWords) {
  open();
  changeTicket([](FileItem& file) { file.due.reset(); });
  EXPECT_EQ(dueLabel(), "Set due");
  EXPECT_TRUE(seenText(button("DueButton"), "Set due"));
  changeTicket([](FileItem& file) { file.status = "reviewed"; });
  EXPECT_EQ(dueLabel(), "Reviewed");
  changeTicket([this](FileItem& file) {
    file.status = "new";
    file.due = wireOf(desk.time.now()) - 7'200'000;
  });
  EXPECT_EQ(dueLabel(), "Overdue 2 hr");
  EXPECT_EQ(seen(button("DueButton"), "Pillbox").value(0)->property("tone").toString(), "red");
}

TEST_F(PlanViews, LetTheDueDateGoOnWithTheTime) {
  open();
  desk.time.advance(Milliseconds{165'000});
  poll();
  settle();
  EXPECT_EQ(dueLabel(), "Overdue 2 min");
}

TEST_F(PlanViews, ShowTheTermsOfTheDueDate) {
  changeTicket([this](FileItem& file) {
    file.received = wireOf(desk.time.now()) - 3'600'000;
    file.deadline = wireOf(desk.time.now());
    file.due_by = "jorvas@tessarine.example";
    file.urgent = true;
  });
  open();
  openDue();
  EXPECT_TRUE(has("Review due", QAccessible::Heading));
  EXPECT_TRUE(says("Due the same day, by 11:59 PM for the reviewer."));
  EXPECT_TRUE(reader().find("Urgent", QAccessible::CheckBox)->state().checked);
  EXPECT_TRUE(has("Due", QAccessible::Grouping));
  EXPECT_TRUE(
      says("Every review is due within 48 hours of the file coming in, or by the "
           "supplier's date when that's sooner. Latest: Nov 16, 2023, 9:13 PM"));
  EXPECT_TRUE(says("Set by Jorvas"));
  EXPECT_EQ(reader().enabled("Back to 48 hours"), 1);
  EXPECT_EQ(reader().enabled("Set"), 1);
}

TEST_F(PlanViews, SetTheDateThatIsPicked) {
  open();
  openDue();
  EXPECT_EQ(picked(), "Tue, Nov 14 10 13 PM");
  ASSERT_TRUE(press("A day later"));
  ASSERT_TRUE(press("A quarter of an hour later"));
  EXPECT_EQ(picked(), "Wed, Nov 15 10 15 PM");
  EXPECT_TRUE(posted().empty()) << "nothing is sent before it is set";
  ASSERT_TRUE(press("Set"));
  EXPECT_EQ(posted(), Lines{R"(POST api/files/t1/due {"due":1700086500000})"});
  EXPECT_TRUE(dueCloses());
}

// Today at 11:30 PM, now being 10:13 PM: not every hour that is typed on the way is still to come.
TEST_F(PlanViews, TakeATimeThatIsTyped) {
  desk.calendar.to24 = true;
  changeTicket([this](FileItem& file) { file.due = wireOf(desk.time.now()) + 77 * 60'000; });
  open();
  openDue();
  EXPECT_EQ(picked(), "Tue, Nov 14 23 30");
  tabTo("Hour: 23");
  key(Qt::Key_2);
  EXPECT_EQ(picked(), "Tue, Nov 14 2 30");
  key(Qt::Key_2);
  EXPECT_EQ(picked(), "Tue, Nov 14 22 30");
  key(Qt::Key_1);
  key(Qt::Key_Tab);
  EXPECT_EQ(picked(), "Tue, Nov 14 22 13") << "which has passed";
  key(Qt::Key_5);
  EXPECT_EQ(picked(), "Tue, Nov 14 22 5");
  key(Qt::Key_0);
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  key(Qt::Key_2);
  key(Qt::Key_3);
  key(Qt::Key_Tab);
  key(Qt::Key_4);
  EXPECT_EQ(picked(), "Tue, Nov 14 23 4");
  auto* set = qobject_cast<QQuickItem*>(reader().find("Set", QAccessible::Button)->object());
  const QRectF place = set->mapRectToScene(set->boundingRect());
  QTest::mouseClick(window(), Qt::LeftButton, {}, place.center().toPoint());
  settle();
  // 11:04 PM, though the minute was still waiting for its second digit.
  EXPECT_EQ(posted(), Lines{R"(POST api/files/t1/due {"due":1700003040000})"});
}

TEST_F(PlanViews, OfferNoTimeOutOfTheRange) {
  changeTicket(
      [this](FileItem& file) { file.received = wireOf(desk.time.now()) - 47 * 3'600'000.0; });
  open();
  openDue();
  EXPECT_EQ(reader().enabled("A day earlier"), 0);
  EXPECT_EQ(reader().enabled("A quarter of an hour earlier"), 0);
  EXPECT_EQ(reader().enabled("A day later"), 0) << "the last hour is of this day";
  for (int i = 0; i < 5; ++i) press("A quarter of an hour later");
  EXPECT_EQ(picked(), "Tue, Nov 14 11 13 PM");
  EXPECT_EQ(reader().enabled("A quarter of an hour later"), 0);
}

TEST_F(PlanViews, KeepThePickOverAPoll) {
  open();
  openDue();
  press("A day later");
  const QString before = picked();
  changeTicket([](FileItem& file) { file.due = *file.due + 600'000; });
  desk.time.advance(Milliseconds{200'000});
  pollAnother();
  EXPECT_TRUE(dueOpen());
  EXPECT_EQ(picked(), before);
  ASSERT_TRUE(press("Set"));
  EXPECT_TRUE(dueCloses());
  answer(desk.http.exchanges.size() - 1, answerOf(500, "{}"));
  settle();
  openDue();
  EXPECT_NE(picked(), before) << "it begins anew with the date of the ticket";
}

TEST_F(PlanViews, HoldAPickThatHasPassed) {
  changeTicket([](FileItem& file) { file.due.reset(); });
  open();
  openDue();
  desk.time.advance(Milliseconds{300'000});
  poll();
  settle();
  EXPECT_EQ(picked(), "Tue, Nov 14 10 18 PM");
  ASSERT_TRUE(press("Set"));
  EXPECT_EQ(posted(), Lines{R"(POST api/files/t1/due {"due":1700000300000})"});
}

TEST_F(PlanViews, CloseBeforeTheySend) {
  open();
  struct Row {
    const char* name;
    QAccessible::Role role;
    const char* body;
  };
  for (const Row& each : {Row{"Urgent", QAccessible::CheckBox, R"({"urgent":true})"},
                          {"Back to 48 hours", QAccessible::Button, R"({"reset":true})"}}) {
    openDue();
    ASSERT_TRUE(press(each.name, each.role));
    EXPECT_TRUE(dueCloses()) << each.name;
    EXPECT_EQ(posted().back(), std::string{"POST api/files/t1/due "} + each.body);
    EXPECT_FALSE(button("DueButton")->isEnabled()) << "while it is on its way";
    answer(desk.http.exchanges.size() - 1, answerOf(500, "{}"));
    settle();
    EXPECT_TRUE(button("DueButton")->isEnabled());
  }
}

TEST_F(PlanViews, TakeTheUrgencyBack) {
  changeTicket([](FileItem& file) { file.urgent = true; });
  open();
  openDue();
  ASSERT_TRUE(press("Urgent", QAccessible::CheckBox));
  EXPECT_EQ(posted(), Lines{R"(POST api/files/t1/due {"urgent":false})"});
}

TEST_F(PlanViews, PickNothingWhenTheTimeHasRunOut) {
  changeTicket(
      [this](FileItem& file) { file.received = wireOf(desk.time.now()) - 53 * 3'600'000.0; });
  open();
  openDue();
  EXPECT_TRUE(says("Its 48 hours ran out 5 hr ago."));
  EXPECT_FALSE(has("Due", QAccessible::Grouping));
  EXPECT_EQ(picked(), "");
  EXPECT_EQ(reader().enabled("Set"), 0);
  EXPECT_EQ(reader().enabled("Back to 48 hours"), 1);
}

TEST_F(PlanViews, AreWorkedByKey) {
  open();
  focusOn("DueButton");
  key(Qt::Key_Space);
  ASSERT_TRUE(QTest::qWaitFor([this] { return keyed() == "Urgent"; })) << keyed().toStdString();
  EXPECT_TRUE(ringed());
  key(Qt::Key_Tab);
  EXPECT_EQ(keyed(), "Day: Tue, Nov 14");
  key(Qt::Key_Up);
  EXPECT_EQ(keyed(), "Day: Wed, Nov 15");
  key(Qt::Key_Up);
  key(Qt::Key_Up);
  EXPECT_EQ(keyed(), "Day: Thu, Nov 16") << "the last day";
  key(Qt::Key_Down);
  key(Qt::Key_Right);
  EXPECT_EQ(keyed(), "Hour: 10");
  key(Qt::Key_1);
  key(Qt::Key_2);
  EXPECT_EQ(keyed(), "Hour: 12");
  key(Qt::Key_3);
  EXPECT_EQ(keyed(), "Hour: 3") << "a third digit begins anew";
  key(Qt::Key_Right);
  key(Qt::Key_4);
  key(Qt::Key_5);
  EXPECT_EQ(keyed(), "Minute: 45");
  key(Qt::Key_Right);
  EXPECT_EQ(keyed(), "Half of the day: PM");
  key(Qt::Key_A);
  EXPECT_EQ(keyed(), "Half of the day: AM");
  key(Qt::Key_Left);
  EXPECT_EQ(keyed(), "Minute: 45");
  EXPECT_EQ(picked(), "Wed, Nov 15 3 45 AM");
  tabTo("Set");
  key(Qt::Key_Return);
  EXPECT_EQ(posted(), Lines{R"(POST api/files/t1/due {"due":1700019900000})"});
  EXPECT_TRUE(dueCloses());
}

TEST_F(PlanViews, GiveTheKeyboardBack) {
  open();
  for (const char* type : {"DueButton", "AssignButton"}) {
    focusOn(type);
    key(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return keyed() != "" && !button(type)->hasActiveFocus(); }));
    key(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return button(type)->hasActiveFocus(); })) << type;
    EXPECT_TRUE(ringed()) << type;
    EXPECT_FALSE(dueOpen() || assignOpen());
  }
  EXPECT_TRUE(posted().empty());
}

TEST_F(PlanViews, GiveTheKeyboardBackOnceTheyRest) {
  open();
  focusOn("DueButton");
  key(Qt::Key_Return);
  ASSERT_TRUE(QTest::qWaitFor([this] { return keyed() == "Urgent"; }));
  key(Qt::Key_Space);
  ASSERT_TRUE(dueCloses());
  ASSERT_EQ(posted().size(), 1U);
  answer(desk.http.exchanges.size() - 1, answerOf(500, "{}"));
  settle();
  EXPECT_TRUE(QTest::qWaitFor([this] { return button("DueButton")->hasActiveFocus(); }));
  EXPECT_TRUE(ringed());
}

TEST_F(PlanViews, APressElsewhereOnlyCloses) {
  open();
  const auto selected = store().selection();
  openDue();
  QTest::mouseClick(window(), Qt::LeftButton, {}, {120, 200});
  EXPECT_TRUE(dueCloses());
  openAssign();
  QTest::mouseClick(window(), Qt::LeftButton, {}, {120, 200});
  EXPECT_TRUE(assignCloses());
  EXPECT_EQ(store().selection(), selected);
  EXPECT_TRUE(posted().empty());
}

TEST_F(PlanViews, CloseByTheirButtonsToo) {
  open();
  openDue();
  ASSERT_TRUE(press(dueLabel()));
  EXPECT_TRUE(dueCloses());
  openAssign();
  ASSERT_TRUE(press("Assign"));
  EXPECT_TRUE(assignCloses());
}

TEST_F(PlanViews, GoWithTheirTicket) {
  open();
  openDue();
  store().selection.set({"t2"});
  settle();
  EXPECT_TRUE(dueCloses());
  EXPECT_EQ(dueLabel(), "Set due");
  openAssign();
  store().selection.set({});
  settle();
  EXPECT_TRUE(assignCloses());
}

TEST_F(PlanViews, ShowWhoReviews) {
  changeTicket([](FileItem& file) { file.assignee = "jorvas@tessarine.example"; });
  open();
  EXPECT_TRUE(has("Jorvas", QAccessible::Button));
  EXPECT_EQ(seen(button("AssignButton"), "Avatar").size(), 1);
  changeTicket([](FileItem& file) { file.assignee.reset(); });
  EXPECT_TRUE(has("Assign", QAccessible::Button));
  EXPECT_TRUE(seen(button("AssignButton"), "Avatar").isEmpty());
}

TEST_F(PlanViews, OfferThePeople) {
  changeTicket([](FileItem& file) { file.assignee = "jorvas@tessarine.example"; });
  open();
  openAssign("Jorvas");
  EXPECT_TRUE(has("Reviewer", QAccessible::Heading));
  auto* me = reader().find("Renny Vale (you)", QAccessible::RadioButton);
  auto* other = reader().find("Jorvas Lind", QAccessible::RadioButton);
  ASSERT_TRUE(me && other);
  EXPECT_FALSE(me->state().checked);
  EXPECT_TRUE(other->state().checked);
  EXPECT_EQ(me->text(QAccessible::Description), "Usually new titles");
  EXPECT_EQ(other->text(QAccessible::Description), "Usually reprints");
  EXPECT_TRUE(has("Move to Reprints", QAccessible::Button));
}

TEST_F(PlanViews, Assign) {
  open();
  openAssign();
  ASSERT_TRUE(press("Jorvas Lind", QAccessible::RadioButton));
  EXPECT_TRUE(assignCloses());
  EXPECT_EQ(posted(), Lines{R"(POST api/files/t1/assign {"email":"jorvas@tessarine.example"})"});
  EXPECT_FALSE(button("AssignButton")->isEnabled());
}

TEST_F(PlanViews, ThePresentReviewersRowOnlyCloses) {
  changeTicket([](FileItem& file) { file.assignee = "jorvas@tessarine.example"; });
  open();
  openAssign("Jorvas");
  ASSERT_TRUE(press("Jorvas Lind", QAccessible::RadioButton));
  EXPECT_TRUE(assignCloses());
  EXPECT_TRUE(posted().empty());
}

TEST_F(PlanViews, MoveToTheOtherQueue) {
  open();
  openAssign();
  ASSERT_TRUE(press("Move to Reprints"));
  EXPECT_TRUE(assignCloses());
  EXPECT_EQ(posted(), Lines{R"(POST api/files/t1/track {"track":"reprint"})"});
}

TEST_F(PlanViews, GoThroughThePeopleByArrow) {
  open();
  focusOn("AssignButton");
  key(Qt::Key_Return);
  ASSERT_TRUE(QTest::qWaitFor([this] { return keyed() == "Renny Vale (you)"; }))
      << keyed().toStdString();
  EXPECT_TRUE(ringed());
  key(Qt::Key_Down);
  EXPECT_EQ(keyed(), "Jorvas Lind");
  key(Qt::Key_Down);
  EXPECT_EQ(keyed(), "Move to Reprints");
  key(Qt::Key_Up);
  EXPECT_EQ(keyed(), "Jorvas Lind");
  QQuickItem* row = window()->activeFocusItem();
  pollAnother();
  EXPECT_EQ(window()->activeFocusItem(), row);
  EXPECT_TRUE(ringed());
  key(Qt::Key_Return);
  EXPECT_TRUE(assignCloses());
  EXPECT_EQ(posted().size(), 1U);
}

TEST_F(PlanViews, ScrollThroughManyPeople) {
  change([](BoardState& board) {
    for (int i = 0; i < 30; ++i) {
      board.users.push_back({.email = "p" + std::to_string(i) + "@b.c",
                             .name = "Person " + std::to_string(i) + std::string(60, 'm')});
    }
  });
  open({760, 540});
  openAssign();
  QQuickItem* dialog = nullptr;
  if (auto* found = reader().find("Reviewer", QAccessible::Dialog)) {
    dialog = qobject_cast<QQuickItem*>(found->object());
  }
  ASSERT_TRUE(dialog);
  EXPECT_LE(dialog->mapToScene({0, dialog->height()}).y(), 540 - 8);
  EXPECT_GE(dialog->mapToScene({}).y(), 8);
  EXPECT_TRUE(has("Move to Reprints", QAccessible::Button));
  key(Qt::Key_Up);
  key(Qt::Key_Up);
  EXPECT_TRUE(keyed().startsWith("Person 29")) << keyed().toStdString();
  const QQuickItem* row = window()->activeFocusItem();
  EXPECT_LE(row->mapToScene({0, row->height()}).y(), dialog->mapToScene({0, dialog->height()}).y());
}

TEST_F(PlanViews, StayInANarrowWindow) {
  changeTicket([](FileItem& file) { file.title = std::string(120, 'm'); });
  open({760, 540});
  for (const char* type : {"DueButton", "AssignButton"}) {
    const QQuickItem* item = button(type);
    EXPECT_LE(item->mapToScene({item->width(), 0}).x(), 760 - 24) << type;
  }
  openDue();
  EXPECT_TRUE(says("Due the same day, by 11:59 PM for the reviewer."));
}

}  // namespace
}  // namespace vellix
