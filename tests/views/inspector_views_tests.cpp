// The panel beside the page, by keyboard and by pointer.
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class InspectorViews : public ViewTest {
 protected:
  // Three findings that wait on the first page, one on the second, two that passed.
  InspectorViews() {
    serveTheDay();
    detail = lighthouse();
    detail.findings = {named("f1", "One"),     named("f2", "Two"),        named("f3", "Three"),
                       named("f4", "Four", 1), named("p1", "Passed one"), named("p2", "Our edit")};
    detail.findings[4].kind = "pass";
    detail.findings[5].kind = "expected";
    serve();
    showMain({1'500, 940});
    theme()->setReducedMotion(true);
  }
  static Finding named(std::string id, std::string title, Int page = 0) {
    Finding finding = findingOf(std::move(id), page);
    finding.title = std::move(title);
    return finding;
  }
  void serve() {
    serveDetail(detail);
    store().details.set({{"t1", detail}});
    if (window()) settle();
  }
  QQuickItem* keyed() { return window()->activeFocusItem(); }
  // What has the keyboard and its ring; empty for none.
  QString ring() {
    return keyed() && keyed()->property("visualFocus").toBool()
               ? keyed()->property("label").toString()
               : QString{};
  }
  // The title of the card that has the keyboard.
  QString card() {
    for (const QQuickItem* item = keyed(); item; item = item->parentItem()) {
      if (isOfType(item, "FindingCard")) return item->property("title").toString();
    }
    return {};
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window(), key, modifiers);
    for (int i = 0; i < 3; ++i) settle();
  }
  void tabTo(const QString& label) {
    for (int i = 0; i < 80 && ring() != label; ++i) key(Qt::Key_Tab);
    ASSERT_EQ(ring(), label);
  }
  // Goes to a decision of the first card that has it.
  void tabToDecision(const QString& title, const QString& label) {
    tabTo(title);
    tabTo(label);
    ASSERT_EQ(card(), title);
  }

  FileDetail detail;
};

TEST_F(InspectorViews, CarryTheKeyboardToTheNextFindingInFront) {
  store().focus.set("f1");
  settle();
  tabToDecision("One", "Fine");
  key(Qt::Key_Return);
  EXPECT_EQ(store().focus(), "f2");
  EXPECT_EQ(card(), "Two");
  EXPECT_EQ(ring(), "Fine") << "the same decision is at hand";
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  ASSERT_EQ(ring(), "Real issue");
  key(Qt::Key_Return);
  EXPECT_EQ(card(), "Three");
  EXPECT_EQ(ring(), "Real issue");
  key(Qt::Key_Return);
  EXPECT_FALSE(store().focus());
  EXPECT_EQ(ring(), "Three") << "the last one has folded, with the keyboard";
}

TEST_F(InspectorViews, CarryTheKeyboardNowhereWhenAnotherFindingIsInFront) {
  store().focus.set("f3");
  settle();
  tabToDecision("One", "Fine");
  key(Qt::Key_Return);
  EXPECT_EQ(store().focus(), "f3") << "as it was";
  EXPECT_EQ(card(), "Two") << "the first that waits";
  EXPECT_EQ(ring(), "Fine");
  store().focus.set(std::nullopt);
  settle();
  store().focus.set("f3");
  settle();
  EXPECT_EQ(card(), "Two");
}

TEST_F(InspectorViews, CarryTheKeyboardFromOneThatWasNeverInFront) {
  tabToDecision("One", "Real issue");
  for (const char* each : {"Two", "Three"}) {
    key(Qt::Key_Space);
    EXPECT_EQ(card(), each);
    EXPECT_EQ(ring(), "Real issue");
  }
  key(Qt::Key_Space);
  EXPECT_EQ(ring(), "Three") << "the last one has folded, with the keyboard";
  EXPECT_FALSE(store().focus());
}

TEST_F(InspectorViews, FoldNothingInWhichSomebodyWrites) {
  Note note;
  note.id = "n1";
  note.page = 0;
  note.finding_id = "f1";
  note.by = "renny@tessarine.example";
  note.text = "Look at this";
  detail.comments = {note};
  serve();
  ASSERT_TRUE(press("Edit or delete"));
  ASSERT_TRUE(QTest::qWaitFor([this] { return press("Edit", QAccessible::MenuItem); }));
  ASSERT_TRUE(QTest::qWaitFor([this] {
    settle();
    auto* field = reader().find("Note", QAccessible::EditableText);
    return field && field->state().focused;
  }));
  const QQuickItem* writing = keyed();
  detail.findings[0].state = "issue";
  detail.file.rev = 2;
  serve();
  EXPECT_EQ(keyed(), writing) << "a colleague has decided";
  QTest::keyClick(window(), '!');
  EXPECT_TRUE(keyed()->property("text").toString().endsWith("!"));
  key(Qt::Key_Escape);
  EXPECT_FALSE(reader().find("Note", QAccessible::EditableText));
  EXPECT_TRUE(reader().find("One", QAccessible::Button)) << "now it folds";
  EXPECT_EQ(ring(), "One");
}

TEST_F(InspectorViews, KeepTheKeyboardOnACardThatFoldsAndOpens) {
  detail.findings[0].state = detail.findings[2].state = "issue";
  detail.file.rev = 2;
  serve();
  tabToDecision("Two", "Fine");
  key(Qt::Key_Return);
  EXPECT_EQ(ring(), "Two") << "folded, and further down";
  EXPECT_TRUE(reader().find("Two", QAccessible::Button));
  key(Qt::Key_Return);
  EXPECT_EQ(ring(), "Two");
  EXPECT_TRUE(reader().find("Two", QAccessible::ListItem));
  tabTo("Fine");
  EXPECT_EQ(card(), "Two");
  key(Qt::Key_Return);
  EXPECT_EQ(store().details().at("t1").findings[1].state, "open");
  EXPECT_EQ(ring(), "Fine") << "of the same card, back in its place";
  EXPECT_EQ(card(), "Two");
}

TEST_F(InspectorViews, KeepTheKeyboardWhereDecidedOnesDoNotFold) {
  store().prefs.foldDecided.set(false);
  settle();
  tabToDecision("One", "Fine");
  key(Qt::Key_Return);
  EXPECT_EQ(ring(), "Fine");
  EXPECT_EQ(card(), "Two");
  key(Qt::Key_Return);
  key(Qt::Key_Return);
  EXPECT_EQ(ring(), "Three") << "the card, not the button that would take it back";
  key(Qt::Key_Tab);
  key(Qt::Key_Tab);
  ASSERT_EQ(ring(), "Fine");
  key(Qt::Key_Return);
  EXPECT_EQ(ring(), "Fine") << "reopened";
  EXPECT_EQ(card(), "Three");
}

TEST_F(InspectorViews, LeaveTheKeyboardAloneWhenThePointerDecides) {
  tabTo("Make report");
  ASSERT_TRUE(press("Fine"));
  EXPECT_EQ(ring(), "Make report");
}

TEST_F(InspectorViews, GoFromCardToCardByTheArrowKeys) {
  tabTo("One");
  key(Qt::Key_Down);
  EXPECT_EQ(ring(), "Two");
  key(Qt::Key_Down);
  key(Qt::Key_Down);
  EXPECT_EQ(ring(), "Three") << "the last";
  key(Qt::Key_Up);
  EXPECT_EQ(ring(), "Two");
  key(Qt::Key_Return);
  EXPECT_EQ(store().focus(), "f2");
}

TEST_F(InspectorViews, HandTheKeyboardOnWhenThePageIsTurned) {
  tabTo("Two");
  key(Qt::Key_Down, Qt::ControlModifier);
  ASSERT_EQ(store().page().at("t1"), 1);
  EXPECT_EQ(ring(), "Four");
}

TEST_F(InspectorViews, LetThePagesBeTurnedOnAndOnByKey) {
  std::erase_if(detail.findings, [](const Finding& finding) { return finding.id == "f4"; });
  detail.findings.push_back(named("f5", "Five", 2));
  detail.file.rev = 2;
  serve();
  tabTo("Two");
  key(Qt::Key_Down, Qt::ControlModifier);
  ASSERT_EQ(store().page().at("t1"), 1);
  EXPECT_TRUE(isOfType(keyed(), "Inspector")) << "there is no finding, and no field takes it";
  key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(store().page().at("t1"), 2);
  EXPECT_EQ(ring(), "Five");
  key(Qt::Key_Up, Qt::ControlModifier);
  key(Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(ring(), "One");
}

TEST_F(InspectorViews, LetThePagesBeTurnedFromAnEmptyField) {
  tabTo("Two");
  QQuickItem* field = nullptr;
  for (int i = 0; i < 80 && !field; ++i) {
    key(Qt::Key_Tab);
    if (keyed()->inherits("QQuickTextEdit")) field = keyed();
  }
  ASSERT_TRUE(field);
  key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(store().page().at("t1"), 1);
  field->setProperty("text", "Let it run on");
  field->forceActiveFocus();
  key(Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(store().page().at("t1"), 1) << "within a text it leads about in that";
}

TEST_F(InspectorViews, KeepTheKeyboardThroughAPoll) {
  tabToDecision("Two", "Fine");
  detail.findings[0].title = "Another one";
  detail.file.rev = 2;
  serve();
  EXPECT_EQ(ring(), "Fine");
  EXPECT_EQ(card(), "Two");
}

TEST_F(InspectorViews, ShowWhatPassedOnceAsked) {
  EXPECT_FALSE(reader().find("Passed one", QAccessible::ListItem));
  ASSERT_TRUE(press("2 checked and fine"));
  ASSERT_TRUE(reader().find("Passed one", QAccessible::ListItem));
  EXPECT_TRUE(reader().find("Our edit", QAccessible::ListItem));
  EXPECT_EQ(seen(window()->contentItem(), "StateButton").size(), 6) << "none for these";
  QQuickItem* passed = seen(window()->contentItem(), "FindingCard")[3];
  const qreal brief = passed->height();
  ASSERT_TRUE(press("Passed one", QAccessible::ListItem));
  EXPECT_EQ(store().focus(), "p1");
  EXPECT_GT(passed->height(), brief);
  ASSERT_TRUE(press("2 checked and fine"));
  EXPECT_FALSE(reader().find("Passed one", QAccessible::ListItem));
}

TEST_F(InspectorViews, BringTheChosenCardIntoView) {
  resize({1'500, 540});
  ASSERT_TRUE(press("2 checked and fine"));
  store().focus.set("p2");
  settle();
  QQuickItem* chosen = nullptr;
  for (QQuickItem* each : seen(window()->contentItem(), "FindingCard")) {
    if (each->property("selected").toBool()) chosen = each;
  }
  ASSERT_TRUE(chosen);
  EXPECT_TRUE(QTest::qWaitFor([&] {
    settle();
    const QRectF place = chosen->mapRectToScene(chosen->boundingRect());
    return place.top() >= 0 && place.bottom() <= 540;
  }));
}

TEST_F(InspectorViews, BeginANoteOnAFinding) {
  ASSERT_TRUE(press("Add a note to this"));
  ASSERT_TRUE(store().draft());
  EXPECT_EQ(store().draft()->findingID, "f1");
}

TEST_F(InspectorViews, ShowTheNotesOfAFindingInItsCardAndCountThemOnceFolded) {
  Note note;
  note.id = "n1";
  note.page = 0;
  note.finding_id = "f1";
  note.by = "jorvas@tessarine.example";
  note.text = "Look at this";
  detail.comments = {note};
  serve();
  EXPECT_TRUE(reader().find("Look at this", QAccessible::StaticText));
  EXPECT_TRUE(reader().find("No notes on this page yet.", QAccessible::StaticText))
      << "it is the finding's, not the page's";
  ASSERT_TRUE(press("Resolve"));
  EXPECT_EQ(desk.http.count("POST api/comments/n1"), 1U);
  ASSERT_TRUE(press("Fine"));
  EXPECT_FALSE(reader().find("Look at this", QAccessible::StaticText));
  EXPECT_TRUE(reader().find("1 note", QAccessible::StaticText));
}

TEST_F(InspectorViews, KeepWhatIsWrittenThroughPollsAndPages) {
  auto field = [this] { return seen(window()->contentItem(), "TextArea").value(0); };
  ASSERT_TRUE(field());
  QMetaObject::invokeMethod(field(), "take", Q_ARG(int, Qt::TabFocusReason));
  for (const char letter : QByteArray{"folio"}) QTest::keyClick(window(), letter);
  settle();
  ASSERT_EQ(field()->property("text").toString(), "folio");
  QQuickItem* held = keyed();
  detail.findings[0].title = "Another one";
  detail.findings.erase(detail.findings.begin() + 1);
  detail.file.rev = 2;
  serve();
  EXPECT_EQ(keyed(), held);
  QTest::keyClick(window(), Qt::Key_Left);
  QTest::keyClick(window(), '!');
  EXPECT_EQ(field()->property("text").toString(), "foli!o") << "the caret stayed as well";
  store().goToPage("t1", 1);
  settle();
  EXPECT_EQ(field()->property("text").toString(), "foli!o");
  EXPECT_EQ(keyed(), held);
}

TEST_F(InspectorViews, TakeQuickChangesOneAfterAnother) {
  ASSERT_TRUE(press("Real issue"));
  EXPECT_EQ(store().details().at("t1").findings[0].state, "issue");
  EXPECT_EQ(desk.http.count("POST api/findings/f1"), 1U) << "and still on its way";
  store().prefs.foldDecided.set(false);
  settle();
  auto cards = seen(window()->contentItem(), "FindingCard");
  for (QQuickItem* each : cards) {
    if (each->property("id").toString() != "f1") continue;
    QMetaObject::invokeMethod(seen(each, "StateButton")[0], "click");
  }
  settle();
  EXPECT_EQ(store().details().at("t1").findings[0].state, "open");
  EXPECT_EQ(desk.http.count("POST api/findings/f1"), 2U);
}

}  // namespace
}  // namespace vellix
