// The share popover by key, and what may change under it.
#include <QAccessible>
#include <QQuickItem>
#include <QTest>

#include "pieces/Sight.hpp"
#include "views/approval_views_test.hpp"

namespace vellix {
namespace {

constexpr const char* kPost = "POST api/files/t1/share";

// Far from the stamps of the tests' own events.
qint64 present = 1'000'000'000;

class SharePopover : public ApprovalViewsTest {
 public:
  ~SharePopover() override { Sight::clock = nullptr; }

 protected:
  SharePopover() {
    Sight::clock = [] { return present; };
  }

  void openByKey(const QString& button) {
    window()->contentItem()->nextItemInFocusChain(true)->forceActiveFocus(Qt::TabFocusReason);
    ASSERT_EQ(focused(), button);
    key(Qt::Key_Space);
    ASSERT_TRUE(opens("Share link"));
    settle();
  }
  // The role tells the switch from the popover, which has its name.
  bool switchHasKeyboard() {
    QAccessibleInterface* at = QAccessible::queryAccessibleInterface(window()->activeFocusItem());
    return at && at->role() == QAccessible::CheckBox && focused() == "Share link";
  }
  void showWindowOfBoard() {
    showMain(kSizes.back());
    theme()->setReducedMotion(true);
    settle();
  }
};

TEST_F(SharePopover, BeginsAtTheSwitchAndGivesTheKeyboardBack) {
  for (const auto* button : {"Share", "Shared"}) {
    showShare();
    openByKey(button);
    EXPECT_TRUE(switchHasKeyboard()) << button;
    key(Qt::Key_Escape);
    EXPECT_TRUE(closes("Share link"));
    settle();
    EXPECT_EQ(focused(), button);
    change(shareIt);
  }
  EXPECT_TRUE(posted().empty());
}

TEST_F(SharePopover, KeepsTheKeyboardOnTheSwitch) {
  showShare();
  openByKey("Share");
  key(Qt::Key_Space);
  ASSERT_EQ(posted().size(), 1U);
  EXPECT_TRUE(store().busy().contains("share"));
  key(Qt::Key_Space);
  EXPECT_EQ(posted().size(), 1U) << "one change at a time";
  BoardState board = *store().board();
  shareIt(board);
  serveBoard(board, "\"b2\"");
  desk.http.answer(
      *desk.http.matching(kPost)[0],
      answerOf(200, R"({"share":{"enabled":true,"url":"https://proofs.example/s/1"}})"));
  settle();
  EXPECT_TRUE(store().busy().empty());
  EXPECT_TRUE(switchHasKeyboard());
  EXPECT_TRUE(reader().find("Share link", QAccessible::CheckBox)->state().checked);
  key(Qt::Key_Space);
  EXPECT_EQ(posted().size(), 1U) << "who presses at once has not seen that it is on";
  present += 1'000;
  key(Qt::Key_Space);
  ASSERT_EQ(posted().size(), 2U);
  EXPECT_EQ(posted()[1], R"(POST api/files/t1/share {"enabled":false})");
  key(Qt::Key_Escape);
  EXPECT_TRUE(closes("Share link"));
  settle();
  EXPECT_EQ(focused(), "Shared");
}

TEST_F(SharePopover, ClosesWithTheSession) {
  showWindowOfBoard();
  ASSERT_TRUE(press("Share"));
  ASSERT_TRUE(opens("Share link"));
  store().signOut(true);
  settle();
  EXPECT_TRUE(closes("Share link"));
  EXPECT_FALSE(has("Share", QAccessible::Button));
}

TEST_F(SharePopover, ClosesWithItsTicket) {
  showWindowOfBoard();
  ASSERT_TRUE(press("Share"));
  ASSERT_TRUE(opens("Share link"));
  store().selection.set({"t2"});
  settle();
  EXPECT_TRUE(closes("Share link"));
  EXPECT_TRUE(has("Share", QAccessible::Button)) << "of the other";
  EXPECT_TRUE(posted().empty());
}

TEST_F(SharePopover, ClosesByItselfOnceNothingIsChosen) {
  showShare();
  ASSERT_TRUE(press("Share"));
  ASSERT_TRUE(opens("Share link"));
  store().selection.set({});
  settle();
  EXPECT_TRUE(closes("Share link"));
}

}  // namespace
}  // namespace vellix
