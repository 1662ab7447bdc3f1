// How the column of tickets looks, to the measure.
#include <QFont>
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class ColumnLooks : public ViewTest {
 protected:
  void showColumn() {
    const auto all = models();
    show("Board/Sidebar",
         {{"board", all["board"]},
          {"activity", all["activity"]},
          {"log", all["log"]},
          {"pictures", all["pictures"]}},
         {284, 700});
  }
  void change(const std::function<void(BoardState&)>& how) {
    BoardState board = *store().board();
    how(board);
    store().board.set(board);
    settle();
  }
  QList<QQuickItem*> all(const char* type) { return seen(window()->contentItem(), type); }
  QQuickItem* text(const QString& text) { return seenText(window()->contentItem(), text); }
  // Size and weight of a text.
  void expectFace(const QString& words, double size, int weight) {
    const QQuickItem* label = text(words);
    ASSERT_TRUE(label) << words.toStdString();
    EXPECT_EQ(label->property("size").toDouble(), size) << words.toStdString();
    EXPECT_EQ(label->property("font").value<QFont>().weight(), weight) << words.toStdString();
  }
  QColor tone(const char* name) { return theme()->fore()->property(name).value<QColor>(); }
};

struct QueueColours {
  const char* name;
  bool late;
  bool otherLate;
};
BOOST_DESCRIBE_STRUCT(QueueColours, (), (name, late, otherLate))

class QueueBadges : public ColumnLooks, public testing::WithParamInterface<QueueColours> {};

