// The round of approval where it stands in the window.
#include <QAccessible>
#include <QTest>
#include <algorithm>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class ApprovalShell : public ViewTest {
 protected:
  ApprovalShell() {
    FileDetail ticket = lighthouse(2);
    ticket.file.version = 2;
    ticket.file.approval = "changes";
    ticket.versions = std::vector<Version>{{.n = 1}, {.n = 2, .by = "renny@tessarine.example"}};
    BoardState board = boardOf({ticket.file, ticketAt("t2", 1)});
    board.files[0].pages.reset();
    serveDetail(ticket, "\"t1\"");
    serveDetail(detailOf(board.files[1]), "\"t2\"");
    serveBoard(board);
    poll();
    store().selection.set({"t1"});
    desk.time.run();
  }

  void open(QSize size = kSizes.back()) {
    showMain(size);
    theme()->setReducedMotion(true);
    window()->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    settle();
  }
  bool has(const QString& name, QAccessible::Role role) { return reader().find(name, role); }
  bool opens(const QString& dialog) {
    return QTest::qWaitFor([&] { return has(dialog, QAccessible::Dialog); });
  }
  bool closes(const QString& dialog) {
    return QTest::qWaitFor([&] { return !has(dialog, QAccessible::Dialog); });
  }
  // Gives the keyboard to that button, as Tab would.
  bool takeUp(const QString& button) {
    for (QQuickItem* pill : seen(window()->contentItem(), "Pill")) {
      if (!pill->property("title").toString().startsWith(button)) continue;
      pill->forceActiveFocus(Qt::TabFocusReason);
      return pill->hasActiveFocus();
    }
    return false;
  }
  QRectF placeOf(const QByteArray& type) {
    const QQuickItem* item = seen(window()->contentItem(), type).value(0);
    return item ? item->mapRectToScene(item->boundingRect()) : QRectF{};
  }
  bool isAtTheTitle() {
    const QString title = QString::fromStdString(store().currentFile()->heading());
    return QTest::qWaitFor([&] {
      const QQuickItem* at = window()->activeFocusItem();
      return at && at->property("text").toString() == title;
    });
  }
};

TEST_F(ApprovalShell, TellsOfTheRoundInTheHeaderAndInTheRow) {
  open();
  EXPECT_TRUE(has("Changes asked", QAccessible::StaticText)) << "over the page";
  EXPECT_TRUE(has("Changes", QAccessible::StaticText)) << "in the list";
  EXPECT_TRUE(has("Share", QAccessible::Button));
  EXPECT_TRUE(has("Versions", QAccessible::Grouping));
  EXPECT_TRUE(has("Upload revision", QAccessible::Button));
  auto board = *store().board();
  board.files[0].approval = "approved";
  store().board.set(board);
  settle();
  EXPECT_FALSE(has("Changes asked", QAccessible::StaticText));
  EXPECT_EQ(reader().names(QAccessible::StaticText).count("Approved"), 2);
}

TEST_F(ApprovalShell, KeepsTheCardsControlsInSightOfATallWindow) {
  open();
  auto* button = reader().find("Upload revision", QAccessible::Button);
  ASSERT_TRUE(button);
  auto* head = reader().find("Page 1", QAccessible::Heading);
  ASSERT_TRUE(head);
  EXPECT_LT(button->rect().bottom(), head->rect().top());
}

TEST_F(ApprovalShell, KeepsASheetWhenItsTicketsViewGivesWay) {
  open();
  ASSERT_TRUE(press("Upload revision"));
  ASSERT_TRUE(opens("Upload v3"));
  for (const char letter : {'n', 'e', 'w'}) QTest::keyClick(window(), letter);
  store().selection.set({"t2"});
  settle();
  EXPECT_TRUE(has("Upload v3", QAccessible::Dialog));
  EXPECT_EQ(models()["upload"].value<UploadModel*>()->note(), "new");
  store().selection.set({"t1", "t2"});
  settle();
  EXPECT_TRUE(has("Upload v3", QAccessible::Dialog)) << "over several tickets as well";
}

