// What fills the main window, and the toast and the banner over it.
#include <QPointer>
#include <QQuickItem>
#include <QTest>
#include <functional>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class RootViews : public ViewTest {
 protected:
  bool says(const QString& text) {
    return reader().find(text, QAccessible::StaticText) ||
           reader().find(text, QAccessible::Heading);
  }
  using Wanted = std::function<bool(const QQuickItem*)>;
  static QQuickItem* itemIn(QQuickItem* root, const Wanted& wanted) {
    if (!root || wanted(root)) return root;
    for (QQuickItem* child : root->childItems()) {
      if (QQuickItem* found = itemIn(child, wanted)) return found;
    }
    return nullptr;
  }
  QQuickItem* itemOf(const QByteArray& type, QQuickItem* root) {
    return itemIn(root, [&](const QQuickItem* each) {
      return QByteArray{each->metaObject()->className()}.startsWith(type + "_");
    });
  }
  QQuickItem* itemOf(const QByteArray& type) { return itemOf(type, window()->contentItem()); }
  // The spinner in the place of a ticket.
  QQuickItem* spinner() { return itemOf("Spinner", itemOf("PlainView")); }
  bool warns(const QString& text) { return reader().find(text, QAccessible::AlertMessage); }
};

TEST_F(RootViews, LoadTheBoard) {
  showMain({1'500, 940});
  EXPECT_TRUE(says("Loading the board…"));
  ASSERT_TRUE(spinner());
  EXPECT_TRUE(spinner()->isVisible());
  EXPECT_EQ(spinner()->size(), QSizeF(18, 18));
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
  EXPECT_FALSE(spinner() && spinner()->isVisible());
}

TEST_F(RootViews, SayThatThereIsNothingToReview) {
  serveBoard(boardOf({}));
  showMain({760, 540});
  EXPECT_TRUE(says("Nothing to review yet."));
  EXPECT_TRUE(says("Press Sync. Claude on the Mac mini checks supplier mail for new proofs."));
  EXPECT_FALSE(spinner() && spinner()->isVisible());
}

TEST_F(RootViews, GiveTheColumnItsWidthByTheWindows) {
  serveTheDay();
  showMain({1'500, 940});
  QQuickItem* column = itemOf("Sidebar");
  ASSERT_TRUE(column);
  for (const auto& [width, expected] :
       {std::pair{979, 236}, {980, 260}, {1'279, 260}, {1'280, 284}}) {
    resize({width, 940});
    EXPECT_EQ(column->width(), expected) << "in a window of " << width;
  }
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
  const auto fileView = [this] { return itemOf("FileView"); };
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
  const auto* line =
      reader().find("What's here stays. It tries again on its own.", QAccessible::StaticText);
  ASSERT_TRUE(line);
  EXPECT_EQ(line->object()->property("color"), theme()->faint());
  const auto* icon = itemIn(itemOf("OfflineBanner"), [](const QQuickItem* each) {
    return each->property("name") == "wifi.exclamationmark";
  });
  ASSERT_TRUE(icon);
  EXPECT_TRUE(icon->isVisible());
}

TEST_F(RootViews, SetTheBannersWordsOnOneLine) {
  serveTheDay();
  showMain({1'500, 940});
  theme()->setReducedMotion(true);
  store().problem.set(kOfflineText);
  settle();
  const QQuickItem* banner = itemOf("OfflineBanner");
  // The first line of a text stands by the height of its lines.
  const auto placeOf = [&](const QString& text) {
    const QQuickItem* words = seenText(banner, text);
    return words ? std::pair{words->mapToScene({0, 0}).y(), words->height()}
                 : std::pair{-1.0, -1.0};
  };
  const auto place = placeOf("What's here stays. It tries again on its own.");
  EXPECT_GT(place.second, 0);
  EXPECT_EQ(placeOf(kOfflineText), place);
  const double height = banner->height();
  resize({760, 540});
  EXPECT_GT(banner->height(), height) << "below one another where there is no room";
}

TEST_F(RootViews, LeaveTheContentItsRoomUnderManyWordsOfTrouble) {
  serveTheDay();
  showMain({760, 540});
  store().problem.set(QString("Much went wrong. ").repeated(300).toStdString());
  settle();
  QQuickItem* banner = itemOf("OfflineBanner");
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

TEST_F(RootViews, GiveTheKeyboardBackFromUndo) {
  serveTheDay();
  showMain({1'500, 940});
  theme()->setReducedMotion(true);
  const auto walkToUndo = [this] {
    store().toast.set(Toast{"Marked fine.", "Undo", [] {}});
    settle();
    itemOf("ToastView")->nextItemInFocusChain()->forceActiveFocus(Qt::TabFocusReason);
    ASSERT_EQ(window()->activeFocusItem()->property("label").toString(), "Undo");
  };
  QQuickItem* field = seen(window()->contentItem(), "TextArea").value(0);
  ASSERT_TRUE(field);
  QMetaObject::invokeMethod(field, "take", Q_ARG(int, Qt::TabFocusReason));
  const QQuickItem* writing = window()->activeFocusItem();
  walkToUndo();
  QTest::keyClick(window(), Qt::Key_Return);
  settle();
  EXPECT_EQ(window()->activeFocusItem(), writing) << "pressed";
  walkToUndo();
  store().toast.set(std::nullopt);
  settle();
  EXPECT_EQ(window()->activeFocusItem(), writing) << "gone by itself";
  walkToUndo();
  store().selection.set({"t2"});
  settle();
  store().toast.set(std::nullopt);
  settle();
  ASSERT_TRUE(window()->activeFocusItem());
  EXPECT_EQ(window()->activeFocusItem()->property("text").toString(), "Harbour Bread")
      << "what had it is gone";
}

TEST_F(RootViews, UndoByAKeyWhileThatIsOffered) {
  serveTheDay();
  showMain({1'500, 940});
  int undone = 0;
  const auto undo = [this] {
    QTest::keyClick(window(), Qt::Key_Z, Qt::ControlModifier);
    settle();
  };
  undo();
  store().toast.set(Toast{"Up to date."});
  settle();
  undo();
  EXPECT_EQ(undone, 0);
  EXPECT_TRUE(store().toast());
  store().toast.set(Toast{"Marked fine.", "Undo", [&] { ++undone; }});
  settle();
  undo();
  undo();
  EXPECT_EQ(undone, 1);
  EXPECT_FALSE(store().toast());
}

TEST_F(RootViews, UndoByAKeyFromAFieldThatHasNothingToUndo) {
  serveTheDay();
  showMain({1'500, 940});
  theme()->setReducedMotion(true);
  window()->requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  int undone = 0;
  const auto offer = [&] {
    store().toast.set(Toast{"Marked fine.", "Undo", [&] { ++undone; }});
    settle();
  };
  const auto undo = [this] {
    QTest::keyClick(window(), Qt::Key_Z, Qt::ControlModifier);
    settle();
  };
  const auto tryOut = [&](const char* name) {
    auto* found = reader().find(name, QAccessible::EditableText);
    ASSERT_TRUE(found) << name;
    auto* field = qobject_cast<QQuickItem*>(found->object());
    field->forceActiveFocus(Qt::TabFocusReason);
    const QString before = field->property("text").toString();
    undone = 0;
    offer();
    undo();
    EXPECT_EQ(undone, 1) << name;
    EXPECT_EQ(window()->activeFocusItem(), field) << name;
    offer();
    QTest::keyClick(window(), 'x');
    undo();
    EXPECT_EQ(undone, 1) << name << ": its own text comes first";
    EXPECT_EQ(field->property("text").toString(), before) << name;
    QKeyEvent held{QEvent::KeyPress, Qt::Key_Z, Qt::ControlModifier, {}, true};
    QGuiApplication::sendEvent(window(), &held);
    settle();
    EXPECT_EQ(undone, 1) << name << ": held down, the key ends with the text";
    undo();
    EXPECT_EQ(undone, 2) << name;
  };
  FileDetail detail = lighthouse(2);
  Note note;
  note.id = "n1";
  note.page = 0;
  note.text = "Too dark";
  note.by = store().board()->me.email;
  detail.comments = {note};
  store().details.set({{"t1", detail}});
  settle();
  tryOut("Write a note for the report");
  ASSERT_TRUE(press("Edit or delete"));
  ASSERT_TRUE(QTest::qWaitFor([this] { return press("Edit", QAccessible::MenuItem); }));
  ASSERT_TRUE(QTest::qWaitFor([this] {
    settle();
    const auto* at = window()->activeFocusItem();
    return at && itemOf("NoteEditor")->isAncestorOf(at);
  }));
  tryOut("Note");
  // Its card takes the keyboard after a while, so it comes last.
  store().draft.set(DraftNote{.fileID = "t1", .side = "supplier", .x = 0.5, .y = 0.5});
  settle();
  tryOut("What needs fixing here?");
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
