// What a screen reader speaks by itself: each toast and each trouble once.
#include <QTest>
#include <QTimer>

#include "pieces/Announcement.hpp"
#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

// Alerts are spoken as they come into sight, and when they are renewed. No event leaves a program
// without a display, so this stands where the reader would.
class Ear {
 public:
  explicit Ear(const QQuickWindow& window) {
    listen(window.contentItem());
    EXPECT_EQ(alerts_, 3) << "the toast, the trouble and the newer build";
  }
  QStringList take() { return std::exchange(said_, {}); }

 private:
  void listen(QQuickItem* item) {
    if (auto* announcement = item->findChild<Announcement*>({}, Qt::FindDirectChildrenOnly)) {
      hear(*announcement);
    }
    for (QQuickItem* child : item->childItems()) listen(child);
  }
  void hear(Announcement& announcement) {
    auto* alert = qobject_cast<QQuickItem*>(announcement.alert());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(alert)->role(), QAccessible::AlertMessage);
    // A reader asks for the words once it has been told.
    const auto ask = [this, alert] {
      said_.append(QAccessible::queryAccessibleInterface(alert)->text(QAccessible::Name));
    };
    const auto take = [this, alert, ask] {
      if (alert->isVisible()) QTimer::singleShot(0, &scope_, ask);
    };
    ++alerts_;
    QObject::connect(alert, &QQuickItem::visibleChanged, &scope_, take);
    QObject::connect(&announcement, &Announcement::renewed, &scope_, take);
  }

  QObject scope_;
  QStringList said_;
  int alerts_ = 0;
};

class Announcements : public ViewTest, public testing::WithParamInterface<bool> {
 protected:
  void begin() {
    serveTheDay();
    showMain({1'500, 940});
    theme()->setReducedMotion(GetParam());
    settle();
    ear.emplace(*window());
  }
  // What is spoken until all has come to rest.
  QStringList spoken() {
    settle();
    QTest::qWait(2 * theme()->standard());
    settle();
    return ear->take();
  }
  QStringList once(const QString& text) { return {text}; }
  void say(const char* text) { store().toast.set(Toast{text}); }

  std::optional<Ear> ear;
};

TEST_P(Announcements, SpeakEachToastOnce) {
  begin();
  say("Marked fine.");
  EXPECT_EQ(spoken(), once("Marked fine."));
  say("Marked a real issue.");
  EXPECT_EQ(spoken(), once("Marked a real issue.")) << "in its place";
  say("Marked a real issue.");
  EXPECT_EQ(spoken(), once("Marked a real issue.")) << "in the same words";
  store().toast.set(std::nullopt);
  EXPECT_EQ(spoken(), QStringList{});
  say("Marked a real issue.");
  EXPECT_EQ(spoken(), once("Marked a real issue.")) << "after a while";
  store().toast.set(std::nullopt);
  settle();
  say("Reopened.");
  EXPECT_EQ(spoken(), once("Reopened.")) << "while the last one goes";
}

TEST_P(Announcements, SpeakTheEndOfTheSessionOnce) {
  begin();
  store().signOut(true);
  EXPECT_EQ(spoken(), once(kSignedOutText));
}

TEST_P(Announcements, SpeakEachTroubleOnce) {
  begin();
  store().problem.set("Down for a minute.");
  EXPECT_EQ(spoken(), once("Down for a minute."));
  store().problem.set("Down for a minute.");
  EXPECT_EQ(spoken(), QStringList{}) << "the next poll said the same";
  store().problem.set(kOfflineText);
  EXPECT_EQ(spoken(), once(kOfflineText));
  store().problem.set(std::nullopt);
  EXPECT_EQ(spoken(), QStringList{});
}

TEST_P(Announcements, SpeakEachStepOfAnUpdateOnce) {
  begin();
  updater().latest.set(
      VersionInfo{.version = "1.3", .build = 42, .url = "https://pages.tessarine.example/"});
  EXPECT_EQ(spoken(), once("Vellix 1.3 (42) is ready."));
  updater().latest.set(
      VersionInfo{.version = "1.4", .build = 43, .url = "https://pages.tessarine.example/"});
  EXPECT_EQ(spoken(), once("Vellix 1.4 (43) is ready."));
  updater().phase.set({Updater::Phase::Kind::working, "Downloading Vellix 1.4 (43)…"});
  EXPECT_EQ(spoken(), once("Downloading Vellix 1.4 (43)…"));
  updater().phase.set({});
  updater().latest.set(std::nullopt);
  spoken();
  EXPECT_EQ(spoken(), QStringList{});
}

INSTANTIATE_TEST_SUITE_P(WithMotionAndWithout, Announcements, testing::Bool());

}  // namespace
}  // namespace vellix
