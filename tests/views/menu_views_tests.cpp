// The menu bar, its shortcuts and the settings, worked in a real window.
#include <QQuickItem>
#include <QTest>

#include "views/view_test.hpp"

namespace vellix {
namespace {

class MenuViews : public ViewTest {
 protected:
  void open() {
    serveTheDay();
    showMain({1'500, 940});
    window()->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window(), key, modifiers);
    settle();
  }
  void pointAt(const QString& title) {
    const QRect place = reader().find(title, QAccessible::MenuItem)->rect();
    QTest::mouseMove(window(), window()->mapFromGlobal(place.center()));
    settle();
  }
  bool offers(const QString& entry) {
    return reader().names(QAccessible::MenuItem).contains(entry);
  }
  static QQuickWindow* settingsWindow() {
    for (QWindow* one : QGuiApplication::topLevelWindows()) {
      if (one->title() == "Settings") return qobject_cast<QQuickWindow*>(one);
    }
    return nullptr;
  }
  // Opened by key, and with the keyboard.
  QQuickWindow* openSettings() {
    window()->requestActivate();
    if (!QTest::qWaitForWindowActive(window())) return nullptr;
    key(Qt::Key_Comma, Qt::ControlModifier);
    QQuickWindow* settings = settingsWindow();
    if (!settings) return nullptr;
    settings->requestActivate();
    return QTest::qWaitForWindowActive(settings) ? settings : nullptr;
  }
  static QString focusedNameIn(QQuickWindow* one) {
    auto* seen = one->activeFocusItem()
                     ? QAccessible::queryAccessibleInterface(one->activeFocusItem())
                     : nullptr;
    return seen ? seen->text(QAccessible::Name) : QString{};
  }
  void tabTo(QQuickWindow* one, const QString& name) {
    for (int tab = 0; tab < 24 && focusedNameIn(one) != name; ++tab) {
      QTest::keyClick(one, Qt::Key_Tab);
    }
    ASSERT_EQ(focusedNameIn(one), name);
  }
  void serveApprovers(const std::vector<Guest>& list) {
    BoardState board = *store().board();
    board.approvers = list;
    serveBoard(board, "\"a" + std::to_string(list.size()) + "\"");
  }
  // What was asked of the Mac mini.
  std::vector<std::string> jobs() {
    std::vector<std::string> all;
    for (const auto* each : desk.http.matching("POST api/jobs"))
      all.push_back(each->request.body.value_or(""));
    return all;
  }
  // The sign-in screen, and the keyboard at its button once the hands rest.
  bool leadsOut() {
    settle();
    desk.time.advance(Milliseconds{700});
    return QTest::qWaitFor([this] { return focusedName() == "Sign in with Google"; });
  }
  QQuickItem* focused() { return window()->activeFocusItem(); }
  QString focusedName() {
    auto* seen = focused() ? QAccessible::queryAccessibleInterface(focused()) : nullptr;
    return seen ? seen->text(QAccessible::Name) : QString{};
  }
};

TEST_F(MenuViews, OpenTakeAndCloseByTheScreenReader) {
  open();
  EXPECT_FALSE(offers("Zoom in"));
  ASSERT_TRUE(press("View ", QAccessible::MenuItem));
  ASSERT_TRUE(offers("Zoom in"));
  ASSERT_TRUE(press("Zoom in", QAccessible::MenuItem));
  EXPECT_EQ(store().zoom(), 1.25);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !offers("Zoom in"); }));
}

TEST_F(MenuViews, TellTheShortcuts) {
  open();
  ASSERT_TRUE(press("Review", QAccessible::MenuItem));
  auto* refresh = reader().find("Refresh", QAccessible::MenuItem);
  ASSERT_TRUE(refresh);
  EXPECT_EQ(refresh->text(QAccessible::Description), CommandsModel::written("Ctrl+R"));
  EXPECT_FALSE(CommandsModel::written("Ctrl+R").isEmpty());
}

TEST_F(MenuViews, FollowThePointerToAnotherTitle) {
  open();
  ASSERT_TRUE(press("Review", QAccessible::MenuItem));
  ASSERT_TRUE(offers("Refresh"));
  pointAt("Review");
  ASSERT_TRUE(offers("Refresh"));
  pointAt("View ");
  EXPECT_TRUE(offers("Zoom in"));
  EXPECT_TRUE(QTest::qWaitFor([this] { return !offers("Refresh"); }));
}

