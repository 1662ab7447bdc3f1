// The panel beside a page of a thousand findings, of which few are in sight.
#include <QPointer>
#include <QWheelEvent>

#include "views/notes_test.hpp"

namespace vellix {
namespace {

constexpr int kFindings = 1'000;
constexpr int kMost = 60;  // cards, wherever one has been

class PanelRows : public NotesViewTest {
 protected:
  PanelRows() {
    serveTheDay();
    detail = lighthouse();
    detail.findings.clear();
    for (int i = 0; i < kFindings; ++i) detail.findings.push_back(findingAt(i));
  }
  static Finding findingAt(int i) {
    Finding finding = findingOf("f" + std::to_string(i));
    finding.title = "Finding " + std::to_string(i);
    // Of any height.
    std::string words = "Found";
    for (int word = 0; word < 7 * i % 40; ++word) words += " elsewhere";
    finding.detail = words;
    return finding;
  }
  void open() {
    put();
    show("Inspector/Inspector",
         {{"inspector", models()["inspector"]},
          {"notes", models()["notes"]},
          {"history", models()["history"]},
          {"pictures", models()["pictures"]}},
         {320, 900});
    calm();
    rest();
  }
  void put() {
    detail.file.rev = detail.file.rev.value_or(0) + 1;
    store().details.set({{"t1", detail}});
  }
  // What is near has been made.
  void rest() {
    for (int i = 0; i < 30; ++i) settle();
  }
  QQuickItem* area() { return seen(window()->contentItem(), "ScrollArea").value(0); }
  double at() { return area()->property("contentY").toDouble(); }
  double end() { return area()->property("contentHeight").toDouble() - area()->height(); }
  void scroll(double to) {
    area()->setProperty("contentY", to);
    settle();
  }
  QList<QQuickItem*> cards() { return seen(window()->contentItem(), "FindingCard"); }
  static int indexOf(const QQuickItem* card) { return card->property("index").toInt(); }
  QQuickItem* card(int index) {
    for (QQuickItem* each : cards()) {
      if (indexOf(each) == index) return each;
    }
    return nullptr;
  }
  static double top(const QQuickItem* item) { return item->mapToScene({0, 0}).y(); }
  bool inSight(const QQuickItem* item) {
    return item && top(item) >= top(area()) - 0.5 && top(item) + item->height() <= 900.5;
  }
  QQuickItem* firstInSight() {
    for (QQuickItem* each : cards()) {
      if (inSight(each)) return each;
    }
    return nullptr;
  }
  // Cards lie below one another without a gap, and all of the view is full of them.
  void expectFull() {
    double below = top(area());
    for (const QQuickItem* each : cards()) {
      if (top(each) + each->height() < top(area()) || top(each) > 900) continue;
      EXPECT_LE(top(each), below + 8.01) << "before " << indexOf(each);
      below = top(each) + each->height();
    }
    const QQuickItem* last = card(kFindings - 1);
    EXPECT_GE(below, std::min(900.0, last ? top(last) + last->height() : 900) - 8.01);
  }
  int keyedCard() {
    for (const QQuickItem* item = keyed(); item; item = item->parentItem()) {
      if (isOfType(item, "FindingCard")) return indexOf(item);
    }
    return -1;
  }
  QQuickItem* edit(const char* text) {
    EXPECT_TRUE(press("Edit or delete"));
    EXPECT_TRUE(comes([this] { return offers("Edit"); }));
    EXPECT_TRUE(press("Edit", QAccessible::MenuItem));
    EXPECT_TRUE(comes([this] { return keyedName() == "Note"; }));
    type(text);
    key(Qt::Key_Left);
    return keyed();
  }

