// A person's page in the window: how it is opened and left, and what is behind it.
#include "views/profile_views_test.hpp"

namespace vellix {
namespace {

constexpr const char* kMine = "Your page and stats";
constexpr const char* kTheirs = "Jorvas's page and stats";

class ProfileShell : public ProfileViewTest {
 protected:
  void begin(QSize size = {1'500, 940}) {
    serveStats({{kRenny, richStats()}, {kJorvas, PersonStats{}}});
    showMain(size);
    theme()->setReducedMotion(true);
    window()->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    settle();
  }
  QQuickItem* avatar(const QString& help) {
    auto* found = reader().find(help, QAccessible::Button);
    return found ? qobject_cast<QQuickItem*>(found->object()) : nullptr;
  }
  Int pageOnShow() {
    const auto page = store().page().find("t1");
    return page == store().page().end() ? 0 : page->second;
  }
  bool fileIsSeen() { return !seen(window()->contentItem(), "FileView").isEmpty(); }
};

TEST_F(ProfileShell, OpensAtAPersonAndClosesThere) {
  begin();
  click(avatar(kMine));
  EXPECT_TRUE(pageIsOpen());
  EXPECT_FALSE(fileIsSeen());
  EXPECT_TRUE(reader().find(kMine, QAccessible::Button)->state().expanded);
  click(avatar(kTheirs));
  EXPECT_TRUE(reader().find("Jorvas Lind", QAccessible::Heading));
  EXPECT_EQ(seen(window()->contentItem(), "ProfileView").size(), 1);
  click(avatar(kTheirs));
  EXPECT_FALSE(pageIsOpen());
  EXPECT_TRUE(fileIsSeen());
  EXPECT_TRUE(reader().find(kTheirs, QAccessible::Button)->state().collapsed);
}

TEST_F(ProfileShell, TakesTwoQuickPressesAsOne) {
  begin();
  QQuickItem* person = avatar(kMine);
  ASSERT_TRUE(person);
  click(person);
  present += 200;
  QTest::mouseClick(window(), Qt::LeftButton, {}, person->mapToScene({15, 15}).toPoint());
  settle();
  EXPECT_TRUE(pageIsOpen());
  click(person);
  EXPECT_FALSE(pageIsOpen());
}

TEST_F(ProfileShell, GivesTheKeyboardToThePageAndBack) {
  begin();
  tabTo(kTheirs);
  key(Qt::Key_Return);
  ASSERT_TRUE(pageIsOpen());
  EXPECT_EQ(keyed(), "Jorvas Lind");
  key(Qt::Key_Escape);
  EXPECT_FALSE(pageIsOpen());
  EXPECT_EQ(keyed(), kTheirs);
  EXPECT_TRUE(ringed());
  key(Qt::Key_Space);
  ASSERT_TRUE(pageIsOpen());
  EXPECT_EQ(keyed(), "Jorvas Lind");
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(keyed(), "Tickets");
  key(Qt::Key_Return);
  EXPECT_FALSE(pageIsOpen());
  EXPECT_EQ(keyed(), kTheirs);
}

TEST_F(ProfileShell, IsLeftByEscapeWhereverTheKeyboardIs) {
  begin();
  click(avatar(kMine));
  EXPECT_FALSE(ringed()) << "no ring for the mouse";
  key(Qt::Key_PageDown);
  ASSERT_TRUE(page());
  EXPECT_GT(seen(page(), "ScrollArea").value(0)->property("contentY").toReal(), 0);
  key(Qt::Key_Escape);
  EXPECT_FALSE(pageIsOpen());
  click(avatar(kMine));
  ASSERT_TRUE(pageIsOpen());
  tabTo(kTheirs);
  key(Qt::Key_Escape);
  EXPECT_FALSE(pageIsOpen());
  EXPECT_EQ(keyed(), kTheirs) << "who is not on the page stays";
}

TEST_F(ProfileShell, GivesTheKeyboardToTheTicketWhereItsPanelHasGone) {
  begin();
  QQuickItem* words = seen(seen(window()->contentItem(), "Composer").value(0), "TextArea").value(0);
  ASSERT_TRUE(words);
  click(words);
  click(avatar(kMine));
  ASSERT_TRUE(pageIsOpen());
  resize({860, 700});
  key(Qt::Key_Escape);
  EXPECT_FALSE(pageIsOpen());
  EXPECT_EQ(keyed(), "The Lighthouse");
}

TEST_F(ProfileShell, LeavesEscapeToAMenuAboveIt) {
  begin();
  click(avatar(kMine));
  ASSERT_TRUE(press("Account"));
  key(Qt::Key_Escape);
  EXPECT_TRUE(pageIsOpen());
  EXPECT_TRUE(reader().find("Account", QAccessible::Button)->state().collapsed);
}

TEST_F(ProfileShell, LeadsToAnOpenTicketAndTakesTheKeyboardThere) {
  begin();
  tabTo(kMine);
  key(Qt::Key_Return);
  const auto rows = inOrder("OpenRow");
  ASSERT_EQ(rows.size(), 2);
  tabTo(rows[0]->property("label").toString());
  key(Qt::Key_Down);
  key(Qt::Key_Return);
  EXPECT_FALSE(pageIsOpen());
  EXPECT_TRUE(fileIsSeen());
  EXPECT_EQ(keyed(), "Harbour Bread");
}

TEST_F(ProfileShell, LeadsBackToTheTicketBehindIt) {
  begin();
  tabTo(kMine);
  key(Qt::Key_Return);
  const auto rows = inOrder("OpenRow");
  ASSERT_EQ(rows.size(), 2);
  tabTo(rows[0]->property("label").toString());
  key(Qt::Key_Return);
  EXPECT_FALSE(pageIsOpen());
  EXPECT_EQ(keyed(), "The Lighthouse") << "the one that was on show";
}

TEST_F(ProfileShell, IsLeftByATicketOfTheColumn) {
  begin();
  click(avatar(kMine));
  auto* row = reader().find("The Lighthouse", QAccessible::ListItem);
  ASSERT_TRUE(row);
  click(qobject_cast<QQuickItem*>(row->object()));
  EXPECT_FALSE(pageIsOpen());
  EXPECT_TRUE(fileIsSeen());
}

TEST_F(ProfileShell, KeepsWhatWasWrittenBehindIt) {
  begin();
  auto* found = reader().find("Write a note for the report", QAccessible::EditableText);
  ASSERT_TRUE(found);
  QQuickItem* field = qobject_cast<QQuickItem*>(found->object());
  field->forceActiveFocus(Qt::MouseFocusReason);
  QTest::keyClick(window(), 'a');
  settle();
  const QString written = field->property("text").toString();
  ASSERT_FALSE(written.isEmpty());
  click(avatar(kMine));
  ASSERT_TRUE(pageIsOpen());
  QTest::keyClick(window(), 'b');
  EXPECT_FALSE(reader().find("Write a note for the report", QAccessible::EditableText));
  key(Qt::Key_Escape);
  EXPECT_EQ(field->property("text").toString(), written);
  EXPECT_EQ(window()->activeFocusItem(), field) << "and goes on being written";
}

TEST_F(ProfileShell, KeepsTheNoteOnThePageBehindIt) {
  begin();
  store().beginDraft(DraftNote{.fileID = "t1", .side = "supplier", .x = 0.5, .y = 0.5});
  settle();
  click(avatar(kMine));
  ASSERT_TRUE(pageIsOpen());
  key(Qt::Key_Escape);
  EXPECT_FALSE(pageIsOpen());
  EXPECT_TRUE(store().draft());
  key(Qt::Key_Escape);
  EXPECT_FALSE(store().draft()) << "in front, it is ended by it";
}

TEST_F(ProfileShell, BlinksNoPanesBehindIt) {
  begin();
  store().setMode(CompareMode::blink);
  settle();
  const auto asleep = desk.time.sleeping();
  click(avatar(kMine));
  EXPECT_EQ(desk.time.sleeping(), asleep - 1);
  key(Qt::Key_Escape);
  EXPECT_EQ(desk.time.sleeping(), asleep);
}

TEST_F(ProfileShell, TurnsNoPagesBehindIt) {
  begin();
  click(avatar(kMine));
  for (const auto modifiers :
       {Qt::KeyboardModifiers{}, Qt::KeyboardModifiers{Qt::ControlModifier}}) {
    key(Qt::Key_Down, modifiers);
    key(Qt::Key_Right, modifiers);
  }
  EXPECT_EQ(pageOnShow(), 0);
  key(Qt::Key_Escape);
  key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(pageOnShow(), 1);
}

TEST_F(ProfileShell, StaysWhereThePersonLeavesTheBoard) {
  begin();
  tabTo(kTheirs);
  key(Qt::Key_Return);
  change([](BoardState& board) { board.users.pop_back(); });
  EXPECT_TRUE(pageIsOpen());
  EXPECT_EQ(keyed(), kJorvas) << "by the address";
  EXPECT_FALSE(avatar(kTheirs));
  key(Qt::Key_Escape);
  EXPECT_FALSE(pageIsOpen());
  EXPECT_EQ(keyed(), "The Lighthouse") << "where else";
}

TEST_F(ProfileShell, EndsWithTheSessionAndBeginsWithTheNext) {
  begin();
  click(avatar(kMine));
  store().signOut(false);
  settle();
  EXPECT_FALSE(pageIsOpen());
  store().signedIn.set(true);
  settle();
  EXPECT_TRUE(pageIsOpen());
  EXPECT_TRUE(reader().find(kRenny, QAccessible::Heading)) << "before there is a board";
  store().etag.reset();
  poll();
  settle();
  EXPECT_TRUE(reader().find("Renny Vale", QAccessible::Heading));
  key(Qt::Key_Escape);
  EXPECT_FALSE(pageIsOpen());
}

TEST_F(ProfileShell, OffersAPhotoAndTheWayOutInTheMenu) {
  begin();
  ASSERT_TRUE(press("Account"));
  ASSERT_TRUE(QTest::qWaitFor([this] {
    settle();
    return reader().find("Sign out", QAccessible::MenuItem) != nullptr;
  }));
  EXPECT_EQ(reader().names(QAccessible::MenuItem).filter("photo"), QStringList{"Change my photo…"});
  EXPECT_EQ(reader().names(QAccessible::Separator).size(), 1);
  EXPECT_FALSE(reader().find("Change my photo…", QAccessible::MenuItem)->state().disabled);
  store().busy.set({"photo"});
  settle();
  EXPECT_TRUE(reader().find("Change my photo…", QAccessible::MenuItem)->state().disabled);
}

TEST_F(ProfileShell, AsksForAPhotoFromTheMenuAndThePage) {
  begin();
  QQuickItem* root = seen(window()->contentItem(), "RootView").value(0);
  QSignalSpy commanded{root, SIGNAL(commanded(QString))};
  click(avatar(kMine));
  ASSERT_TRUE(press("Change my photo"));
  ASSERT_TRUE(press("Account"));
  ASSERT_TRUE(QTest::qWaitFor([this] {
    settle();
    return press("Change my photo…", QAccessible::MenuItem);
  }));
  ASSERT_EQ(commanded.count(), 2);
  for (const auto& each : commanded) EXPECT_EQ(each.value(0), "changePhoto");
}

}  // namespace
}  // namespace vellix