TEST_F(MenuViews, AreNotDisturbedByAPointerThatRests) {
  open();
  pointAt("View ");
  key(Qt::Key_F10);
  EXPECT_TRUE(QTest::qWaitFor([this] { return focusedName() == "Change my photo…"; }));
  EXPECT_FALSE(offers("Zoom in"));
}

TEST_F(MenuViews, AreWorkedByKeyAndGiveTheFocusBack) {
  open();
  key(Qt::Key_Tab);
  QQuickItem* before = focused();
  ASSERT_TRUE(before);
  key(Qt::Key_F10);
  EXPECT_TRUE(QTest::qWaitFor([this] { return focusedName() == "Change my photo…"; }))
      << focusedName().toStdString();
  key(Qt::Key_Left);
  EXPECT_TRUE(QTest::qWaitFor([this] { return focusedName() == "Zoom in"; }))
      << focusedName().toStdString();
  key(Qt::Key_Up);
  EXPECT_EQ(focusedName(), "Zoom in") << "the first stays the first";
  key(Qt::Key_End);
  EXPECT_EQ(focusedName(), "Hide the page strip");
  key(Qt::Key_Up);
  EXPECT_EQ(focusedName(), "Hide notes");
  key(Qt::Key_Up);
  EXPECT_EQ(focusedName(), "Fit the page") << "the rule between is passed over";
  key(Qt::Key_Escape);
  EXPECT_TRUE(QTest::qWaitFor([&] { return focused() == before; }));
  EXPECT_TRUE(before->property("visualFocus").toBool()) << "the ring is back as well";
  EXPECT_EQ(store().zoom(), 1.0);
}

