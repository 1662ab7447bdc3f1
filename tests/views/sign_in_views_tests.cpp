// The sign-in screen, and the sheet that waits for the browser.
#include <QEasingCurve>
#include <QQmlComponent>
#include <QQmlListReference>
#include <QQuickItem>
#include <QTest>

#include "views/view_test.hpp"

namespace vellix {
namespace {

const QString kButton = QStringLiteral("Sign in with Google");
const QString kWorking = QStringLiteral("Opening Google…");
const QString kNote = QStringLiteral(
    "Google opens on its own page. Sign in with your @tessarine.example account there.");
const QString kSheet = QStringLiteral("Waiting for your browser");

// How far the screen has come, and how it comes.
class Entrance {
 public:
  explicit Entrance(QObject& view) : view_(view) {
    for (QQuickItem* each : qobject_cast<QQuickItem*>(&view)->childItems()) {
      QQmlListReference moves{each, "transform"};
      if (moves.count() == 1) {
        content_ = each;
        move_ = moves.at(0);
      }
    }
    for (QObject* each : view.children()) {
      if (each->inherits("QQuickBehavior")) motion_ = each->property("animation").value<QObject*>();
    }
  }
  bool whole() const { return content_ && move_ && motion_; }
  qreal done() const { return view_.property("entrance").toReal(); }
  qreal opacity() const { return content_->opacity(); }
  qreal drop() const { return move_->property("y").toReal(); }
  int duration() const { return motion_->property("duration").toInt(); }
  QList<QPointF> curve() const {
    return motion_->property("easing").value<QEasingCurve>().toCubicSpline();
  }

 private:
  QObject& view_;
  QQuickItem* content_ = nullptr;
  QObject* move_ = nullptr;
  QObject* motion_ = nullptr;
};

class SignInViews : public ViewTest {
 protected:
  SignInViews() {
    desk.tokens.item.reset();
    serveBoard(boardOf({ticketOf("t1")}));
  }
  bool has(const QString& name, QAccessible::Role role) { return reader().find(name, role); }
  bool button(const QString& name) { return has(name, QAccessible::Button); }
  // The screen eases in.
  void begin(QSize size) {
    showMain(size);
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return has("For Renny and Jorvas", QAccessible::StaticText); }));
  }
  // The sheet fades, which takes its time.
  bool sheetStands() {
    return QTest::qWaitFor([this] { return has(kSheet, QAccessible::Dialog); });
  }
  bool sheetGoes() {
    return QTest::qWaitFor([this] { return !has(kSheet, QAccessible::Dialog); });
  }
  void key(Qt::Key which) {
    QTest::keyClick(window(), which);
    settle();
  }
  // The session of somebody who writes ends: the screen comes under the hands.
  void endASessionInMidWord() {
    desk.tokens.item = "late";
    store().resume();
    showMain({760, 540});
    store().signOut(true);
    settle();
  }
  void rest() {
    desk.time.advance(Milliseconds{700});
    settle();
  }
  QPoint middleOf(const QString& name) {
    const auto rect = reader().find(name, QAccessible::Button)->rect();
    return window()->mapFromGlobal(rect.center());
  }
  // The name of what has the keyboard.
  std::string focused() {
    QAccessibleInterface* at = QAccessible::queryAccessibleInterface(window()->activeFocusItem());
    return at ? at->text(QAccessible::Name).toStdString() : std::string{};
  }
  bool ringed() { return window()->activeFocusItem()->property("visualFocus").toBool(); }
};

TEST_F(SignInViews, InviteASignIn) {
  begin({760, 540});
  EXPECT_TRUE(has("Vellix", QAccessible::Heading));
  EXPECT_TRUE(has("Supplier proofs, checked against what we sent.", QAccessible::StaticText));
  EXPECT_TRUE(button(kButton));
  EXPECT_FALSE(has(kNote, QAccessible::StaticText));
  EXPECT_TRUE(sheetGoes());
  EXPECT_EQ(focused(), kButton.toStdString());
  EXPECT_FALSE(ringed());
}

