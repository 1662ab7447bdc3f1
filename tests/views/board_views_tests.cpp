// The column of tickets, worked as a reviewer would.
#include <QTest>

#include "views/view_test.hpp"

namespace vellix {
namespace {

using Ids = std::set<std::string>;

class BoardViews : public ViewTest {
 protected:
  BoardViews() {
    serveTheDay();
    const auto all = models();
    show("Board/Sidebar", {{"board", all["board"]}, {"pictures", all["pictures"]}}, {284, 700});
  }
  QStringList tickets() { return reader().names(QAccessible::ListItem); }
  // Rows that go are seen to go.
  bool comesTo(const QStringList& expected) {
    return QTest::qWaitFor([&] { return tickets() == expected; });
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
  EXPECT_TRUE(row->text(QAccessible::Description).contains("PO 7 · Harrow Print"));
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

}  // namespace
}  // namespace vellix