// Nobody waits for a menu to have faded in, nor for it to be gone.
TEST_F(MenuViews, LoseNoneOfSomeQuickKeys) {
  open();
  key(Qt::Key_Equal, Qt::ControlModifier);
  ASSERT_EQ(store().zoom(), 1.25);
  for (const auto each : {Qt::Key_F10, Qt::Key_Left, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) {
    QTest::keyClick(window(), each);
  }
  EXPECT_EQ(store().zoom(), 1.0) << "the third entry fits the page";
  QTest::keyClick(window(), Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_EQ(store().zoom(), 1.25);
}

// The words that a menu would show, opened or not.
TEST_F(MenuViews, FollowThePanelThatTheWidthMakesFloat) {
  open();
  auto* commands = windowModels()["commands"].value<CommandsModel*>();
  const auto notes = [&] {
    for (const QVariant& entry : commands->menus()[2].toMap()["entries"].toList()) {
      if (entry.toMap()["key"] == "notes") return entry.toMap()["text"].toString();
    }
    return QString{};
  };
  EXPECT_EQ(notes(), "Hide notes");
  resize({760, 540});
  EXPECT_EQ(notes(), "Show notes") << "it floats now, and is not out";
  key(Qt::Key_I, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_TRUE(store().notesDrawer());
  EXPECT_EQ(notes(), "Hide notes");
  store().prefs.showNotes.set(false);
  resize({1'500, 940});
  EXPECT_EQ(notes(), "Show notes");
}

TEST_F(MenuViews, PassOverWhatIsDisabled) {
  open();
  store().selection.set({});
  settle();
  key(Qt::Key_F10);
  key(Qt::Key_Right);
  ASSERT_TRUE(QTest::qWaitFor([this] { return focusedName() == "Sync"; }));
  key(Qt::Key_End);
  EXPECT_EQ(focusedName(), "Activity");
  key(Qt::Key_Up);
  EXPECT_EQ(focusedName(), "Refresh");
}

TEST_F(MenuViews, StayOpenAndKeepTheFocusOverAPoll) {
  open();
  key(Qt::Key_F10);
  key(Qt::Key_Left);
  ASSERT_TRUE(QTest::qWaitFor([this] { return focusedName() == "Zoom in"; }));
  key(Qt::Key_Down);
  serveTheDay();
  settle();
  EXPECT_EQ(focusedName(), "Zoom out");
}

TEST_F(MenuViews, APressElsewhereClosesAndDoesNothingElse) {
  open();
  const auto selected = store().selection();
  ASSERT_TRUE(press("View ", QAccessible::MenuItem));
  ASSERT_TRUE(offers("Zoom in"));
  QTest::mouseClick(window(), Qt::LeftButton, {}, {120, 300});
  settle();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !offers("Zoom in"); }));
  EXPECT_EQ(store().selection(), selected);
}

TEST_F(MenuViews, ShortcutsDoWhatTheirEntriesDo) {
  open();
  key(Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_EQ(store().zoom(), 1.25);
  key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(store().zoom(), 1.5);
  key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(store().zoom(), 1.25);
  key(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(store().zoom(), 1.0);
  key(Qt::Key_I, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_FALSE(store().prefs.showNotes());
  const auto before = polls();
  key(Qt::Key_R, Qt::ControlModifier);
  EXPECT_EQ(polls(), before + 1);
  key(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
  key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(jobs(), (std::vector<std::string>{R"({"kind":"report","file_ids":["t1"]})",
                                              R"({"kind":"sync"})"}));
}

TEST_F(MenuViews, AShortcutHeldDownActsOnceButForTheZoom) {
  open();
  const auto hold = [this](Qt::Key held, int text) {
    for (const bool repeated : {false, true, true}) {
      QKeyEvent press(QEvent::KeyPress, held, Qt::ControlModifier, QString(QChar(text)), repeated);
      QCoreApplication::sendEvent(window(), &press);
    }
    settle();
  };
  const auto before = polls();
  hold(Qt::Key_R, 'r');
  EXPECT_EQ(polls(), before + 1);
  hold(Qt::Key_Equal, '=');
  EXPECT_EQ(store().zoom(), 2.0);
}

TEST_F(MenuViews, TheSettingsFollowTheKeyboard) {
  const QVariantMap all = windowModels();
  show("Shell/SettingsView", {{"settings", all["settings"]}, {"approvers", all["approvers"]}},
       {460, 240});
  window()->requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  for (int tab = 0; tab < 13 && focusedName() != "Show my open tickets on the Dock icon"; ++tab) {
    key(Qt::Key_Tab);
    ASSERT_TRUE(focused());
    const QRectF place = focused()->mapRectToScene(focused()->boundingRect());
    EXPECT_TRUE(QRectF(0, 0, 460, 240).contains(place)) << focusedName().toStdString();
  }
  EXPECT_EQ(focusedName(), "Show my open tickets on the Dock icon");
}

TEST_F(MenuViews, TheColumnLeadsToTheSettings) {
  open();
  ASSERT_TRUE(press("Settings (Ctrl+,)"));
  EXPECT_TRUE(settingsWindow());
}

TEST_F(MenuViews, TheAccountMenuLeadsOut) {
  open();
  ASSERT_TRUE(press("Account"));
  ASSERT_TRUE(press("Sign out", QAccessible::MenuItem));
  EXPECT_FALSE(store().signedIn());
  EXPECT_TRUE(leadsOut()) << focusedName().toStdString();
}

TEST_F(MenuViews, TheMenuBarLeadsOut) {
  open();
  ASSERT_TRUE(press("Vellix", QAccessible::MenuItem));
  ASSERT_TRUE(press("Sign out", QAccessible::MenuItem));
  EXPECT_FALSE(store().signedIn());
  EXPECT_TRUE(leadsOut()) << focusedName().toStdString();
}

TEST_F(MenuViews, TheMenuBarLeadsOutByKey) {
  open();
  key(Qt::Key_Tab);
  key(Qt::Key_F10);
  ASSERT_TRUE(QTest::qWaitFor([this] { return focusedName() == "Change my photo…"; }));
  key(Qt::Key_Down);
  ASSERT_EQ(focusedName(), "Sign out");
  key(Qt::Key_Space);
  EXPECT_FALSE(store().signedIn());
  EXPECT_TRUE(leadsOut()) << focusedName().toStdString();
}

TEST_F(MenuViews, TheSettingsOpenInAWindowOfTheirOwnOnceAndCloseOnEsc) {
  open();
  const auto before = QGuiApplication::topLevelWindows().size();
  key(Qt::Key_Comma, Qt::ControlModifier);
  ASSERT_TRUE(settingsWindow());
  QQuickWindow* settings = settingsWindow();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(settings));
  EXPECT_EQ(settings->width(), 460);
  EXPECT_EQ(settings->transientParent(), window());

  ScreenReader inside{settings};
  ASSERT_TRUE(inside.press("Show the notes panel", QAccessible::CheckBox));
  EXPECT_FALSE(store().prefs.showNotes());
  ASSERT_TRUE(inside.press("Dark", QAccessible::RadioButton));
  EXPECT_EQ(store().prefs.appearance(), "dark");

  settings->requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(settings));
  QTest::keyClick(settings, Qt::Key_Escape);
  EXPECT_FALSE(settings->isVisible());
  window()->requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  key(Qt::Key_Comma, Qt::ControlModifier);
  EXPECT_TRUE(settings->isVisible());
  EXPECT_EQ(QGuiApplication::topLevelWindows().size(), before + 1);
}

const std::vector<Guest> kThree{{.email = "mara@tessarine.example", .name = "Mara"},
                                {.email = "olo@tessarine.example", .name = "Olo"},
                                {.email = "teva@tessarine.example", .name = "Teva"}};

TEST_F(MenuViews, TheSettingsKeepTheKeyboardWhereAnApproverIsRemoved) {
  serveTheDay();
  serveApprovers(kThree);
  poll();
  open();
  routes.leaveOpen("POST api/approvers");
  serveApprovers(kThree);
  poll();
  QQuickWindow* settings = openSettings();
  ASSERT_TRUE(settings);
  struct Step {
    const char* removed;
    std::vector<Guest> left;
    const char* then;
  };
  for (const Step& step :
       {Step{"Remove Olo", {kThree[0], kThree[2]}, "Remove Teva"},
        Step{"Remove Teva", {kThree[0]}, "Remove Mara"}, Step{"Remove Mara", {}, "Address"}}) {
    tabTo(settings, step.removed);
    serveApprovers(step.left);
    QTest::keyClick(settings, Qt::Key_Space);
    settle();
    EXPECT_EQ(focusedNameIn(settings), step.removed) << "while it is being saved";
    answer(desk.http.exchanges.size() - 1, answerOf(200, "{}"));
    settle();
    EXPECT_EQ(focusedNameIn(settings), step.then);
    EXPECT_TRUE(settings->activeFocusItem()->isEnabled());
  }
  QTest::keyClick(settings, Qt::Key_Escape);
  EXPECT_FALSE(settings->isVisible());
}

TEST_F(MenuViews, EscClosesTheSettingsWhateverHasTheKeyboard) {
  open();
  routes.leaveOpen("POST api/approvers");
  serveApprovers(kThree);
  poll();
  QQuickWindow* settings = openSettings();
  ASSERT_TRUE(settings);
  tabTo(settings, "Remove Olo");
  QTest::keyClick(settings, Qt::Key_Space);
  settle();
  ASSERT_EQ(store().busy().count("approvers"), 1U);
  QTest::keyClick(settings, Qt::Key_Escape);
  EXPECT_FALSE(settings->isVisible()) << "while the list is being saved";

  ASSERT_EQ(openSettings(), settings);
  settings->activeFocusItem()->setFocus(false);
  settings->contentItem()->forceActiveFocus();
  QTest::keyClick(settings, Qt::Key_Escape);
  EXPECT_FALSE(settings->isVisible()) << "nothing has the keyboard";

  ASSERT_EQ(openSettings(), settings);
  tabTo(settings, "Name");
  QTest::keyClick(settings, Qt::Key_Escape);
  EXPECT_FALSE(settings->isVisible()) << "somebody writes";
}

TEST_F(MenuViews, TheSettingsActOnNoTicketBehindThem) {
  open();
  store().selection.set({"t1"});
  settle();
  models()["send"].value<SendModel*>()->begin();
  settle();
  QQuickWindow* settings = nullptr;
  emit windowModels()["commands"].value<CommandsModel*>() -> settingsWanted();
  settings = settingsWindow();
  ASSERT_TRUE(settings);
  settings->requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(settings));
  const auto before = desk.http.exchanges.size();
  for (const Qt::Key letter : {Qt::Key_D, Qt::Key_R, Qt::Key_Equal, Qt::Key_Y}) {
    QTest::keyClick(settings, letter, Qt::ControlModifier);
    settle();
  }
  EXPECT_EQ(desk.http.exchanges.size(), before);
  EXPECT_EQ(store().zoom(), 1.0);
  EXPECT_FALSE(store().showActivity());
  QTest::keyClick(settings, Qt::Key_W, Qt::ControlModifier);
  EXPECT_FALSE(settings->isVisible());
}

}  // namespace
}  // namespace vellix