TEST_F(ApprovalShell, EndsASheetWithItsSession) {
  open();
  ASSERT_TRUE(press("Upload revision"));
  ASSERT_TRUE(opens("Upload v3"));
  store().signOut(true);
  settle();
  EXPECT_TRUE(closes("Upload v3"));
  EXPECT_FALSE(models()["upload"].value<UploadModel*>()->open());
}

TEST_F(ApprovalShell, AsksForNoFileOnceTheSessionHasEnded) {
  open();
  ASSERT_TRUE(press("Upload revision"));
  ASSERT_TRUE(opens("Upload v3"));
  ASSERT_TRUE(press("Choose PDF…"));
  const auto asks = [&] {
    const auto all = window()->findChildren<QObject*>();
    return std::ranges::any_of(all, [](const QObject* each) {
      return each->inherits("QQuickFileDialog") && each->property("visible").toBool();
    });
  };
  ASSERT_TRUE(QTest::qWaitFor(asks));
  store().signOut(true);
  settle();
  EXPECT_TRUE(closes("Upload v3"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !asks(); }));
}

TEST_F(ApprovalShell, KeepsThePopoverInANarrowWindow) {
  auto board = *store().board();
  board.files[0].share = ShareInfo{.enabled = true, .url = "https://proofs.example/s/1"};
  store().board.set(board);
  desk.time.run();
  open(kSizes.front());
  ASSERT_TRUE(press("Shared"));
  ASSERT_TRUE(opens("Share link"));
  settle();
  const QRect whole{window()->position(), window()->size()};
  EXPECT_TRUE(whole.contains(reader().find("Share link", QAccessible::Dialog)->rect()));
  for (const char* name : {"Copy link", "Copy for Notion", "Open in browser", "Make a new link"}) {
    auto* button = reader().find(name, QAccessible::Button);
    ASSERT_TRUE(button) << name;
    EXPECT_TRUE(whole.contains(button->rect())) << name;
  }
}

TEST_F(ApprovalShell, ShowsAToastOverASheet) {
  for (const QSize size : kSizes) {
    open(size);
    ASSERT_TRUE(press("Upload revision"));
    ASSERT_TRUE(opens("Upload v3"));
    settle();
    store().toast.set(Toast{"That didn't go through. Try again."});
    settle();
    QQuickItem* toast = seen(window()->contentItem(), "ToastView").front();
    EXPECT_TRUE(toast->parentItem()->inherits("QQuickOverlay"));
    const QRectF rect = toast->mapRectToScene(toast->boundingRect());
    const QRectF bar = placeOf("CanvasBar");
    EXPECT_NEAR(rect.center().x(), (placeOf("Sidebar").right() + window()->width()) / 2, 1);
    EXPECT_NEAR(rect.bottom(), bar.top() - 14, 1);
    models()["upload"].value<UploadModel*>()->end();
    ASSERT_TRUE(closes("Upload v3"));
    settle();
    EXPECT_FALSE(toast->parentItem()->inherits("QQuickOverlay"));
    EXPECT_EQ(toast->mapRectToScene(toast->boundingRect()), rect);
    store().toast.set(std::nullopt);
    settle();
  }
}

TEST_F(ApprovalShell, HandsTheKeyboardToTheTitleWhenTheStateTakesItsButtonsAway) {
  auto board = *store().board();
  board.files[0].approval = "approved";
  store().board.set(board);
  desk.time.run();
  open();
  ASSERT_TRUE(takeUp("Mark sent to "));
  QTest::keyClick(window(), Qt::Key_Return);
  settle();
  board.files[0].approval = "sent";
  store().board.set(board);
  settle();
  EXPECT_TRUE(isAtTheTitle());
}

