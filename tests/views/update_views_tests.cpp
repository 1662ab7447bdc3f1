// The strip that offers a newer build, and the screen that insists on it.
#include <QQuickItem>
#include <QTest>

#include "pieces/Sight.hpp"
#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

using Kind = Updater::Phase::Kind;

class UpdateViews : public ViewTest {
 public:
  ~UpdateViews() override { Sight::clock = nullptr; }

 protected:
  UpdateViews() {
    Sight::clock = [] { return present; };
    serveTheDay();
  }
  void open(QSize size = {1500, 940}) {
    showMain(size);
    theme()->setReducedMotion(true);
  }
  void learn(std::optional<Int> least = std::nullopt) {
    updater().latest.set(VersionInfo{.version = "1.3",
                                     .build = 42,
                                     .url = "https://pages.tessarine.example/",
                                     .notes = "Faster pages.",
                                     .min_build = least});
    rest();
  }
  void step(Kind kind, const std::string& text = {}) {
    updater().phase.set({kind, text});
    rest();
  }
  void forget() {
    updater().latest.set(std::nullopt);
    if (window()) rest();
  }
  // What has just come into sight is not pressed by a press that was on its way.
  void rest() {
    settle();
    present += 1'000;
    settle();
  }
  bool finds(const QString& name, QAccessible::Role role = QAccessible::Button) {
    return reader().find(name, role);
  }
  QQuickItem* bar() { return seen(window()->contentItem(), "UpdateBar").value(0); }
  double barHeight() { return bar() ? bar()->height() : 0; }
  QString keyed() {
    const QQuickItem* item = window()->activeFocusItem();
    return item ? item->property("label").toString() : QString{};
  }
  void key(int key) {
    QTest::keyClick(window(), static_cast<Qt::Key>(key));
    settle();
  }

  static inline qint64 present = 10'000;
};

TEST_F(UpdateViews, ShowNoStripWithoutANewerBuild) {
  open();
  EXPECT_EQ(barHeight(), 0);
  EXPECT_FALSE(finds("Update now"));
}

TEST_F(UpdateViews, OfferTheBuildAndPutItOff) {
  open();
  learn();
  EXPECT_TRUE(finds("Vellix 1.3 (42) is ready.", QAccessible::StaticText));
  EXPECT_TRUE(finds("Faster pages.", QAccessible::StaticText));
  EXPECT_TRUE(finds("Vellix 1.3 (42) is ready. Faster pages.", QAccessible::AlertMessage));
  EXPECT_GT(barHeight(), 0);
  EXPECT_TRUE(press("Later"));
  EXPECT_EQ(barHeight(), 0);
  EXPECT_FALSE(finds("Later"));
}

TEST_F(UpdateViews, OpenThePageWhereNothingCanBeReplaced) {
  open();
  learn();
  EXPECT_TRUE(press("Update now"));
  EXPECT_EQ(desk.opener.opened, std::vector<std::string>{"https://pages.tessarine.example/"});
}

TEST_F(UpdateViews, MoveNothingButByTheStripsOwnHeight) {
  for (const QSize size : kSizes) {
    forget();
    open(size);
    QQuickItem* content = seen(window()->contentItem(), "FileView").value(0);
    ASSERT_TRUE(content);
    const QRectF before{content->mapToScene({}), content->size()};
    learn();
    const double bar = barHeight();
    EXPECT_EQ(QRectF(content->mapToScene({}), content->size()), before.adjusted(0, bar, 0, 0));
    step(Kind::working, "Checking it's signed by Tessarine…");
    if (size.width() > 1000) {
      EXPECT_EQ(barHeight(), bar);
    }
    step(Kind::idle);
    forget();
    EXPECT_EQ(QRectF(content->mapToScene({}), content->size()), before);
  }
}

TEST_F(UpdateViews, TellWhatFailedAndOfferItOnceMore) {
  open({760, 540});
  learn();
  step(Kind::failed,
       "Vellix can't replace itself where it is. Drag the new Vellix from the window that opened "
       "into Applications.");
  EXPECT_FALSE(finds("Update now"));
  EXPECT_FALSE(finds("Later"));
  EXPECT_TRUE(press("Download"));
  EXPECT_EQ(desk.opener.opened.size(), 1);
  EXPECT_TRUE(press("Try again"));
  EXPECT_EQ(desk.opener.opened.size(), 2);
}

TEST_F(UpdateViews, OfferNothingWhileItIsUnderWay) {
  open();
  learn();
  step(Kind::working, "Downloading Vellix 1.3 (42)…");
  EXPECT_TRUE(finds("Downloading Vellix 1.3 (42)…", QAccessible::StaticText));
  for (const char* name : {"Update now", "Later", "Try again", "Download"}) {
    EXPECT_FALSE(finds(name)) << name;
  }
}

