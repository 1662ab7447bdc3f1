// What the approval's views tell by a mark alone, and what is told of it to who does not see.
#include <QAccessible>

#include "views/approval_views_test.hpp"
#include "views/sights.hpp"

namespace vellix {
namespace {

class ApprovalStates : public ApprovalViewsTest {
 protected:
  static FileDetail checked(const std::string& status) {
    FileDetail detail = lighthouse();
    detail.file.version = detail.version = 2;
    detail.versions = std::vector<Version>{{.n = 1, .status = "done"}, {.n = 2, .status = status}};
    return detail;
  }
  void showChips() {
    show("Approval/VersionChips", {{"approval", QVariant::fromValue(&approval_)}}, {460, 100});
  }

  // The symbols in sight of an item, of the window by default.
  QStringList symbols(const QQuickItem* root) {
    QStringList names;
    for (const QQuickItem* each : seen(root, "Symbol")) names += each->property("name").toString();
    return names;
  }
  QStringList symbols() { return symbols(window()->contentItem()); }
  qsizetype spinners() { return seen(window()->contentItem(), "Spinner").size(); }
  // Those in sight of what is so labelled.
  QStringList symbolsOf(const QByteArray& type, const QString& label) {
    for (const QQuickItem* each : seen(window()->contentItem(), type)) {
      if (each->property("label").toString() == label) return symbols(each);
    }
    ADD_FAILURE() << label.toStdString() << " is not there";
    return {};
  }
  QAccessible::State of(const QString& name, QAccessible::Role role) {
    auto* found = reader().find(name, role);
    EXPECT_TRUE(found) << name.toStdString();
    return found ? found->state() : QAccessible::State{};
  }
  bool checkable(const QString& name, QAccessible::Role role) { return of(name, role).checkable; }
  bool checked(const QString& name, QAccessible::Role role) { return of(name, role).checked; }
};

TEST_F(ApprovalStates, ShowWhatCopies) {
  change(shareIt);
  showShare();
  ASSERT_TRUE(press("Shared"));
  ASSERT_TRUE(opens("Share link"));
  settle();
  EXPECT_EQ(symbolsOf("TextButton", "Copy link"), QStringList{"doc.on.doc"});
  EXPECT_EQ(symbolsOf("TextButton", "Copy for Notion"), QStringList{"square.on.square"});
  EXPECT_EQ(symbolsOf("TextButton", "Open in browser"), QStringList{});
  EXPECT_EQ(symbolsOf("TextButton", "Make a new link"), QStringList{});
}

TEST_F(ApprovalStates, ShowWhatRemoves) {
  show("Approval/ApproversSection", {{"approvers", QVariant::fromValue(&approvers_)}}, {460, 540});
  EXPECT_EQ(symbolsOf("IconButton", "Remove Mara Quell"), QStringList{"minus.circle"});
  EXPECT_EQ(symbolsOf("IconButton", "Remove Olo Brandt"), QStringList{"minus.circle"});
}

TEST_F(ApprovalStates, ShowHowACheckGoes) {
  tell(checked("checking"));
  showChips();
  EXPECT_EQ(spinners(), 1);
  EXPECT_EQ(symbols(), QStringList{});
  tell(checked("failed"));
  EXPECT_EQ(spinners(), 0);
  EXPECT_EQ(symbols(), QStringList{"exclamationmark.circle.fill"});
  tell(checked("done"));
  EXPECT_EQ(spinners(), 0);
  EXPECT_EQ(symbols(), QStringList{});
}

TEST_F(ApprovalStates, ShowThatTheCardsTicketIsChecked) {
  change([](BoardState& board) {
    board.files[0].approval = "revised";
    board.files[0].version = 2;
  });
  tell(checked("checking"));
  showCard();
  const QString mark = "arrow.triangle.2.circlepath";
  EXPECT_EQ(spinners(), 1) << "in the place of the mark";
  EXPECT_FALSE(symbols().contains(mark));
  tell(checked("done"));
  EXPECT_EQ(spinners(), 0);
  EXPECT_TRUE(symbols().contains(mark));
}

TEST_F(ApprovalStates, TellOfTheSwitch) {
  showShare();
  ASSERT_TRUE(press("Share"));
  ASSERT_TRUE(opens("Share link"));
  const auto role = QAccessible::CheckBox;
  EXPECT_TRUE(checkable("Share link", role));
  EXPECT_FALSE(checked("Share link", role));
  change(shareIt);
  EXPECT_TRUE(checked("Share link", role));
}

TEST_F(ApprovalStates, TellOfTheLevel) {
  change(shareIt);
  showShare();
  ASSERT_TRUE(press("Shared"));
  ASSERT_TRUE(opens("Share link"));
  const auto role = QAccessible::RadioButton;
  EXPECT_TRUE(checkable("Can comment", role));
  EXPECT_TRUE(checked("Can view", role));
  EXPECT_FALSE(checked("Can comment", role));
  change([](BoardState& board) { board.files[0].share->access = "comment"; });
  EXPECT_FALSE(checked("Can view", role));
  EXPECT_TRUE(checked("Can comment", role));
}

TEST_F(ApprovalStates, TellOfTheVersion) {
  FileDetail detail = checked("done");
  tell(detail);
  showChips();
  const QString first = "v1, Harrow Print proof";
  const QString second = "v2, Revision by Claude";
  const auto role = QAccessible::RadioButton;
  EXPECT_TRUE(checkable(first, role));
  EXPECT_FALSE(checked(first, role));
  EXPECT_TRUE(checked(second, role));
  detail.version = 1;
  tell(detail);
  EXPECT_TRUE(checked(first, role));
  EXPECT_FALSE(checked(second, role));
}

TEST_F(ApprovalStates, TellOfWhoIsAsked) {
  showCard();
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  const auto role = QAccessible::CheckBox;
  EXPECT_TRUE(checkable("Mara Quell", role));
  EXPECT_TRUE(checked("Mara Quell", role));
  ASSERT_TRUE(press("Mara Quell", role));
  EXPECT_FALSE(checked("Mara Quell", role));
  EXPECT_TRUE(checked("Olo Brandt", role));
  const int able = reader().enabled("Send for approval");
  ASSERT_TRUE(press("Olo Brandt", role));
  EXPECT_EQ(reader().enabled("Send for approval"), able - 1) << "nobody is left to ask";
}

TEST_F(ApprovalStates, TellWhatFollowsSending) {
  showCard();
  ASSERT_TRUE(press("Send for approval"));
  ASSERT_TRUE(opens("Send v1 for approval"));
  const auto role = QAccessible::RadioButton;
  const QString copies = "Copy the link for a Notion task";
  EXPECT_TRUE(checkable("Nothing", role));
  EXPECT_TRUE(checked(copies, role));
  EXPECT_FALSE(checked("Nothing", role));
  ASSERT_TRUE(press("Nothing", role));
  EXPECT_FALSE(checked(copies, role));
  EXPECT_TRUE(checked("Nothing", role));
}

}  // namespace
}  // namespace vellix
