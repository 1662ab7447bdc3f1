// What a press falls on when what is there has changed about the time that it was made.
#include "pieces/PressArea.hpp"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

namespace vellix {
namespace {

qint64 present = 1'000'000;

class PressAreas : public testing::Test {
 protected:
  QQuickWindow window;
  PressArea area;
  QSignalSpy clicks{&area, &PressArea::clicked};
  static constexpr QPointF kThere{60, 50};

  PressAreas() {
    Sight::clock = [] { return present; };
    window.resize(400, 300);
    area.setParentItem(window.contentItem());
    area.setPosition({20, 30});
    area.setSize({100, 40});
    area.setSays(false);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    frame();
    wait(1'000);
  }
  void TearDown() override {
    area.setParentItem(nullptr);
    Sight::clock = nullptr;
  }

  void wait(qint64 milliseconds) { present += milliseconds; }
  // What is there now has been on show from here on.
  void frame() {
    QSignalSpy swapped(&window, &QQuickWindow::frameSwapped);
    window.update();
    EXPECT_TRUE(swapped.wait());
  }
  void send(QEvent::Type type, QPointF at, qint64 made) {
    const bool held = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, at, Qt::LeftButton, held ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    // Stamps have 32 bits on some platforms.
    event.setTimestamp(static_cast<quint32>(made));
    QCoreApplication::sendEvent(&window, &event);
  }
  void press(qint64 made, QPointF at = kThere) { send(QEvent::MouseButtonPress, at, made); }
  void release(QPointF at = kThere) { send(QEvent::MouseButtonRelease, at, present); }
  void click(qint64 made, QPointF at = kThere) {
    press(made, at);
    release(at);
  }
  // The second one of a double click.
  void clickAgain(QPointF at) {
    press(present, at);
    send(QEvent::MouseButtonDblClick, at, present);
    release(at);
  }
  void space(qint64 made) {
    area.forceActiveFocus();
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
      event.setTimestamp(static_cast<quint64>(made));
      QCoreApplication::sendEvent(&window, &event);
    }
  }
};

TEST_F(PressAreas, TakeAPressOnWhatIsOnShow) {
  click(present);
  EXPECT_EQ(clicks.count(), 1);
  space(present);
  EXPECT_EQ(clicks.count(), 2);
}

TEST_F(PressAreas, TakeNoneOnWhatHasNotBeenShownYet) {
  area.setSays(true);
  click(present);
  space(present);
  EXPECT_EQ(clicks.count(), 0);
}

TEST_F(PressAreas, TakeNoneThatWasMadeBeforeItWasShown) {
  area.setSays(true);
  wait(2'000);
  frame();
  wait(500);
  click(present - 600);
  space(present - 600);
  EXPECT_EQ(clicks.count(), 0);
  click(present);
  EXPECT_EQ(clicks.count(), 1);
}

TEST_F(PressAreas, TakeTwoPressesInARowForOne) {
  click(present);
  area.setSays(true);
  frame();
  wait(299);
  click(present);
  space(present);
  EXPECT_EQ(clicks.count(), 1);
  wait(1);
  click(present);
  EXPECT_EQ(clicks.count(), 2);
}

TEST_F(PressAreas, TakeAStampOfAnotherClockForNow) {
  click(17);
  EXPECT_EQ(clicks.count(), 1);
}

TEST_F(PressAreas, DoNothingWhenWhatThePressBeganOnHasChanged) {
  press(present);
  area.setSays(true);
  release();
  EXPECT_EQ(clicks.count(), 0);
}

TEST_F(PressAreas, AreHeldWhenTheyMoveAwayUnderAPointerThatRests) {
  press(present);
  area.setPosition({20, 200});
  frame();
  release();
  EXPECT_EQ(clicks.count(), 1);
}

TEST_F(PressAreas, AreLetGoWhenThePointerLeaves) {
  press(present);
  release({300, 250});
  EXPECT_EQ(clicks.count(), 0);
}

TEST_F(PressAreas, TakeNoneThatWasMadeBeforeTheyCameUnderThePointer) {
  area.setPosition({20, 200});
  const QPointF there{60, 220};
  wait(2'000);
  frame();
  wait(50);
  click(present - 60, there);
  EXPECT_EQ(clicks.count(), 0);
  space(present - 60);
  EXPECT_EQ(clicks.count(), 1) << "for the keyboard it is where it was";
  click(present, there);
  EXPECT_EQ(clicks.count(), 1) << "the pointer was on its way";
  wait(50);
  click(present, there);
  EXPECT_EQ(clicks.count(), 2);
}

TEST_F(PressAreas, TakeAPressWhereTheyWereAndStillAre) {
  area.setPosition({22, 31});
  frame();
  wait(50);
  click(present - 60);
  EXPECT_EQ(clicks.count(), 1);
}

TEST_F(PressAreas, TakeNoneUntilTheyHaveBeenOnShowAgain) {
  area.setVisible(false);
  frame();
  area.setVisible(true);
  click(present);
  EXPECT_EQ(clicks.count(), 0);
  frame();
  wait(100);
  click(present);
  EXPECT_EQ(clicks.count(), 1);
}

TEST_F(PressAreas, LeaveTheSecondPressOfTwoToWhatTheFirstFellOn) {
  PressArea other;
  other.setParentItem(window.contentItem());
  other.setPosition({20, 200});
  other.setSize({100, 40});
  const QPointF there{60, 220};
  click(present, there);
  other.setVisible(false);
  area.setPosition({20, 200});
  frame();
  wait(100);
  clickAgain(there);
  EXPECT_EQ(clicks.count(), 0);
  wait(500);
  click(present, there);
  EXPECT_EQ(clicks.count(), 1);
  wait(100);
  clickAgain(there);
  EXPECT_EQ(clicks.count(), 2) << "both fell on it, and it says the same";
  other.setParentItem(nullptr);
}

TEST_F(PressAreas, KeepTheirRingAlsoWithAnotherParent) {
  QQuickItem one;
  QQuickItem other;
  for (QQuickItem* each : {&one, &other}) each->setParentItem(window.contentItem());
  area.setParentItem(&one);
  area.forceActiveFocus(Qt::TabFocusReason);
  ASSERT_TRUE(area.visualFocus());
  one.setParentItem(&other);
  EXPECT_TRUE(area.hasActiveFocus());
  EXPECT_TRUE(area.visualFocus());
  area.setParentItem(&other);
  EXPECT_TRUE(area.visualFocus());
  other.forceActiveFocus(Qt::OtherFocusReason);
  EXPECT_FALSE(area.visualFocus());
  area.forceActiveFocus(Qt::OtherFocusReason);
  EXPECT_FALSE(area.visualFocus()) << "the keyboard has been elsewhere";
  area.forceActiveFocus(Qt::TabFocusReason);
  other.forceActiveFocus(Qt::MouseFocusReason);
  area.forceActiveFocus(Qt::OtherFocusReason);
  EXPECT_FALSE(area.visualFocus());
}

TEST_F(PressAreas, ThatSayNothingTakeEveryPress) {
  PressArea plain;
  plain.setParentItem(window.contentItem());
  plain.setPosition({200, 30});
  plain.setSize({100, 40});
  const QSignalSpy plainClicks(&plain, &PressArea::clicked);
  click(present - 5'000, {240, 50});
  clickAgain({240, 50});
  EXPECT_EQ(plainClicks.count(), 2);
  plain.setParentItem(nullptr);
}

}  // namespace
}  // namespace vellix