TEST_F(SignInViews, SayWhichServiceStandsIn) {
  desk.defaults.texts["ServerURL"] = "127.0.0.1:9000";
  begin({760, 540});
  const QString note = QStringLiteral(
      "ServerURL “127.0.0.1:9000” is not a full web address, so Vellix uses "
      "proofs.tessarine.example. Write it in full, like https://proofs.example.");
  EXPECT_TRUE(has(note, QAccessible::StaticText));
  ASSERT_TRUE(press(kButton));
  ASSERT_TRUE(sheetStands());
  EXPECT_TRUE(has(note, QAccessible::StaticText));
  const QRect sheet = reader().find(kSheet, QAccessible::Dialog)->rect();
  const QRect foot = reader().find("For Renny and Jorvas", QAccessible::StaticText)->rect();
  const QRect under = reader().find(kNote, QAccessible::StaticText)->rect();
  EXPECT_LT(sheet.bottom(), foot.top());
  EXPECT_LT(under.bottom(), sheet.top());
}

TEST_F(SignInViews, WaitForTheBrowserAfterAPress) {
  begin({760, 540});
  ASSERT_TRUE(press(kButton));
  EXPECT_EQ(desk.opener.opened.size(), 1U);
  EXPECT_TRUE(button(kWorking));
  EXPECT_FALSE(button(kButton));
  EXPECT_TRUE(has(kNote, QAccessible::StaticText));
  EXPECT_TRUE(sheetStands());
  ASSERT_TRUE(press(kWorking));
  EXPECT_EQ(desk.opener.opened.size(), 1U) << "the button takes no presses meanwhile";
  ASSERT_TRUE(press("Open it again"));
  EXPECT_EQ(desk.opener.opened.size(), 2U);
}

TEST_F(SignInViews, GiveUpTheWaitByTheButton) {
  begin({760, 540});
  ASSERT_TRUE(press(kButton));
  EXPECT_EQ(focused(), "Cancel");
  EXPECT_TRUE(sheetStands());
  ASSERT_TRUE(press("Cancel"));
  EXPECT_TRUE(button(kButton));
  EXPECT_TRUE(sheetGoes());
  EXPECT_EQ(focused(), kButton.toStdString());
  EXPECT_FALSE(has(kNote, QAccessible::StaticText));
  EXPECT_FALSE(store().toast());
}

