// The keyboard goes from part to part of the window, and through the list from anywhere.
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class KeyboardParts : public ViewTest {
 protected:
  void open(QSize size = {1'500, 940}) {
    serveTheDay();
    showMain(size);
    theme()->setReducedMotion(true);
    window()->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    settle();
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window(), key, modifiers);
    settle();
  }
  // The part that has the keyboard, and with what; nothing without a ring.
  QString at() {
    const QQuickItem* item = window()->activeFocusItem();
    if (!item) return {};
    const auto rings = seen(item, "FocusRing");
    const bool ringed = item->property("visualFocus").toBool() || !rings.isEmpty();
    for (const QQuickItem* each = item; ringed && each; each = each->parentItem()) {
      for (const char* part : {"FileList", "FileHeader", "PageStrip", "CompareCanvas", "DraftCard",
                               "Inspector", "ProfileView", "MultiView", "PeopleBar", "Sidebar"}) {
        if (isOfType(each, part)) return part;
      }
    }
    return {};
  }
  QString name() {
    QQuickItem* item = window()->activeFocusItem();
    auto* seen = item ? QAccessible::queryAccessibleInterface(item) : nullptr;
    return seen ? seen->text(QAccessible::Name) : QString{};
  }
  QStringList round(int times, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QStringList parts;
    for (int i = 0; i < times; ++i) {
      key(Qt::Key_F6, modifiers);
      parts.append(at());
    }
    return parts;
  }
  QQuickItem* item(const char* type) { return seen(window()->contentItem(), type).value(0); }
  bool comesTo(const QString& wanted) {
    return QTest::qWaitFor([&] {
      settle();
      return name() == wanted;
    });
  }
  using Parts = QStringList;
  static inline const QString kField = QStringLiteral("What needs fixing here?");
  static inline const DraftNote kDraft{.fileID = "t1", .side = "supplier", .x = 0.5, .y = 0.3};
};

TEST_F(KeyboardParts, AreGoneRound) {
  open();
  EXPECT_EQ(round(6), (Parts{"FileList", "FileHeader", "CompareCanvas", "Inspector", "FileList",
                             "FileHeader"}));
  EXPECT_EQ(round(5, Qt::ShiftModifier),
            (Parts{"FileList", "Inspector", "CompareCanvas", "FileHeader", "FileList"}));
  EXPECT_EQ(name(), "The Lighthouse") << "the ticket on show";
}

TEST_F(KeyboardParts, BeginAtTheEndBackwards) {
  open();
  EXPECT_EQ(round(1, Qt::ShiftModifier), Parts{"Inspector"});
}

TEST_F(KeyboardParts, LeadOnByTab) {
  open();
  round(1);
  key(Qt::Key_Tab);
  EXPECT_EQ(name(), "Sync");
  EXPECT_EQ(round(1), Parts{"FileHeader"});
  EXPECT_EQ(name(), "The Lighthouse");
  key(Qt::Key_Tab);
  EXPECT_EQ(at(), "FileHeader") << "and within it";
  round(2);
  EXPECT_EQ(name(), "This page");
  key(Qt::Key_Tab);
  EXPECT_EQ(at(), "Inspector");
}

TEST_F(KeyboardParts, AreGoneToFromBetweenThem) {
  open();
  const auto tabTo = [this](const char* part) {
    for (int i = 0; i < 60 && at() != part; ++i) key(Qt::Key_Tab);
    ASSERT_EQ(at(), part);
  };
  tabTo("PageStrip");
  EXPECT_EQ(round(1), Parts{"CompareCanvas"});
  tabTo("PageStrip");
  EXPECT_EQ(round(1, Qt::ShiftModifier), Parts{"FileHeader"});
  tabTo("PeopleBar");
  EXPECT_EQ(round(1, Qt::ShiftModifier), Parts{"FileList"});
  tabTo("PeopleBar");
  EXPECT_EQ(round(1), Parts{"FileHeader"});
}

TEST_F(KeyboardParts, AreThoseThatAreThere) {
  open();
  store().prefs.showNotes.set(false);
  settle();
  EXPECT_EQ(round(4), (Parts{"FileList", "FileHeader", "CompareCanvas", "FileList"}));
  store().select({"t1", "t2"});
  settle();
  EXPECT_EQ(round(3), (Parts{"MultiView", "FileList", "MultiView"}));
  store().profile.set(store().board()->me.email);
  settle();
  EXPECT_EQ(round(3), (Parts{"FileList", "ProfileView", "FileList"}));
  store().profile.set(std::nullopt);
  store().selection.set({});
  settle();
  EXPECT_EQ(round(3), (Parts{"FileList", "FileList", "FileList"}));
}

