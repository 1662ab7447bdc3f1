// What a screen reader is told of the state of controls.
#include <QQuickItem>
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

constexpr const char* kAssign = "Assign";

class ToldStates : public ViewTest {
 protected:
  void begin() {
    serveTheDay();
    showMain({1'500, 940});
    theme()->setReducedMotion(true);
    settle();
  }
  QAccessible::State of(const QString& name, QAccessible::Role role = QAccessible::Button) {
    auto* found = reader().find(name, role);
    EXPECT_TRUE(found) << name.toStdString();
    return found ? found->state() : QAccessible::State{};
  }
  bool disabled(const QString& name, QAccessible::Role role = QAccessible::Button) {
    return of(name, role).disabled;
  }
  // "expanded", "collapsed" or nothing.
  std::string fold(const QString& name, QAccessible::Role role = QAccessible::Button) {
    const auto state = of(name, role);
    EXPECT_EQ(state.expandable, state.expanded || state.collapsed);
    return state.expanded ? "expanded" : state.collapsed ? "collapsed" : "";
  }
};

TEST_F(ToldStates, SayWhatIsDisabled) {
  begin();
  EXPECT_FALSE(disabled("Mark reviewed"));
  EXPECT_TRUE(disabled("Previous page"));
  EXPECT_FALSE(disabled("Next page"));
  EXPECT_TRUE(disabled("Zoom out (Ctrl+-)"));
  store().busy.set({"status", "assign"});
  settle();
  EXPECT_TRUE(disabled("Mark reviewed"));
  EXPECT_TRUE(disabled(kAssign));
  store().busy.set({});
  settle();
  EXPECT_FALSE(disabled("Mark reviewed"));
}

TEST_F(ToldStates, SayWhatTakesNoPressForNow) {
  begin();
  EXPECT_FALSE(disabled("Sync"));
  store().busy.set({"sync"});
  settle();
  EXPECT_TRUE(disabled("Sync"));
}

TEST_F(ToldStates, SayWhichEntriesOfAMenuAreDisabled) {
  begin();
  ASSERT_TRUE(press("View ", QAccessible::MenuItem));
  EXPECT_FALSE(disabled("Zoom in", QAccessible::MenuItem));
  ASSERT_TRUE(press("View ", QAccessible::MenuItem));
  store().selection.set({});
  settle();
  ASSERT_TRUE(press("Review", QAccessible::MenuItem));
  EXPECT_TRUE(disabled("Mark reviewed", QAccessible::MenuItem));
}

TEST_F(ToldStates, SayWhatIsOpen) {
  begin();
  for (const auto& [name, role] : {std::pair{kAssign, QAccessible::Button},
                                   {"Account", QAccessible::Button},
                                   {"Activity: who did what", QAccessible::Button},
                                   {"Vellix", QAccessible::MenuItem}}) {
    EXPECT_EQ(fold(name, role), "collapsed") << name;
    ASSERT_TRUE(press(name, role)) << name;
    EXPECT_EQ(fold(name, role), "expanded") << name;
    QTest::keyClick(window(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(fold(name, role), "collapsed") << name;
  }
  EXPECT_EQ(fold("Mark reviewed"), "");
}

TEST_F(ToldStates, SayWhatIsFolded) {
  begin();
  EXPECT_EQ(fold("Reviewed"), "collapsed");
  ASSERT_TRUE(press("Reviewed"));
  EXPECT_EQ(fold("Reviewed"), "expanded");
  ASSERT_TRUE(press("Fine"));
  EXPECT_EQ(fold("A word changed"), "collapsed");
}

TEST_F(ToldStates, SayWhatIsChosen) {
  begin();
  EXPECT_TRUE(of("Side by side", QAccessible::RadioButton).checked);
  EXPECT_FALSE(of("Overlay", QAccessible::RadioButton).checked);
  ASSERT_TRUE(press("Overlay", QAccessible::RadioButton));
  EXPECT_TRUE(of("Overlay", QAccessible::RadioButton).checked);
  EXPECT_TRUE(of("The Lighthouse", QAccessible::ListItem).selected);
  EXPECT_FALSE(of("Harbour Bread", QAccessible::ListItem).selected);
  EXPECT_FALSE(of("Only mine", QAccessible::CheckBox).checked);
}

// Two interfaces know of one item: whoever asks, by whichever way, finds the one that tells more.
TEST_F(ToldStates, AreTheSameFromEverywhere) {
  begin();
  for (QQuickItem* item : seen(window()->contentItem(), "PressArea")) {
    if (isOfType(item, "BoxMark")) continue;  // told of by all of a pane
    auto* told = QAccessible::queryAccessibleInterface(item);
    ASSERT_TRUE(told);
    auto* parent = told->parent();
    ASSERT_TRUE(parent);
    const int index = parent->indexOfChild(told);
    ASSERT_GE(index, 0) << told->text(QAccessible::Name).toStdString();
    EXPECT_EQ(parent->child(index), told);
    for (int i = 0; i < told->childCount(); ++i) EXPECT_EQ(told->child(i)->parent(), told);
    EXPECT_EQ(QAccessible::accessibleInterface(QAccessible::uniqueId(told)), told);
  }
}

}  // namespace
}  // namespace vellix