  FileDetail detail;
};

TEST_F(PanelRows, AreMadeWhereTheyAreInSightAndNear) {
  open();
  EXPECT_LT(cards().size(), kMost);
  EXPECT_GT(cards().size(), 5) << "and what the next key brings";
  for (const double part : {0.3, 0.9, 0.1, 1.0, 0.5}) {
    scroll(part * end());
    expectFull();
    rest();
    EXPECT_LT(cards().size(), kMost) << part;
  }
}

TEST_F(PanelRows, AreAllMadeOfAUsualPage) {
  detail.findings.resize(8);
  open();
  EXPECT_EQ(cards().size(), 8);
}

TEST_F(PanelRows, StandInTheirOrder) {
  open();
  for (const double part : {0.5, 0.2, 1.0, 0.2}) scroll(part * end());
  rest();
  QList<int> order;
  for (const QQuickItem* each : cards()) order.append(indexOf(each));
  EXPECT_TRUE(std::ranges::is_sorted(order));
  EXPECT_EQ(order.constFirst(), 0) << "Tab comes in from above";
  EXPECT_EQ(order.constLast(), kFindings - 1) << "and from below";
}

TEST_F(PanelRows, StayInTheirPlaceWhileTheirHeightsAreFound) {
  open();
  area()->setProperty("contentY", 0.5 * end());
  window()->grabWindow();
  const QPointer<QQuickItem> held = firstInSight();
  ASSERT_TRUE(held);
  const double place = top(held);
  const int first = indexOf(cards()[1]);
  rest();
  ASSERT_TRUE(held);
  EXPECT_LT(indexOf(cards()[1]), first) << "some above are new";
  EXPECT_NEAR(top(held), place, 0.51);
  for (int step = 1; step <= 40; ++step) {
    const QPointer<QQuickItem> seen = firstInSight();
    const double before = top(seen);
    scroll(at() - 100);
    ASSERT_TRUE(seen);
    EXPECT_NEAR(top(seen), before + 100, 0.51) << step;
    expectFull();
  }
}

TEST_F(PanelRows, StayInTheirPlaceUnderTheWheel) {
  open();
  scroll(end());
  theme()->setReducedMotion(false);
  bool moved = false;
  for (int turn = 0; turn < 12; ++turn) {
    const QPointF middle{160, 500};
    QWheelEvent wheel{middle,
                      window()->mapToGlobal(middle),
                      {},
                      {0, 360},
                      Qt::NoButton,
                      Qt::NoModifier,
                      Qt::NoScrollPhase,
                      false};
    wheel.setTimestamp(1'000 + 200 * static_cast<quint64>(turn));
    QGuiApplication::sendEvent(window(), &wheel);
    for (int frame = 0; frame < 6; ++frame) {
      const QPointer<QQuickItem> held = firstInSight();
      const double before = held ? top(held) : 0;
      settle();
      moved = moved || area()->property("moving").toBool();
      if (held) {
        EXPECT_GE(top(held), before - 0.01) << "never back";
      }
      expectFull();
    }
  }
  EXPECT_TRUE(moved);
  EXPECT_TRUE(QTest::qWaitFor([this] {
    settle();
    return !area()->property("moving").toBool();
  }));
  rest();
  const double place = top(firstInSight());
  scroll(at() - 1);
  scroll(at() + 1);
  EXPECT_NEAR(top(firstInSight()), place, 0.01);
  EXPECT_LT(at(), end() - 500);
  scroll(0);
  rest();
  EXPECT_EQ(indexOf(firstInSight()), 0);
}

TEST_F(PanelRows, StandAtTheEndWhereTheViewEnds) {
  open();
  scroll(end());
  rest();
  EXPECT_NEAR(at(), end(), 0.5);
  QQuickItem* last = card(kFindings - 1);
  ASSERT_TRUE(last);
  const QQuickItem* below = seen(window()->contentItem(), "NotesSection").value(0);
  EXPECT_NEAR(top(below), top(last) + last->height() + 8, 0.51);
}

TEST_F(PanelRows, AreGoneThroughByTheArrowKeys) {
  open();
  QMetaObject::invokeMethod(card(0), "takeKeyboard", Q_ARG(QString, ""));
  for (int i = 1; i <= 80; ++i) {
    QTest::keyClick(window(), Qt::Key_Down);
    window()->grabWindow();
    ASSERT_EQ(keyedCard(), i);
    ASSERT_TRUE(inSight(card(i))) << i;
  }
  scroll(end());
  rest();
  EXPECT_EQ(keyedCard(), 80) << "wherever the view is";
  key(Qt::Key_Up);
  EXPECT_EQ(keyedCard(), 79);
  EXPECT_TRUE(inSight(card(79)));
  scroll(0);
  rest();
  for (int i = 0; i < 4 && keyedCard() == 79; ++i) key(Qt::Key_Tab);
  EXPECT_EQ(keyedCard(), 80);
}

TEST_F(PanelRows, AreReachedFromBelow) {
  open();
  focus(field(kField));
  scroll(0);
  rest();
  for (int i = 0; i < 4 && keyedCard() < 0; ++i) key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(keyedCard(), kFindings - 1);
  for (int i = 0; i < 20; ++i) key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(keyedCard(), kFindings - 1 - 5) << "four stops each";
}

TEST_F(PanelRows, ComeIntoSightWhenTheyAreChosen) {
  open();
  for (const int chosen : {kFindings - 1, 3, 700}) {
    store().focus.set("f" + std::to_string(chosen));
    EXPECT_TRUE(comes([&] { return inSight(card(chosen)); })) << chosen;
    rest();
    EXPECT_TRUE(inSight(card(chosen))) << chosen;
    EXPECT_TRUE(card(chosen)->property("selected").toBool());
  }
  scroll(0);
  rest();
  EXPECT_TRUE(card(700)) << "as long as it is in front";
}

TEST_F(PanelRows, TakeWhatChangesOutOfSight) {
  open();
  detail.findings[600].title = "Another one";
  detail.findings.erase(detail.findings.begin() + 400);
  put();
  rest();
  store().focus.set("f600");
  ASSERT_TRUE(comes([this] { return inSight(card(599)); }));
  EXPECT_EQ(card(599)->property("title").toString(), "Another one");
}

TEST_F(PanelRows, CarryTheKeyboardOnPastTheEndOfWhatIsMade) {
  for (int i = 1; i < kFindings - 1; ++i)
    detail.findings[static_cast<std::size_t>(i)].state = "fine";
  store().prefs.foldDecided.set(false);
  open();
  QMetaObject::invokeMethod(card(0), "takeKeyboard", Q_ARG(QString, "fine"));
  settle();
  ASSERT_EQ(keyedName(), "Fine");
  key(Qt::Key_Return);
  EXPECT_EQ(keyed()->property("label").toString(), "Fine");
  const QQuickItem* at = card(keyedCard());
  ASSERT_TRUE(at);
  EXPECT_EQ(at->property("title").toString(), "Finding 999") << "the only one that waits";
  EXPECT_TRUE(inSight(at));
}

TEST_F(PanelRows, KeepWhatIsWrittenFarAway) {
  Note note = noteBy("n1", "renny", "Look at this");
  note.finding_id = "f2";
  detail.comments = {note};
  open();
  const QPointer<QQuickItem> written = edit("!?");
  ASSERT_EQ(textOf(written), "Look at this!?");
  const int caret = written->property("cursorPosition").toInt();
  for (const bool keyed : {true, false}) {
    if (!keyed) focus(card(0));
    scroll(end());
    rest();
    ASSERT_TRUE(written) << keyed;
    EXPECT_EQ(textOf(written), "Look at this!?");
    EXPECT_EQ(written->property("cursorPosition").toInt(), caret);
  }
  scroll(0);
  written->forceActiveFocus();
  type("+");
  EXPECT_EQ(textOf(written), "Look at this!+?");
}

TEST_F(PanelRows, KeepWhatWasOpenedFarAway) {
  detail.findings.resize(200);
  for (Finding& finding : detail.findings) finding.state = "fine";
  open();
  ASSERT_TRUE(press("Finding 0", QAccessible::Button));
  ASSERT_TRUE(press("Finding 2", QAccessible::Button));
  scroll(end());
  rest();
  EXPECT_LT(cards().size(), 2 * kMost) << "folded they are low";
  scroll(0);
  EXPECT_FALSE(card(2)->property("folded").toBool());
  EXPECT_TRUE(card(3)->property("folded").toBool());
}

TEST_F(PanelRows, AreAsFewOfNotes) {
  detail.findings.resize(1);
  for (int i = 0; i < 300; ++i) {
    detail.comments.push_back(noteBy("n" + std::to_string(i), i % 2 == 0 ? "renny" : "jorvas"));
  }
  open();
  const auto notes = [this] { return seen(window()->contentItem(), "NoteRow"); };
  EXPECT_LT(notes().size(), kMost);
  const QPointer<QQuickItem> written = edit("!?");
  scroll(end());
  rest();
  EXPECT_LT(notes().size(), kMost);
  EXPECT_GT(notes().size(), 10);
  ASSERT_TRUE(written);
  EXPECT_EQ(textOf(written), "Too dark!?");
  EXPECT_NEAR(at(), end(), 0.5);
  EXPECT_TRUE(inSight(seen(window()->contentItem(), "Composer").value(0)));
  type("+");
  EXPECT_EQ(textOf(written), "Too dark!+?");
}

}  // namespace
}  // namespace vellix