TEST_F(SignInViews, WorkByKeyAlone) {
  begin({1'500, 940});
  key(Qt::Key_Return);
  EXPECT_EQ(desk.opener.opened.size(), 1U);
  EXPECT_EQ(focused(), "Cancel");
  EXPECT_FALSE(ringed());
  key(Qt::Key_Backtab);
  EXPECT_EQ(focused(), "Open it again");
  EXPECT_TRUE(ringed());
  key(Qt::Key_Space);
  EXPECT_EQ(desk.opener.opened.size(), 2U);
  key(Qt::Key_Escape);
  EXPECT_TRUE(sheetGoes());
  EXPECT_EQ(focused(), kButton.toStdString());
  EXPECT_TRUE(ringed()) << "one showed before";
  key(Qt::Key_Escape);
  EXPECT_TRUE(button(kButton));
  key(Qt::Key_Space);
  EXPECT_TRUE(sheetStands());
  EXPECT_EQ(focused(), "Cancel");
  EXPECT_TRUE(ringed());
}

TEST_F(SignInViews, TakeNoKeyOfSomebodyWhoTypesOn) {
  endASessionInMidWord();
  for (const Qt::Key each :
       {Qt::Key_Space, Qt::Key_A, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Enter}) {
    key(each);
    EXPECT_TRUE(desk.opener.opened.empty()) << each;
    desk.time.advance(Milliseconds{500});
  }
  QTest::mouseClick(window(), Qt::LeftButton, {}, middleOf(kButton));
  settle();
  EXPECT_TRUE(desk.opener.opened.empty()) << "clicked";
  ASSERT_TRUE(press(kButton)) << "a screen reader's press is meant";
  EXPECT_EQ(desk.opener.opened.size(), 1U);
}

TEST_F(SignInViews, TakeReturnOnceTheHandsRest) {
  endASessionInMidWord();
  rest();
  EXPECT_EQ(focused(), kButton.toStdString());
  EXPECT_FALSE(ringed());
  key(Qt::Key_Space);
  key(Qt::Key_A);
  EXPECT_TRUE(desk.opener.opened.empty()) << "a blank of a sentence";
  key(Qt::Key_Return);
  EXPECT_EQ(desk.opener.opened.size(), 1U);
  EXPECT_EQ(focused(), "Cancel");
}

TEST_F(SignInViews, TakeABlankWhereTheKeyboardWasLed) {
  endASessionInMidWord();
  rest();
  key(Qt::Key_Tab);
  EXPECT_EQ(focused(), kButton.toStdString());
  EXPECT_TRUE(ringed());
  key(Qt::Key_Space);
  EXPECT_EQ(desk.opener.opened.size(), 1U);
}

TEST_F(SignInViews, TakeAClickOnceTheHandsRest) {
  endASessionInMidWord();
  rest();
  QTest::mouseClick(window(), Qt::LeftButton, {}, middleOf(kButton));
  settle();
  EXPECT_EQ(desk.opener.opened.size(), 1U);
}

TEST_F(SignInViews, HoldNoKeyThatWasDownWhenTheyCame) {
  desk.tokens.item = "late";
  store().resume();
  showMain({760, 540});
  QTest::keyPress(window(), Qt::Key_Space);
  store().signOut(true);
  settle();
  QKeyEvent held{QEvent::KeyPress, Qt::Key_Space, {}, " ", true};
  QGuiApplication::sendEvent(window(), &held);
  rest();
  QTest::keyRelease(window(), Qt::Key_Space);
  settle();
  EXPECT_TRUE(desk.opener.opened.empty());
}

TEST_F(SignInViews, GiveWayToTheBoard) {
  routes.set("POST api/login/exchange",
             answerOf(200, R"({"token":"fresh","me":{"email":"a","name":"b"}})"));
  begin({760, 540});
  ASSERT_TRUE(press(kButton));
  store().open("sorel://signed-in?code=abc");
  settle();
  EXPECT_TRUE(store().board());
  EXPECT_FALSE(button(kWorking));
  EXPECT_TRUE(sheetGoes());
}

TEST_F(SignInViews, SayThatNoBrowserOpened) {
  desk.opener.works = false;
  begin({760, 540});
  ASSERT_TRUE(press(kButton));
  EXPECT_TRUE(button(kButton));
  EXPECT_TRUE(QTest::qWaitFor([this] {
    return has("No browser opened. Choose a default browser, then try again.",
               QAccessible::AlertMessage);
  }));
}

TEST_F(SignInViews, KeepTheSheetAboveTheFootAndBelowTheNote) {
  begin(kSizes.front());
  ASSERT_TRUE(press(kButton));
  ASSERT_TRUE(sheetStands());
  for (const QSize size : kSizes) {
    resize(size);
    const QRect note = reader().find(kNote, QAccessible::StaticText)->rect();
    const QRect sheet = reader().find(kSheet, QAccessible::Dialog)->rect();
    const QRect foot = reader().find("For Renny and Jorvas", QAccessible::StaticText)->rect();
    EXPECT_LT(note.bottom(), sheet.top());
    EXPECT_LT(sheet.bottom(), foot.top());
  }
}

TEST_F(SignInViews, EaseIn) {
  QQmlComponent component{engine(), QUrl{"qrc:/qt/qml/Vellix/Shell/SignInView.qml"}};
  const std::unique_ptr<QObject> view{
      component.createWithInitialProperties({{"signIn", models()["signIn"]}})};
  ASSERT_TRUE(view) << component.errorString().toStdString();
  const Entrance entrance{*view};
  ASSERT_TRUE(entrance.whole());
  EXPECT_EQ(entrance.done(), 0);
  EXPECT_EQ(entrance.opacity(), 0);
  EXPECT_EQ(entrance.drop(), 6);
  EXPECT_EQ(entrance.duration(), 900);
  EXPECT_EQ(entrance.curve().mid(0, 2), (QList<QPointF>{{0.2, 0.8}, {0.2, 1}}));
  EXPECT_TRUE(QTest::qWaitFor([&] {
    EXPECT_EQ(entrance.opacity(), entrance.done());
    EXPECT_DOUBLE_EQ(entrance.drop(), 6 * (1 - entrance.done()));
    return entrance.done() == 1;
  }));
  EXPECT_EQ(entrance.opacity(), 1);
  EXPECT_EQ(entrance.drop(), 0);
}

TEST_F(SignInViews, StandAtOnceWhereMotionIsReduced) {
  theme()->setReducedMotion(true);
  showMain({760, 540});
  EXPECT_TRUE(button(kButton));
  ASSERT_TRUE(press(kButton));
  EXPECT_TRUE(has(kSheet, QAccessible::Dialog));
  ASSERT_TRUE(press("Cancel"));
  EXPECT_FALSE(has(kSheet, QAccessible::Dialog));
}

}  // namespace
}  // namespace vellix