TEST_F(KeyboardParts, CountTheCardOfANoteToTheCanvas) {
  for (const QSize size : {QSize{1'500, 940}, QSize{760, 540}}) {
    open(size);
    if (!store().notesOpen()) store().toggleNotes();
    settle();
    round(2);
    ASSERT_EQ(at(), "FileHeader");
    store().beginDraft(kDraft);
    ASSERT_TRUE(comesTo(kField));
    EXPECT_EQ(round(1), Parts{"Inspector"});
    key(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(name(), kField);
    EXPECT_EQ(round(1, Qt::ShiftModifier), Parts{"FileHeader"});
    key(Qt::Key_F6);
    EXPECT_EQ(name(), kField);
    store().dropDraft();
    settle();
    EXPECT_EQ(at(), "FileHeader") << "where it was before";
    EXPECT_EQ(round(1), Parts{"CompareCanvas"});
  }
}

TEST_F(KeyboardParts, LeadByTabFromTheCanvasToTheCardAndOn) {
  open();
  store().beginDraft(kDraft);
  ASSERT_TRUE(comesTo(kField));
  const auto way = [this](Qt::Key tab, Qt::KeyboardModifiers modifiers) {
    QStringList parts;
    for (int i = 0; i < 30 && parts.size() < 2; ++i) {
      key(tab, modifiers);
      if (const QString part = at(); !part.isEmpty() && !parts.contains(part)) parts.append(part);
    }
    return parts;
  };
  EXPECT_EQ(way(Qt::Key_Tab, Qt::NoModifier), (Parts{"DraftCard", "Inspector"}));
  EXPECT_EQ(way(Qt::Key_Backtab, Qt::ShiftModifier), (Parts{"DraftCard", "CompareCanvas"}));
}

TEST_F(KeyboardParts, BeginWithTheColumnWhereItHasNoTickets) {
  open();
  BoardState none = *store().board();
  none.files.clear();
  store().board.set(none);
  settle();
  EXPECT_EQ(round(2), (Parts{"Sidebar", "Sidebar"}));
  EXPECT_EQ(name(), "Up to date") << "what comes first in it";
  QStringList names;
  for (int i = 0; i < 4; ++i) {
    key(Qt::Key_Tab);
    names.append(name());
  }
  EXPECT_EQ(names.last(), "Sync");
  store().profile.set(store().board()->me.email);
  settle();
  EXPECT_EQ(round(2), (Parts{"Sidebar", "ProfileView"}));
}

TEST_F(KeyboardParts, AreAllThereInANarrowWindow) {
  open({760, 540});
  EXPECT_EQ(round(4), (Parts{"FileList", "FileHeader", "CompareCanvas", "FileList"}));
  store().toggleNotes();
  settle();
  EXPECT_EQ(round(4), (Parts{"FileHeader", "CompareCanvas", "Inspector", "FileList"}));
}

TEST_F(KeyboardParts, AreNoneOnTheSignInScreen) {
  open();
  store().signOut(true);
  settle();
  const QQuickItem* before = window()->activeFocusItem();
  round(3);
  key(Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(window()->activeFocusItem(), before);
}

TEST_F(KeyboardParts, StayWhereTheyAreBehindAFloat) {
  open();
  round(1);
  ASSERT_EQ(at(), "FileList");
  const auto stays = [this](const char* float_) {
    ASSERT_TRUE(QTest::qWaitFor([this] {
      settle();
      return at() != "FileList";
    })) << float_;
    QTest::qWait(200);
    settle();
    const QQuickItem* before = window()->activeFocusItem();
    key(Qt::Key_F6);
    key(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(window()->activeFocusItem(), before) << float_;
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_NE(at(), "FileList") << float_;
    key(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] {
      settle();
      return at() == "FileList";
    })) << float_;
  };
  store().setShowActivity(true);
  stays("a popover");
  ASSERT_TRUE(press("Upload revision"));
  stays("a sheet");
  ASSERT_TRUE(press("Account"));
  stays("a menu");
}

TEST_F(KeyboardParts, AreNotGoneThroughBehindWhatCoversTheWindow) {
  open();
  round(1);
  updater().latest.set(VersionInfo{
      .version = "9.9", .build = 99, .url = "https://pages.tessarine.example/", .min_build = 99});
  settle();
  round(2);
  EXPECT_EQ(at(), "");
}

TEST_F(KeyboardParts, LetTheListBeGoneThroughFromAnywhere) {
  open();
  round(3);
  ASSERT_EQ(at(), "CompareCanvas");
  key(Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(at(), "FileList");
  EXPECT_EQ(name(), "Harbour Bread") << "from the ticket on show";
  EXPECT_EQ(store().selection(), std::set<std::string>{"t1"}) << "going there opens nothing";
  key(Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(name(), "The Lighthouse");
  key(Qt::Key_Down, Qt::AltModifier);
  key(Qt::Key_Space, Qt::ControlModifier);
  EXPECT_EQ(store().selection(), (std::set<std::string>{"t1", "t2"}));
  key(Qt::Key_Return);
  EXPECT_EQ(store().selection(), std::set<std::string>{"t2"});
  EXPECT_EQ(name(), "Harbour Bread");
}

TEST_F(KeyboardParts, GoOnWithTheTicketThatFollows) {
  open();
  round(1);
  key(Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(store().selection(), std::set<std::string>{"t2"});
  EXPECT_TRUE(comesTo("Harbour Bread"));
  EXPECT_EQ(at(), "FileList");
}

}  // namespace
}  // namespace vellix
