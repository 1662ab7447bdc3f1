// What fills the main window, and the toast and the banner over it.
#include <QPointer>
#include <QQuickItem>
#include <QTest>

#include "views/view_test.hpp"

namespace vellix {
namespace {

class RootViews : public ViewTest {
 protected:
  bool says(const QString& text) {
    return reader().find(text, QAccessible::StaticText) ||
           reader().find(text, QAccessible::Heading);
  }
  static QQuickItem* itemOf(const QByteArray& type, QQuickItem* root) {
    if (QByteArray{root->metaObject()->className()}.startsWith(type + "_")) return root;
    for (QQuickItem* child : root->childItems()) {
      if (QQuickItem* found = itemOf(type, child)) return found;
    }
    return nullptr;
  }
  bool warns(const QString& text) { return reader().find(text, QAccessible::AlertMessage); }
};

TEST_F(RootViews, LoadTheBoard) {
  showMain({1'500, 940});
  EXPECT_TRUE(says("Loading the board…"));
  EXPECT_EQ(polls(), 1U) << "the window comes up with the polling under way";
  EXPECT_TRUE(store().looping());
}

TEST_F(RootViews, AskForAChoice) {
  serveBoard(boardOf({ticketOf("t1")}));
  showMain({1'500, 940});
  store().selection.set({});
  settle();
  EXPECT_TRUE(says("Pick a file."));
  EXPECT_TRUE(says("Pick one on the left to compare it with our files."));
}

TEST_F(RootViews, SayThatThereIsNothingToReview) {
  serveBoard(boardOf({}));
  showMain({760, 540});
  EXPECT_TRUE(says("Nothing to review yet."));
  EXPECT_TRUE(says("Press Sync. Claude on the Mac mini checks supplier mail for new proofs."));
}

TEST_F(RootViews, ShowTheTicketThatIsSelected) {
  serveTheDay();
  showMain({1'500, 940});
  EXPECT_TRUE(says("One word differs on the first page."));
  ASSERT_TRUE(press("Harbour Bread", QAccessible::ListItem));
  EXPECT_FALSE(says("One word differs on the first page."));
  EXPECT_TRUE(reader().find("Harbour Bread", QAccessible::Heading));
}

TEST_F(RootViews, MakeANewViewForAnotherTicketAlone) {
  serveTheDay();
  showMain({1'500, 940});
  const auto fileView = [this] { return itemOf("FileView", window()->contentItem()); };
  const QPointer<QQuickItem> first = fileView();
  ASSERT_TRUE(first);
  routes.set(kStateLine, std::unexpected(HttpError::notConnected));
  poll();
  settle();
  EXPECT_EQ(fileView(), first) << "a banner is no reason for a new view";
  ASSERT_TRUE(press("Harbour Bread", QAccessible::ListItem));
  EXPECT_TRUE(fileView());
  EXPECT_NE(fileView(), first);
}

TEST_F(RootViews, RaiseTheBannerWhileThePollsFail) {
  serveTheDay();
  showMain({1'500, 940});
  EXPECT_FALSE(warns(kOfflineText));
  routes.set(kStateLine, std::unexpected(HttpError::notConnected));
  poll();
  settle();
  EXPECT_EQ(store().problem(), kOfflineText);
  EXPECT_TRUE(QTest::qWaitFor([this] { return warns(kOfflineText); }));
  EXPECT_TRUE(says("What's here stays. It tries again on its own."));
}

TEST_F(RootViews, LeaveTheContentItsRoomUnderManyWordsOfTrouble) {
  serveTheDay();
  showMain({760, 540});
  store().problem.set(QString("Much went wrong. ").repeated(300).toStdString());
  settle();
  QQuickItem* banner = itemOf("OfflineBanner", window()->contentItem());
  ASSERT_TRUE(banner);
  EXPECT_TRUE(QTest::qWaitFor([&] { return banner->height() > 30; }));
  QTest::qWait(400);
  EXPECT_LT(banner->height(), 120);
}

TEST_F(RootViews, ShowTheToastAndItsUndo) {
  serveTheDay();
  showMain({1'500, 940});
  bool undone = false;
  store().toast.set(Toast{"Marked fine.", "Undo", [&] { undone = true; }});
  settle();
  EXPECT_TRUE(QTest::qWaitFor([this] { return warns("Marked fine."); }));
  ASSERT_TRUE(press("Undo"));
  EXPECT_TRUE(undone);
  EXPECT_FALSE(store().toast());
  EXPECT_TRUE(QTest::qWaitFor([this] { return !warns("Marked fine."); }));
}

TEST_F(RootViews, ReturnToTheSignInScreen) {
  serveTheDay();
  showMain({1'500, 940});
  EXPECT_FALSE(says("Supplier proofs, checked against what we sent."));
  store().signOut(true);
  settle();
  EXPECT_TRUE(QTest::qWaitFor([this] { return says("For Renny and Jorvas"); })) << "it eases in";
  EXPECT_TRUE(says("Supplier proofs, checked against what we sent."));
  EXPECT_TRUE(reader().names(QAccessible::ListItem).isEmpty());
}

}  // namespace
}  // namespace vellix
