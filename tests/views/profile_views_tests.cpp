// A person's page, looked at and worked as a reviewer would.
#include "views/profile_views_test.hpp"

namespace vellix {
namespace {

class ProfileViews : public ProfileViewTest {
 protected:
  void showPage(QSize size = {1'200, 900}) {
    const auto all = models();
    show("Profile/ProfileView", {{"profile", all["profile"]}, {"pictures", all["pictures"]}}, size);
    window()->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    theme()->setReducedMotion(true);
    settle();
  }
  QQuickItem* scroll() { return seen(window()->contentItem(), "ScrollArea").value(0); }
  QQuickItem* list(const QString& label) {
    for (QQuickItem* each : seen(window()->contentItem(), "ValueList")) {
      if (each->property("label").toString() == label) return each;
    }
    return nullptr;
  }
  QStringList rowsOf(const QString& label) {
    return reader().told(reader().find(label, QAccessible::List)).mid(1);
  }
  void serveRich() { serveStats({{kRenny, richStats()}}); }
};

TEST_F(ProfileViews, TellAllOfItInOrder) {
  serveRich();
  open(kRenny);
  showPage({1'200, 2'400});
  qreal above = -1;
  for (const QString words :
       {"Tickets", "Renny Vale", "Tickets reviewed", "Reviews per week", "Issues caught, by kind",
        "Open now", "Tagged in", "Milestones 7 of 13"}) {
    QQuickItem* label = seenText(window()->contentItem(), words);
    ASSERT_TRUE(label) << words.toStdString();
    const qreal y = label->mapToScene({0, 0}).y();
    EXPECT_GT(y, above) << words.toStdString();
    above = y;
  }
  EXPECT_TRUE(says("On time: 89%"));
  EXPECT_TRUE(says("Reviewed within 48 hours of coming in, or the same day when urgent."));
  EXPECT_EQ(rowsOf("Figures").value(2),
            "Typical review: 2.5 days, From the file coming in to reviewed");
  EXPECT_EQ(rowsOf("Reviews per week").size(), 8);
  EXPECT_EQ(rowsOf("Reviews per week").value(3), "Nov 24: 3 reviewed");
  EXPECT_EQ(rowsOf("Issues caught, by kind").size(), 3);
  EXPECT_EQ(rowsOf("Milestones 7 of 13").size(), 13);
  EXPECT_EQ(rowsOf("Milestones 7 of 13").value(0), "First review, Earned");
}

TEST_F(ProfileViews, DrawNoBarInWhatIsEarned) {
  serveRich();
  open(kRenny);
  showPage({1'200, 2'400});
  const auto cells = seen(window()->contentItem(), "MilestoneCell");
  ASSERT_EQ(cells.size(), 13);
  for (QQuickItem* cell : cells) {
    EXPECT_EQ(seen(cell, "ProgressBar").size(), cell->property("earned").toBool() ? 0 : 1);
  }
}

TEST_F(ProfileViews, DrawTheRingOfTheRate) {
  serveRich();
  open(kRenny);
  showPage({1'200, 2'400});
  const auto rings = seen(seen(window()->contentItem(), "OnTimeRing").value(0), "Ring");
  ASSERT_EQ(rings.size(), 2);
  for (QQuickItem* ring : rings) EXPECT_EQ(ring->size(), QSizeF(150, 150));
  EXPECT_DOUBLE_EQ(rings[1]->property("sweep").toReal(), 0.89);
}

TEST_F(ProfileViews, StandInOneColumnWhereItIsNarrow) {
  serveRich();
  open(kRenny);
  showPage({1'200, 2'400});
  const auto placeOf = [this](const QString& words) {
    return seenText(window()->contentItem(), words)->mapToScene({0, 0});
  };
  const auto ring = [this] { return seen(window()->contentItem(), "OnTimeRing").value(0); };
  EXPECT_EQ(placeOf("Tickets reviewed").y(), placeOf("Notes written").y()) << "six beside another";
  EXPECT_GT(ring()->mapToScene({0, 0}).x(), 600);
  resize({520, 2'400});
  EXPECT_LT(placeOf("Tickets reviewed").y(), placeOf("Notes written").y());
  EXPECT_LT(ring()->mapToScene({0, 0}).x(), 100);
  EXPECT_GT(ring()->mapToScene({0, 0}).y(), placeOf("Reviews per week").y() + 150);
  EXPECT_EQ(ring()->property("width").toReal(),
            seen(window()->contentItem(), "WeeklyChart").value(0)->width());
  resize({2'400, 1'200});
  EXPECT_LE(seen(window()->contentItem(), "Tiles").value(0)->width(), 1'040)
      << "lines stay readable";
}

TEST_F(ProfileViews, AddUpAndThenTellWithoutLosingTheirPlace) {
  open(kRenny);
  showPage({600, 120});
  EXPECT_TRUE(says("Adding it up…"));
  EXPECT_FALSE(seenText(window()->contentItem(), "Open now"));
  const qreal head = seenText(window()->contentItem(), "Renny Vale")->mapToScene({0, 0}).y();
  ASSERT_TRUE(scroll()->property("overflows").toBool());
  scroll()->setProperty("contentY", 20);
  serveRich();
  poll();
  settle();
  EXPECT_FALSE(says("Adding it up…"));
  EXPECT_TRUE(reader().find("Figures", QAccessible::List));
  EXPECT_EQ(scroll()->property("contentY").toReal(), 20);
  EXPECT_EQ(seenText(window()->contentItem(), "Renny Vale")->mapToScene({0, 0}).y(), head - 20);
}

TEST_F(ProfileViews, KeepEveryPartThroughAPoll) {
  serveRich();
  open(kRenny);
  showPage({700, 500});
  const auto parts = [this] {
    QList<QQuickItem*> all;
    for (const char* type :
         {"FigureTile", "WeekBar", "IssueBar", "OpenRow", "MentionRow", "MilestoneCell"}) {
      all += seen(window()->contentItem(), type);
    }
    return all;
  };
  const QList<QQuickItem*> before = parts();
  ASSERT_EQ(before.size(), 6 + 8 + 3 + 2 + 2 + 13);
  scroll()->setProperty("contentY", 300);
  PersonStats more = richStats();
  more.reviewed = 100;
  more.weekly[0].count = 90;
  more.mentions.insert(more.mentions.begin(), {.file_id = "t1", .text = "New", .by = kJorvas});
  serveStats({{kRenny, more}});
  poll();
  settle();
  const QList<QQuickItem*> after = parts();
  for (QQuickItem* part : before) EXPECT_TRUE(after.contains(part));
  EXPECT_EQ(after.size(), before.size() + 1);
  EXPECT_EQ(scroll()->property("contentY").toReal(), 300);
}

TEST_F(ProfileViews, CaptionTheWeekThatIsPointedAt) {
  serveRich();
  open(kRenny);
  showPage();
  const auto caption = [this](const QString& text) {
    return seenText(window()->contentItem(), text) != nullptr;
  };
  const QString words = "3 reviewed · week of Nov 24";
  EXPECT_FALSE(caption(words));
  const auto bars = inOrder("WeekBar");
  ASSERT_EQ(bars.size(), 8);
  QTest::mouseMove(window(), bars[3]->mapToScene({bars[3]->width() / 2, 4}).toPoint());
  EXPECT_TRUE(QTest::qWaitFor([&] { return caption(words); })) << "however low its bar is";
  QTest::mouseMove(window(), {5, 5});
  EXPECT_TRUE(QTest::qWaitFor([&] { return !caption(words); }));
}

TEST_F(ProfileViews, CaptionTheWeekThatHasTheKeyboard) {
  serveRich();
  open(kRenny);
  showPage();
  const auto spoken = [this] { return window()->activeFocusItem()->property("spoken").toString(); };
  for (int i = 0; i < 20 && !spoken().contains("reviewed"); ++i) key(Qt::Key_Tab);
  ASSERT_EQ(spoken(), "Nov 3: 0 reviewed");
  EXPECT_TRUE(ringed());
  EXPECT_TRUE(seenText(window()->contentItem(), "0 reviewed · week of Nov 3"));
  key(Qt::Key_Right);
  EXPECT_EQ(spoken(), "Nov 10: 1 reviewed");
  EXPECT_TRUE(seenText(window()->contentItem(), "1 reviewed · week of Nov 10"));
  key(Qt::Key_End);
  key(Qt::Key_Right);
  EXPECT_EQ(spoken(), "Dec 22: 7 reviewed");
  key(Qt::Key_Left);
  EXPECT_EQ(spoken(), "Dec 15: 6 reviewed");
  key(Qt::Key_Tab);
  EXPECT_FALSE(spoken().contains("reviewed")) << "one stop in Tab's way";
  key(Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_EQ(spoken(), "Dec 15: 6 reviewed");
}

TEST_F(ProfileViews, KeepALineForAWeekOfNone) {
  serveRich();
  open(kRenny);
  showPage();
  const auto bars = inOrder("WeekBar");
  const auto heightAt = [&](int index) {
    const QImage shot = window()->grabWindow();
    const QPointF middle = bars[index]->mapToScene({bars[index]->width() / 2, 0});
    const qreal scale = shot.devicePixelRatio();
    const int x = qRound(middle.x() * scale);
    const QRgb ground = shot.pixel(qRound((bars[index]->mapToScene({0, 0}).x() + 1) * scale),
                                   qRound(middle.y() * scale));
    int height = 0;
    for (int y = 0; y < qRound(bars[index]->height() * scale); ++y) {
      height += shot.pixel(x, qRound(middle.y() * scale) + y) != ground;
    }
    return height / scale;
  };
  EXPECT_EQ(heightAt(0), 2);
  EXPECT_EQ(heightAt(7), bars[7]->height());
}

TEST_F(ProfileViews, GoToAnOpenTicket) {
  serveRich();
  open(kRenny);
  showPage();
  ASSERT_TRUE(list("Open now"));
  tabTo(
      list("Open now")->property("currentItem").value<QQuickItem*>()->property("label").toString());
  key(Qt::Key_Down);
  EXPECT_TRUE(keyed().startsWith("Harbour Bread"));
  EXPECT_TRUE(ringed());
  key(Qt::Key_Return);
  EXPECT_EQ(store().selection(), std::set<std::string>{"t2"});
  EXPECT_FALSE(store().profile());
}

TEST_F(ProfileViews, GoToTheTicketOfANote) {
  serveRich();
  open(kRenny);
  showPage({1'000, 2'400});
  const auto rows = inOrder("MentionRow");
  ASSERT_EQ(rows.size(), 2);
  click(rows[1]);
  EXPECT_TRUE(store().profile()) << "its ticket has gone";
  EXPECT_TRUE(reader().find(rows[1]->property("spoken").toString(), QAccessible::ListItem));
  click(rows[0]);
  EXPECT_EQ(store().selection(), std::set<std::string>{"t2"});
  EXPECT_FALSE(store().profile());
}

TEST_F(ProfileViews, SayWhereThereIsNothing) {
  serveStats({{kJorvas, PersonStats{}}});
  open(kJorvas);
  showPage();
  for (const QString words : {"Nothing open", "All caught up.", "None marked as a real issue yet.",
                              "Milestones 0 of 13"}) {
    EXPECT_TRUE(seenText(window()->contentItem(), words)) << words.toStdString();
  }
  EXPECT_FALSE(seenText(window()->contentItem(), "Tagged in"));
  EXPECT_TRUE(says("On time: not known yet"));
}

TEST_F(ProfileViews, OfferAPhotoOnOnesOwnPageAlone) {
  open(kJorvas);
  showPage();
  EXPECT_FALSE(reader().find("Change my photo", QAccessible::Button));
  open(kRenny);
  QSignalSpy wanted{seen(window()->contentItem(), "ProfileHead").value(0), SIGNAL(photoWanted())};
  ASSERT_TRUE(press("Change my photo"));
  EXPECT_EQ(wanted.count(), 1);
  store().busy.set({"photo"});
  settle();
  EXPECT_EQ(reader().enabled("Change my photo"), 0);
}

TEST_F(ProfileViews, HoldThousandsOfRows) {
  PersonStats many = richStats();
  for (int i = 0; i < 3'000; ++i) {
    many.mentions.push_back({.file_id = "t1", .text = "Note " + std::to_string(i), .by = kJorvas});
    many.by_kind["kind" + std::to_string(i)] = i;
    many.weekly.push_back({.start = 1e12 + i, .count = i});
  }
  serveStats({{kRenny, many}});
  open(kRenny);
  showPage();
  for (const char* type : {"MentionRow", "IssueBar", "WeekBar"}) {
    EXPECT_LT(seen(window()->contentItem(), type).size(), 200) << type;
  }
  EXPECT_LT(scroll()->property("contentHeight").toReal(), 4'000);
  const auto spoken = [this] { return window()->activeFocusItem()->property("spoken").toString(); };
  list("Tagged in")->forceActiveFocus(Qt::TabFocusReason);
  settle();
  key(Qt::Key_End);
  EXPECT_TRUE(spoken().contains("Note 2999"));
}

TEST_F(ProfileViews, StandWordsWithoutEnd) {
  PersonStats large = richStats();
  large.reviewed = std::numeric_limits<Int>::max();
  large.on_time_rate = std::numeric_limits<Int>::max();
  large.by_kind = {{std::string(5'000, 'x'), std::numeric_limits<Int>::max()}};
  large.mentions = {{.file_id = "t1", .text = std::string(50'000, 'w'), .by = kJorvas},
                    {.file_id = "t2", .text = "שלום עולם, مرحبا", .by = std::string(300, 'b')}};
  change([](BoardState& board) {
    board.users[0].name = std::string(400, 'n');
    board.files[0].title = std::string(400, 't');
  });
  serveStats({{kRenny, large}});
  open(kRenny);
  for (const QSize size : {QSize{440, 2'400}, QSize{1'216, 2'400}}) {
    showPage(size);
    const qreal right = seen(window()->contentItem(), "Tiles").value(0)->mapToScene({0, 0}).x() +
                        seen(window()->contentItem(), "Tiles").value(0)->width();
    for (QQuickItem* label : seen(window()->contentItem(), "Label")) {
      EXPECT_LE(label->mapToScene({label->width(), 0}).x(), right + 9)
          << label->property("text").toString().left(40).toStdString();
    }
  }
}

}  // namespace
}  // namespace vellix