TEST_F(UpdateViews, GiveTheKeyboardBackFromAButtonThatGoes) {
  open();
  learn();
  key(Qt::Key_Tab);
  auto* before = window()->activeFocusItem();
  ASSERT_TRUE(before);
  QQuickItem* later = nullptr;
  for (QQuickItem* pill : seen(window()->contentItem(), "Pill")) {
    if (pill->property("title").toString() == "Later") later = pill;
  }
  ASSERT_TRUE(later);
  later->forceActiveFocus(Qt::TabFocusReason);
  ASSERT_EQ(keyed(), "Later");
  key(Qt::Key_Space);
  rest();
  EXPECT_EQ(window()->activeFocusItem(), before);
}

TEST_F(UpdateViews, CoverEverythingWhenTheBuildIsRequired) {
  for (const QSize size : kSizes) {
    forget();
    open(size);
    learn(42);
    EXPECT_TRUE(finds("Update Vellix", QAccessible::Heading));
    EXPECT_TRUE(
        finds("Vellix 1.3 (42) is out, and this copy is too old to keep going. It takes about a "
              "minute and reopens by itself.",
              QAccessible::StaticText));
    for (const char* name : {"Sync", "Activity", "Mark reviewed", "Later"}) {
      EXPECT_FALSE(finds(name)) << name;
    }
    EXPECT_TRUE(press("Update now"));
    EXPECT_EQ(desk.opener.opened.back(), "https://pages.tessarine.example/");
    step(Kind::failed, "The update didn't finish.");
    EXPECT_TRUE(finds("Try again"));
    EXPECT_TRUE(finds("Download"));
    EXPECT_FALSE(finds("Update now"));
    step(Kind::working, "Installing. Vellix reopens by itself.");
    EXPECT_FALSE(finds("Try again"));
    step(Kind::idle);
    forget();
    EXPECT_FALSE(finds("Update Vellix", QAccessible::Heading));
    EXPECT_TRUE(finds("Sync"));
  }
}

TEST_F(UpdateViews, CoverTheSignInScreenToo) {
  store().signOut(false);
  desk.time.run();
  open();
  learn();
  EXPECT_FALSE(bar());
  learn(42);
  EXPECT_TRUE(finds("Update Vellix", QAccessible::Heading));
  EXPECT_FALSE(finds("Sign in with Google"));
}

TEST_F(UpdateViews, AreWorkedByKeyboardAlone) {
  open();
  learn(42);
  // Words that were under way press nothing.
  for (const int each : {Qt::Key_A, Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape}) key(each);
  EXPECT_TRUE(desk.opener.opened.empty());
  key(Qt::Key_Tab);
  EXPECT_EQ(keyed(), "Update now");
  key(Qt::Key_Tab);
  EXPECT_EQ(keyed(), "Update now");
  key(Qt::Key_Return);
  EXPECT_EQ(desk.opener.opened.size(), 1);
}

TEST_F(UpdateViews, LeaveTheKeyboardWhereItWasOnceThisCopyMayGoOn) {
  open();
  auto* before = window()->activeFocusItem();
  ASSERT_TRUE(before);
  learn(42);
  EXPECT_NE(window()->activeFocusItem(), before);
  learn();
  EXPECT_EQ(window()->activeFocusItem(), before);
}

TEST_F(UpdateViews, LetNoCommandThroughBehindTheScreen) {
  open();
  learn(42);
  const auto asked = desk.http.exchanges.size();
  QTest::keyClick(window(), Qt::Key_R, Qt::ControlModifier);
  QTest::keyClick(window(), Qt::Key_Y, Qt::ControlModifier);
  settle();
  EXPECT_EQ(desk.http.exchanges.size(), asked);
  EXPECT_FALSE(store().showActivity());
  learn();
  QTest::keyClick(window(), Qt::Key_Y, Qt::ControlModifier);
  settle();
  EXPECT_TRUE(store().showActivity());
}

TEST_F(UpdateViews, LeaveTheEndOfTheProgramToBeHad) {
  store().setShowActivity(true);
  open();
  learn(42);
  QSignalSpy ended{windowModels()["commands"].value<CommandsModel*>(), &CommandsModel::endWanted};
  QTest::keyClick(window(), Qt::Key_Q, Qt::ControlModifier);
  EXPECT_EQ(ended.count(), 1);
}

TEST_F(UpdateViews, LetNothingBeTakenBackBehindTheScreen) {
  open();
  bool undone = false;
  store().toast.set(Toast{"Marked fine.", "Undo", [&undone] { undone = true; }});
  rest();
  learn(42);
  QTest::keyClick(window(), Qt::Key_Z, Qt::ControlModifier);
  settle();
  EXPECT_FALSE(undone);
}

TEST_F(UpdateViews, CoverWhatFloatsOverTheWindow) {
  store().setShowActivity(true);
  open();
  ASSERT_TRUE(finds("Activity", QAccessible::Heading));
  learn(42);
  EXPECT_FALSE(finds("Activity", QAccessible::Heading));
  learn();
  EXPECT_TRUE(finds("Activity", QAccessible::Heading));
}

}  // namespace
}  // namespace vellix