TEST_P(QueueBadges, AreRedWhereATicketIsLate) {
  serveTheDay();
  showColumn();
  const double now = wireOf(desk.time.now());
  change([&](BoardState& board) {
    board.files.resize(2);
    board.files[0].due = now + (GetParam().late ? -1'000 : 60'000);
    board.files[1].due = now + (GetParam().otherLate ? -1'000 : 60'000);
    board.files[1].track = "reprint";
  });
  const auto queues = all("QueueSwitch");
  ASSERT_EQ(queues.size(), 1);
  const auto badges = seen(queues[0], "CountBadge");
  ASSERT_EQ(badges.size(), 2);
  const QColor red = tone("red");
  EXPECT_EQ(colourOf(badges[0], "colour"), GetParam().late ? red : theme()->text());
  EXPECT_EQ(colourOf(badges[1], "colour"), GetParam().otherLate ? red : theme()->muted());
  const auto outline = [](const QQuickItem* badge) {
    return badge->property("border").value<QObject*>()->property("width").toInt();
  };
  EXPECT_EQ(outline(badges[0]), GetParam().late ? 1 : 0) << "not by its colour alone";
  EXPECT_EQ(outline(badges[1]), GetParam().otherLate ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(All, QueueBadges,
                         testing::Values(QueueColours{"Neither", false, false},
                                         QueueColours{"TheSelected", true, false},
                                         QueueColours{"TheOther", false, true},
                                         QueueColours{"Both", true, true}),
                         [](const auto& each) { return each.param.name; });

// At each width that the column has.
TEST_F(ColumnLooks, OfQueuesWithMoreTicketsThanAnybodyReads) {
  serveTheDay();
  showColumn();
  for (const int others : {0, 98, 233, 1'233}) {
    change([&](BoardState& board) {
      board.files.resize(1);
      for (const char* track : {"new_title", "reprint"}) {
        for (int i = 0; i < others; ++i) {
          board.files.push_back(ticketAt(track + std::to_string(i), 1));
          board.files.back().status = "new";
          board.files.back().track = track;
        }
      }
    });
    for (const int width : {236, 260, 284}) {
      resize({width, 700});
      for (const QQuickItem* cell : seen(all("QueueSwitch").front(), "Pressable")) {
        const QRectF room{0, 0, cell->width(), cell->height()};
        for (const QQuickItem* word : seen(cell, "Label")) {
          const QRectF place = word->mapRectToItem(cell, word->boundingRect());
          EXPECT_TRUE(room.contains(place)) << word->property("text").toString().toStdString();
          EXPECT_FALSE(word->property("truncated").toBool()) << others << " at " << width;
        }
        for (const QQuickItem* badge : seen(cell, "CountBadge")) {
          const QRectF place = badge->mapRectToItem(cell, badge->boundingRect());
          EXPECT_TRUE(room.adjusted(2, 0, -2, 0).contains(place)) << others << " at " << width;
        }
      }
    }
  }
}

TEST_F(ColumnLooks, HaveRoomForTheHand) {
  serveTheDay();
  showColumn();
  change([](BoardState& board) { board.files[0].due = 0; });
  for (const bool working : {false, true}) {
    change([&](BoardState& board) {
      board.sync = jobOf(working ? "stuck" : "done", "sync");
      board.users.resize(2);
    });
    for (const int width : {236, 260, 284}) {
      resize({width, 700});
      const auto areas = all("Pressable");
      EXPECT_GE(areas.size(), 13) << width;
      for (const QQuickItem* area : areas) {
        const auto label = area->property("label").toString().toStdString();
        EXPECT_GE(area->height(), 24) << label;
        EXPECT_GE(area->width(), 24) << label;
      }
    }
  }
}

TEST_F(ColumnLooks, AreEquallyHighInARow) {
  serveTheDay();
  showColumn();
  const auto heights = [](const QList<QQuickItem*>& items) {
    std::set<std::pair<double, double>> places;
    for (const QQuickItem* item : items)
      places.emplace(item->mapToScene({0, 0}).y(), item->height());
    return places;
  };
  EXPECT_EQ(heights(seen(all("PeopleBar")[0], "Pressable")).size(), 1U);
  EXPECT_EQ(seen(all("PeopleBar")[0], "Pressable").size(), 5);
  EXPECT_EQ(heights({all("BigButton")[0], all("ClaudeLogButton")[0]}).size(), 1U);
  EXPECT_EQ(all("BigButton")[0]->height(), 36);
}

TEST_F(ColumnLooks, OfTheBrand) {
  serveTheDay();
  showColumn();
  const auto marks = all("SorelMark");
  ASSERT_EQ(marks.size(), 1);
  EXPECT_EQ(marks[0]->size(), QSizeF(20, 20));
  expectFace("Vellix", 21, QFont::Normal);
  EXPECT_EQ(text("Vellix")->property("font").value<QFont>().family(), theme()->serif());
  EXPECT_FALSE(marks[0]->property("working").toBool());
  for (const char* status : {"queued", "running", "stuck", "done"}) {
    change([&](BoardState& board) { board.sync = jobOf(status, "sync"); });
    EXPECT_EQ(marks[0]->property("working").toBool(), QString(status) == "running") << status;
  }
}

TEST_F(ColumnLooks, OfWhatStandsOverTheList) {
  serveTheDay();
  showColumn();
  change([&](BoardState& board) { board.files[0].due = 0; });
  expectFace("1 overdue", 11, QFont::DemiBold);
  EXPECT_EQ(colourOf(text("1 overdue")), tone("red"));
  expectFace("Only mine", 11.5, QFont::Normal);
  change([](BoardState& board) { board.files.clear(); });
  ASSERT_TRUE(text("Nothing to review."));
  EXPECT_EQ(text("Nothing to review.")->property("size").toDouble(), 14);
  expectFace("Press Sync to check supplier mail.", 12, QFont::Normal);
}

TEST_F(ColumnLooks, OfThePeople) {
  serveTheDay();
  showColumn();
  const auto people = all("PeopleBar");
  ASSERT_EQ(people.size(), 1);
  const auto avatars = seen(people[0], "Avatar");
  ASSERT_EQ(avatars.size(), 2);
  const auto dots = [&] {
    auto items = seen(people[0], "QQuickRectangle");
    items.removeIf([](const QQuickItem* item) { return item->size() != QSizeF(8, 8); });
    return items;
  };
  for (const auto* avatar : avatars) {
    EXPECT_EQ(avatar->size(), QSizeF(30, 30));
    EXPECT_FALSE(avatar->property("ring").toBool());
  }
  EXPECT_TRUE(dots().isEmpty());
  change([&](BoardState& board) { board.users[1].last_seen = wireOf(desk.time.now()); });
  ASSERT_EQ(dots().size(), 1);
  const QQuickItem* dot = dots()[0];
  const QQuickItem* ring = dot->parentItem();
  EXPECT_EQ(colourOf(dot), theme()->success());
  EXPECT_EQ(dot->property("radius").toDouble(), 4);
  EXPECT_EQ(colourOf(ring), theme()->column());
  EXPECT_EQ(ring->mapRectToItem(avatars[1], ring->boundingRect()), QRectF(20, 20, 12, 12));
  store().profile.set(store().board()->users[1].email);
  settle();
  EXPECT_FALSE(avatars[0]->property("ring").toBool());
  EXPECT_TRUE(avatars[1]->property("ring").toBool());
}

TEST_F(ColumnLooks, OfTheNarrowLiveDotWithoutASymbol) {
  serveTheDay();
  show("Board/LiveDot", {{"board", models()["board"]}, {"room", 10}}, {60, 40});
  EXPECT_EQ(all("Symbol").size(), 1);
  EXPECT_TRUE(all("DashedRing").isEmpty());
  const auto turnsAlone = [this](const QString& words) {
    settle();
    EXPECT_TRUE(reader().find(words, QAccessible::Button));
    EXPECT_FALSE(text(words));
    EXPECT_TRUE(all("Symbol").isEmpty());
    const auto rings = all("DashedRing");
    ASSERT_EQ(rings.size(), 1);
    EXPECT_TRUE(rings[0]->property("spinning").toBool());
  };
  store().refreshing.set(true);
  turnsAlone("Checking");
  store().refreshing.set(false);
  store().lastOK.set(std::nullopt);
  turnsAlone("Connecting");
}

TEST_F(ColumnLooks, OfASyncAtWork) {
  serveTheDay();
  show("Board/SyncCard", {{"board", models()["board"]}}, {260, 36});
  for (const char* status : {"queued", "running", "stuck"}) {
    change([&](BoardState& board) { board.sync = jobOf(status, "sync"); });
    const bool stuck = QString(status) == "stuck";
    const auto pills = all("Pillbox");
    ASSERT_EQ(pills.size(), 1) << status;
    EXPECT_EQ(pills[0]->property("small").toBool(), stuck) << status;
    EXPECT_EQ(pills[0]->property("spinning").toBool(), !stuck) << status;
    EXPECT_EQ(pills[0]->property("tone").toString(), stuck ? "red" : "blue") << status;
    EXPECT_EQ(all("DashedRing").size(), stuck ? 0 : 1) << status;
    EXPECT_EQ(all("Symbol").size(), stuck ? 1 : 0) << status;
    ASSERT_TRUE(text("Stop")) << status;
    EXPECT_EQ(text("Stop")->property("size").toDouble(), 12.5);
    EXPECT_EQ(colourOf(text("Stop")), theme()->strong()->property("red").value<QColor>());
  }
}

TEST_F(ColumnLooks, OfASyncOnItsWay) {
  serveTheDay();
  show("Board/SyncCard", {{"board", models()["board"]}}, {260, 36});
  EXPECT_TRUE(all("Spinner").isEmpty());
  ASSERT_TRUE(press("Sync"));
  EXPECT_EQ(desk.http.count("POST api/jobs"), 1U);
  EXPECT_EQ(all("Spinner").size(), 1);
  EXPECT_TRUE(all("Symbol").isEmpty());
}

}  // namespace
}  // namespace vellix
