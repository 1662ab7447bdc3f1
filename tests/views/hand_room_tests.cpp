// Whatever is pressed takes a press on at least 24 by 24, wherever it can be seen.
#include <QPointer>
#include <QTest>
#include <set>

#include "views/approval_views_test.hpp"
#include "views/sights.hpp"

namespace vellix {
namespace {

class HandRoom : public ApprovalViewsTest {
 protected:
  HandRoom() {
    change(shareIt);
    change([](BoardState& board) { board.sync = jobOf("stuck", "sync"); });
  }
  // What lies on the page is as large as what it marks, a bar beside what scrolls is thin, and the
  // line between a menu's entries is none.
  static bool isFree(const QQuickItem* area) {
    if (isOfType(area, "MenuEntry") && area->property("label").toString().isEmpty()) return true;
    constexpr std::array kFree{"BoxMark", "BoxMarks", "NoteMark", "ScrollBar", "WeekBar"};
    return std::ranges::any_of(kFree, [&](const char* each) { return isOfType(area, each); });
  }
  static bool holds(const QQuickItem* area) {
    const QPointF middle{area->width() / 2, area->height() / 2};
    for (const double x : {-11.9, 0.0, 11.9}) {
      for (const double y : {-11.9, 0.0, 11.9}) {
        if (!area->contains(middle + QPointF{x, y})) return false;
      }
    }
    return true;
  }
  // All there are in a window, each told once by its name.
  void look(const std::string& where) {
    settle();
    for (const QQuickItem* area : seen(window()->contentItem(), "PressArea")) {
      if (isFree(area)) continue;
      const auto label = area->property("label").toString().toStdString();
      ++looked_;
      kinds_.insert(QByteArray{area->metaObject()->className()}.split('_').constFirst());
      EXPECT_TRUE(holds(area)) << where << ": " << area->metaObject()->className() << " \"" << label
                               << "\", " << area->width() << " by " << area->height();
    }
  }
  // Every menu and popover that a button of the window opens.
  void open(const std::string& where) {
    QList<QPointer<QQuickItem>> buttons;
    for (QQuickItem* each : seen(window()->contentItem(), "PressArea")) {
      if (each->property("expandable").toBool() && each->isEnabled()) buttons.append(each);
    }
    for (const auto& button : buttons) {
      if (!button || !button->isVisible()) continue;
      const std::string label = button->property("label").toString().toStdString();
      QMetaObject::invokeMethod(button, "click");
      look(std::string{where}.append(", ").append(label));
      ++opened_;
      if (button && button->property("expanded").toBool()) key(Qt::Key_Escape);
      settle();
    }
  }
  void begin(QSize size) {
    showMain(size);
    theme()->setReducedMotion(true);
    window()->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    settle();
  }
  bool saw(const char* kind) const { return kinds_.contains(kind); }

  int looked_ = 0;
  int opened_ = 0;

 private:
  std::set<QByteArray> kinds_;
};

TEST_F(HandRoom, IsInTheWindow) {
  for (const QSize size : kSizes) {
    const std::string where = std::to_string(size.width());
    begin(size);
    look(where);
    open(where);
    if (press("Overlay", QAccessible::RadioButton)) look(where + " overlaid");
    if (press("History", QAccessible::PageTab)) look(where + " history");
  }
  EXPECT_GT(looked_, 400);
  EXPECT_GT(opened_, 10);
  for (const char* kind :
       {"Pressable", "IconButton", "TextButton", "Slider", "Switch", "CheckBox"}) {
    EXPECT_TRUE(saw(kind)) << kind;
  }
}

TEST_F(HandRoom, IsOnAPersonsPage) {
  for (const QSize size : kSizes) {
    begin(size);
    ASSERT_TRUE(press("Your page and stats"));
    look("a person");
  }
  EXPECT_TRUE(saw("TextButton"));
}

TEST_F(HandRoom, IsInTheSheets) {
  for (const char* button : {"Send for approval", "Upload revision"}) {
    showCard();
    ASSERT_TRUE(press(button));
    look(button);
  }
  EXPECT_TRUE(saw("CheckBox"));
  showShare();
  open("share");
  EXPECT_TRUE(saw("Switch"));
  EXPECT_TRUE(saw("TextButton"));
  show("Shell/WaitingSheet", {{"open", true}}, kSizes.front());
  look("waiting");
}

TEST_F(HandRoom, IsInTheSettings) {
  const QVariantMap all = windowModels();
  show("Shell/SettingsView", {{"settings", all["settings"]}, {"approvers", all["approvers"]}},
       {480, 640});
  look("settings");
  EXPECT_TRUE(saw("Switch"));
}

// Where the words end the hand does not.
TEST_F(HandRoom, TakesAPressBesideWhatIsSeen) {
  showShare();
  open("share");
  show("Shell/WaitingSheet", {{"open", true}}, kSizes.front());
  QQuickItem* again = nullptr;
  for (QQuickItem* each : seen(window()->contentItem(), "TextButton")) again = each;
  ASSERT_TRUE(again);
  const auto at = [&](double below) {
    return again->mapToScene({again->width() / 2, again->height() / 2 + below}).toPoint();
  };
  ASSERT_LT(again->height(), 23) << "as large as its words";
  QSignalSpy pressed{again, SIGNAL(clicked(int))};
  for (const double below : {11.0, -11.0}) {
    QTest::mouseMove(window(), at(below));
    EXPECT_TRUE(again->property("hovered").toBool()) << below;
    QTest::mouseClick(window(), Qt::LeftButton, {}, at(below));
  }
  QTest::mouseClick(window(), Qt::LeftButton, {}, at(15));
  EXPECT_EQ(pressed.size(), 2);
}

}  // namespace
}  // namespace vellix