TEST_F(ApprovalShell, HandsTheKeyboardToTheTitleWhenASheetHasNobodyToGiveItBackTo) {
  open();
  ASSERT_TRUE(takeUp("Upload revision"));
  QTest::keyClick(window(), Qt::Key_Return);
  ASSERT_TRUE(opens("Upload v3"));
  settle();
  auto board = *store().board();
  board.files[0].approval = "sent";
  store().board.set(board);
  settle();
  QTest::keyClick(window(), Qt::Key_Escape);
  ASSERT_TRUE(closes("Upload v3"));
  EXPECT_TRUE(isAtTheTitle());
}

TEST_F(ApprovalShell, KeepsTheStoryUpToDateWhenAnotherPanelTellsIt) {
  store().prefs.showNotes.set(true);
  store().setSideTab("history");
  open();
  store().selection.set({"t2"});
  settle();
  store().selection.set({"t1"});
  settle();
  QTest::qWait(50);
  EXPECT_TRUE(models()["history"].value<HistoryModel*>()->read());
  resize({760, 540});
  store().notesDrawer.set(true);
  QTest::qWait(500);
  settle();
  EXPECT_TRUE(models()["history"].value<HistoryModel*>()->read());
  resize({1500, 940});
  QTest::qWait(500);
  settle();
  EXPECT_TRUE(models()["history"].value<HistoryModel*>()->read());
}

TEST_F(ApprovalShell, TurnsToTheStoryAndBack) {
  open();
  ASSERT_TRUE(has("Page 1", QAccessible::Heading));
  ASSERT_TRUE(press("History", QAccessible::PageTab));
  EXPECT_EQ(store().sideTab(), "history");
  EXPECT_TRUE(reader().find("History", QAccessible::Heading));
  EXPECT_FALSE(has("Page 1", QAccessible::Heading));
  store().selection.set({"t2"});
  settle();
  EXPECT_TRUE(reader().find("History", QAccessible::Heading)) << "also with another ticket";
  ASSERT_TRUE(press("This page", QAccessible::PageTab));
  EXPECT_EQ(store().sideTab(), "page");
  EXPECT_TRUE(has("Page 1", QAccessible::Heading));
  store().setSideTab("attic");
  settle();
  EXPECT_TRUE(has("Page 1", QAccessible::Heading));
}

TEST_F(ApprovalShell, PaysForNoStoryThatIsNotRead) {
  open();
  auto* story = models()["history"].value<HistoryModel*>();
  EXPECT_FALSE(story->read());
  press("History", QAccessible::PageTab);
  EXPECT_TRUE(story->read());
  press("This page", QAccessible::PageTab);
  EXPECT_FALSE(story->read());
}

TEST_F(ApprovalShell, StagesItsSheetsByThemselves) {
  QVariantMap all = models();
  all.insert(windowModels());
  QVariantMap parts{{"panel", ""}, {"lab", QVariantMap{}}, {"symbols", QStringList{}}};
  for (const char* part :
       {"root", "log", "settings", "approvers", "approval", "send", "upload", "share"}) {
    parts[part] = all[part];
  }
  // As it is sent, all three can be worked with.
  auto board = *store().board();
  board.files[0].approval = "revised";
  store().board.set(board);
  desk.time.run();
  for (const auto& [panel, dialog] : {std::pair{"send", "Send v2 for approval"},
                                      {"upload", "Upload v3"},
                                      {"share", "Share link"}}) {
    parts["panel"] = panel;
    showWindow("Shell/PanelWindow", parts, kSizes.front());
    EXPECT_TRUE(opens(dialog)) << panel;
    all["send"].value<SendModel*>()->end();
    all["upload"].value<UploadModel*>()->end();
  }
  store().selection.set({});
  settle();
  parts["panel"] = "send";
  showWindow("Shell/PanelWindow", parts, kSizes.front());
  EXPECT_TRUE(has("Pick a file with --file", QAccessible::StaticText));
  EXPECT_FALSE(has("Send v2 for approval", QAccessible::Dialog));
}

}  // namespace
}  // namespace vellix
