// The marks of findings on a page where there are many: what they cost, and that each is still an
// area of its own for the pointer, the keyboard and a screen reader.
#include <QTest>

#include "views/page_sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class ManyMarks : public ViewTest {
 protected:
  ManyMarks() {
    serveTheDay();
    store().prefs.showNotes.set(false);
    store().prefs.showPageStrip.set(false);
    showMain({1'400, 900});
    theme()->setReducedMotion(true);
    settle();
  }
  void mark(int count) {
    FileDetail detail = lighthouse(++rev_);
    detail.findings.clear();
    for (int i = 0; i < count; ++i) {
      const int line = i / 25;
      detail.findings.push_back(findingOf("f" + std::to_string(i)));
      detail.findings.back().title = "Finding " + std::to_string(i);
      detail.findings.back().box = {0.02 + 0.038 * (i % 25), 0.02 + 0.024 * line, 0.03, 0.012};
    }
    store().details.set({{"t1", detail}});
    settle();
  }
  static qsizetype items(const QQuickItem* root) {
    qsizetype all = 1;
    for (const QQuickItem* each : root->childItems()) all += items(each);
    return all;
  }
  QList<SeenMark> marks() { return seenMarks(window()->contentItem()); }
  QString keyed() {
    const auto* item = qobject_cast<BoxMark*>(window()->activeFocusItem());
    for (const SeenMark& each : marks()) {
      if (item && each.marks == item->parentItem() && each.id == item->id()) return each.finding;
    }
    return {};
  }
  void tab(Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window(), modifiers ? Qt::Key_Backtab : Qt::Key_Tab, modifiers);
    settle();
  }

  Int rev_ = 1;
};

TEST_F(ManyMarks, AreNoItemsOfTheirOwn) {
  mark(10);
  const qsizetype few = items(window()->contentItem());
  const qsizetype objects = window()->contentItem()->findChildren<QObject*>().size();
  mark(1'000);
  EXPECT_EQ(marks().size(), 2'000) << "on two panes";
  EXPECT_LE(items(window()->contentItem()), few + 4) << "the first, and the last, of each pane";
  EXPECT_LT(window()->contentItem()->findChildren<QObject*>().size(), objects + 10);
}

TEST_F(ManyMarks, ArePassedByTheKeyboardOneByOne) {
  mark(3);
  marks().constFirst().item()->forceActiveFocus(Qt::TabFocusReason);
  EXPECT_EQ(keyed(), "f0");
  for (const char* next : {"f1", "f2", "f0", "f1", "f2"}) {
    tab();
    EXPECT_EQ(keyed(), next);
  }
  tab();
  EXPECT_EQ(keyed(), QString{}) << "behind the last pane's";
  tab(Qt::ShiftModifier);
  EXPECT_EQ(keyed(), "f2") << "from behind";
  for (const char* next : {"f1", "f0", "f2", "f1", "f0"}) {
    tab(Qt::ShiftModifier);
    EXPECT_EQ(keyed(), next);
  }
  tab(Qt::ShiftModifier);
  EXPECT_EQ(keyed(), QString{});
  tab();
  EXPECT_EQ(keyed(), "f0") << "from the front";
}

TEST_F(ManyMarks, ShowARingAroundTheOneThatTheKeyboardIsAt) {
  mark(3);
  const auto rings = [this] { return seen(window()->contentItem(), "FocusRing"); };
  EXPECT_TRUE(rings().isEmpty());
  marks().at(1).item()->forceActiveFocus(Qt::TabFocusReason);
  settle();
  ASSERT_EQ(rings().size(), 1);
  const QRectF ring = rings()[0]->mapRectToScene(rings()[0]->boundingRect());
  EXPECT_EQ(ring, marks().at(1).place.adjusted(-4, -4, 4, 4));
}

TEST_F(ManyMarks, ArePressedByKeyAndByPointer) {
  mark(3);
  marks().at(2).item()->forceActiveFocus(Qt::TabFocusReason);
  QTest::keyClick(window(), Qt::Key_Space);
  settle();
  EXPECT_EQ(store().focus(), "f2");
  store().clearFocus();
  settle();
  QTest::mouseClick(window(), Qt::LeftButton, {}, marks().at(1).place.center().toPoint());
  settle();
  EXPECT_EQ(store().focus(), "f1");
  EXPECT_FALSE(store().draft());
}

TEST_F(ManyMarks, AreNotPressedWhereThePressEndsOnAnother) {
  mark(3);
  QTest::mousePress(window(), Qt::LeftButton, {}, marks().at(0).place.center().toPoint());
  QTest::mouseMove(window(), marks().at(1).place.center().toPoint());
  QTest::mouseRelease(window(), Qt::LeftButton, {}, marks().at(1).place.center().toPoint());
  settle();
  EXPECT_FALSE(store().focus());
}

TEST_F(ManyMarks, AreButtonsForAScreenReader) {
  mark(1'000);
  const QString name = "Finding 999, Fix, Open, page 1";
  auto* found = reader().find(name, QAccessible::Button);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->text(QAccessible::Description), "Finding 999");
  EXPECT_TRUE(found->state().checkable);
  EXPECT_TRUE(found->state().focusable);
  EXPECT_FALSE(found->state().checked);
  const auto last = marks().at(999);
  EXPECT_EQ(found->rect().size(), last.place.size().toSize());
  EXPECT_EQ(found->parent()->child(found->parent()->indexOfChild(found)), found);
  EXPECT_EQ(found->parent()->childAt(found->rect().center().x(), found->rect().center().y()),
            found);
  found->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_EQ(keyed(), "f999");
  EXPECT_TRUE(found->state().focused);
  EXPECT_EQ(found->parent()->focusChild(), found);
  found->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  settle();
  EXPECT_EQ(store().focus(), "f999");
  EXPECT_TRUE(found->state().checked);
  mark(3);
  EXPECT_FALSE(reader().find(name, QAccessible::Button));
  EXPECT_EQ(keyed(), QString{}) << "gone with its mark";
}

TEST_F(ManyMarks, StayUnderThePointerWhileOthersComeAndGo) {
  mark(3);
  const QPoint at = marks().at(1).place.center().toPoint();
  QTest::mouseMove(window(), at - QPoint{1, 0});
  QTest::mouseMove(window(), at);
  settle();
  const auto hovered = [this] {
    QStringList all;
    for (const SeenMark& each : marks()) {
      if (each.hovered) all.append(each.finding);
    }
    return all;
  };
  EXPECT_EQ(hovered(), QStringList{"f1"});
  EXPECT_EQ(window()->cursor().shape(), Qt::PointingHandCursor);
  mark(40);
  EXPECT_EQ(hovered(), QStringList{"f1"});
  mark(1);
  EXPECT_EQ(hovered(), QStringList{});
}

}  // namespace
}  // namespace vellix
