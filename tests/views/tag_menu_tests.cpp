// The menu of the people to tag where they are more, or have longer names, than there is room for.
#include <QWheelEvent>

#include "views/notes_test.hpp"

namespace vellix {
namespace {

class TagMenus : public NotesViewTest {
 protected:
  void open(int people, const std::string& last = "Zoe") {
    serveTheDay();
    store().board.edit([&](std::optional<BoardState>& board) {
      for (int i = 0; i < people; ++i) {
        const std::string name = i + 1 == people ? last : "Person" + std::to_string(i);
        board->users.push_back({.email = std::to_string(i) + "@b.c", .name = name});
      }
    });
    show("Notes/NotesSection", {{"notes", models()["notes"]}, {"pictures", models()["pictures"]}},
         {500, 400});
    calm();
    focus(field(kField));
    focus(item("Tag people"));
    key(Qt::Key_Space);
    ASSERT_TRUE(comes([this] { return keyedName() == "Jorvas"; }));
    ASSERT_TRUE(comes([this] { return menu()->height() > 0; }));
  }
  QQuickItem* menu() {
    return qobject_cast<QQuickItem*>(reader().find("Tag people", QAccessible::PopupMenu)->object());
  }
  QQuickItem* area() { return seen(menu(), "ScrollArea").value(0); }
  double at() { return area()->property("contentY").toDouble(); }
  static QRectF placeOf(const QQuickItem* item) {
    return item->mapRectToScene(item->boundingRect());
  }
  // The entry with the keyboard is wholly in sight, and its ring where it has one.
  void expectAt(const QString& name) {
    EXPECT_EQ(keyedName(), name);
    const double ring = keyed()->property("visualFocus").toBool() ? 3 : 0;
    EXPECT_TRUE(placeOf(area()).contains(placeOf(keyed()).adjusted(-ring, -ring, ring, ring)))
        << name.toStdString();
  }
  void pointAt(QPointF place) {
    QTest::mouseMove(window(), place.toPoint());
    settle();
  }
};

TEST_F(TagMenus, StayInTheWindowAndFollowTheKeyboard) {
  open(60);
  EXPECT_TRUE(QRectF(8, 8, 484, 384).contains(placeOf(menu())));
  expectAt("Jorvas");
  for (int i = 0; i < 30; ++i) {
    key(Qt::Key_Down);
    expectAt(QString{"Person%1"}.arg(i));
  }
  EXPECT_GT(at(), 0);
  key(Qt::Key_Up);
  expectAt("Person28");
  key(Qt::Key_End);
  expectAt("Zoe");
  key(Qt::Key_Down);
  expectAt("Zoe");
  key(Qt::Key_Home);
  expectAt("Jorvas");
  EXPECT_EQ(at(), 0);
}

TEST_F(TagMenus, GoByScreenfuls) {
  open(60);
  key(Qt::Key_PageDown);
  const double entry = keyed()->height();
  const int first = keyedName().mid(6).toInt() + 1;
  EXPECT_GT(first, 5);
  EXPECT_LE((first + 1) * entry, area()->height());
  expectAt(keyedName());
  for (const Qt::Key towards : {Qt::Key_PageDown, Qt::Key_PageUp}) {
    for (int i = 0; i < 8; ++i) {
      key(towards);
      expectAt(keyedName());
    }
    EXPECT_EQ(keyedName(), towards == Qt::Key_PageDown ? "Zoe" : "Jorvas");
  }
}

TEST_F(TagMenus, ScrollUnderThePointerOnlyWhereAnEntryIsCutOff) {
  open(60);
  const QRectF room = placeOf(area());
  pointAt(room.center());
  EXPECT_EQ(at(), 0);
  // At the very edge the entry comes out whole, and the pointer stays on it.
  pointAt({room.center().x(), room.bottom() - 7});
  const QString last = keyedName();
  ASSERT_NE(last, "Jorvas");
  EXPECT_LT(at(), keyed()->height());
  const double scrolled = at();
  for (int i = 0; i < 5; ++i) pointAt({room.center().x() + i, room.bottom() - 7});
  expectAt(last);
  EXPECT_EQ(at(), scrolled);
  QWheelEvent wheel{
      room.center(), window()->mapToGlobal(room.center()), {}, {0, -240}, {}, {}, Qt::NoScrollPhase,
      false};
  QCoreApplication::sendEvent(window(), &wheel);
  EXPECT_TRUE(comes([&] { return at() > scrolled + 20; }));
}

TEST_F(TagMenus, GoByKeyPastAPointerThatRests) {
  open(60);
  const QPointF middle = placeOf(area()).center();
  for (const int step : {0, 1, 2}) pointAt({middle.x() + step, middle.y()});
  ASSERT_NE(keyedName(), "Jorvas") << "it moved there";
  key(Qt::Key_Home);
  for (int i = 0; i < 30; ++i) {
    key(Qt::Key_Down);
    QTest::qWait(5);
    expectAt(QString{"Person%1"}.arg(i));
  }
  pointAt({middle.x(), middle.y() + 1});
  EXPECT_NE(keyedName(), "Person29");
  EXPECT_TRUE(placeOf(keyed()).contains(middle));
}

TEST_F(TagMenus, KeepTheirPlaceWhenSomebodyIsTaggedAndPollsComeIn) {
  open(60);
  key(Qt::Key_End);
  const double scrolled = at();
  store().board.edit([](std::optional<BoardState>& board) { board->rev = 9; });
  settle();
  expectAt("Zoe");
  EXPECT_EQ(at(), scrolled);
}

TEST_F(TagMenus, BoundThemselvesByASmallerWindow) {
  open(60);
  key(Qt::Key_End);
  resize({300, 200});
  EXPECT_TRUE(comes([this] { return QRectF(8, 8, 284, 184).contains(placeOf(menu())); }));
  key(Qt::Key_Up);
  expectAt("Person58");
}

TEST_F(TagMenus, AreAsWideAsTheirWidestEntry) {
  open(2);
  EXPECT_EQ(menu()->width(), 184);
  EXPECT_LT(menu()->height(), 100);
  EXPECT_FALSE(area()->property("overflows").toBool());
}

TEST_F(TagMenus, GrowWithALongNameUpToABound) {
  const std::string name = "Bartholomew-Maximilian-Theodore";
  open(2, name);
  EXPECT_GT(menu()->width(), 184);
  EXPECT_LT(menu()->width(), 360);
  const QQuickItem* words = seenText(menu(), QString::fromStdString(name));
  ASSERT_TRUE(words);
  EXPECT_FALSE(words->property("truncated").toBool());
}

TEST_F(TagMenus, CutOffWhatIsLongerAndTellItWhole) {
  const QString name = QString{"Bartholomew-"}.repeated(12);
  open(2, name.toStdString());
  EXPECT_EQ(menu()->width(), 360);
  key(Qt::Key_End);
  ASSERT_EQ(keyedName(), name);
  const QQuickItem* words = seenText(keyed(), name);
  ASSERT_TRUE(words);
  EXPECT_TRUE(words->property("truncated").toBool());
  const auto help = [this] { return keyed()->property("help").toString(); };
  EXPECT_EQ(help(), "Tag " + name);
  key(Qt::Key_Space);
  EXPECT_EQ(help(), name + " · Tagged") << "whoever points at it reads the name as well";
  EXPECT_TRUE(placeOf(keyed()).contains(placeOf(words)));
  EXPECT_TRUE(placeOf(keyed()).contains(placeOf(seen(keyed(), "Symbol").constFirst())));
}

}  // namespace
}  // namespace vellix
