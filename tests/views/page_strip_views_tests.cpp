// The strip of small pages, worked by pointer and by key.
#include <QSignalSpy>
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class PageStripViews : public ViewTest {
 protected:
  void open(Int pages, QSize size = {1'500, 940}) {
    serveTheDay();
    FileDetail detail = lighthouse();
    detail.file.pages = pagesOf(pages);
    for (auto& page : *detail.file.pages) {
      page.px = {300, 400};
      page.thumb = "small-" + std::to_string(page.i);
    }
    Note note;
    note.id = "n1";
    note.page = 0;
    detail.comments = {note};
    detail.findings[1].state = "issue";
    store().details.set({{"t1", detail}});
    showMain(size);
    rest();
  }
  void rest() {
    for (int i = 0; i < 3; ++i) {
      QTest::qWait(20);
      settle();
    }
  }
  QQuickItem* strip() { return seen(window()->contentItem(), "PageStrip").value(0); }
  QList<QQuickItem*> cells() { return strip() ? seen(strip(), "PageCell") : QList<QQuickItem*>{}; }
  QQuickItem* cell(const QString& name) {
    for (QQuickItem* each : cells()) {
      if (each->property("name") == name) return each;
    }
    return nullptr;
  }
  // Whether the whole cell lies within the strip, to the pixel.
  bool inSight(const QString& name) {
    const QQuickItem* item = cell(name);
    const QRectF room = strip()->mapRectToScene(strip()->boundingRect()).adjusted(0, -1, 0, 1);
    return item && room.contains(item->mapRectToScene(item->boundingRect()));
  }
  QString keyed() {
    const QQuickItem* item = window()->activeFocusItem();
    return item && isOfType(item, "PageCell") ? item->property("name").toString() : QString{};
  }
  void key(Qt::Key key) {
    QTest::keyClick(window(), key);
    settle();
  }
  bool ringed() {
    const QQuickItem* item = window()->activeFocusItem();
    return item && item->property("visualFocus").toBool();
  }
  void tabTo(const QString& name) {
    for (int i = 0; i < 60 && keyed() != name; ++i) key(Qt::Key_Tab);
    ASSERT_EQ(keyed(), name);
  }
  QQuickItem* list() { return seen(strip(), "QQuickListView").value(0); }
  // Until neither the strip nor what it shows moves any more.
  void stand() {
    ASSERT_TRUE(QTest::qWaitFor([this] {
      const auto place = [this] {
        return std::pair{strip()->height(), list()->property("contentY").toReal()};
      };
      const auto before = place();
      QTest::qWait(50);
      settle();
      return place() == before;
    }));
  }
  // The header grows by some lines, at once, and the banner comes, gliding.
  void pressFromAbove() {
    const qreal before = strip()->height();
    BoardState board = *store().board();
    board.files[0].summary = QString{"Words that differ. "}.repeated(40).toStdString();
    store().board.set(board);
    settle();
    const qreal grown = strip()->height();
    ASSERT_LT(grown, before - 10) << "the header";
    store().problem.set("The service can't be reached.");
    ASSERT_TRUE(QTest::qWaitFor([&] {
      settle();
      return strip()->height() < grown - 10;
    })) << "the banner";
    stand();
  }
  // From the top of the first page.
  double scrolled() {
    return list()->property("contentY").toDouble() - list()->property("originY").toDouble();
  }
  Int openPage() { return store().page().at("t1"); }
};

TEST_F(PageStripViews, TellEachPageAndWhatWaitsOnIt) {
  open(3);
  auto* first = reader().find("1", QAccessible::ListItem);
  ASSERT_TRUE(first);
  EXPECT_EQ(first->text(QAccessible::Description), "1 to look at, 1 real issue, 1 note");
  EXPECT_TRUE(first->state().selected);
  EXPECT_TRUE(reader().find("Pages", QAccessible::List));
  EXPECT_FALSE(reader().find("2", QAccessible::ListItem)->state().selected);
}

TEST_F(PageStripViews, MeasureTheirPages) {
  open(3);
  ASSERT_TRUE(strip());
  EXPECT_EQ(strip()->width(), 92);
  const auto pictures = seen(cell("1"), "RemoteImage");
  ASSERT_EQ(pictures.size(), 1);
  EXPECT_EQ(pictures[0]->width(), 58);
  EXPECT_NEAR(pictures[0]->height(), 58 / 0.75, 0.01);
}

TEST_F(PageStripViews, SelectThePageThatIsPressed) {
  open(3);
  store().focus.set("f1");
  ASSERT_TRUE(press("3", QAccessible::ListItem));
  EXPECT_EQ(openPage(), 2);
  EXPECT_FALSE(store().focus());
  EXPECT_TRUE(reader().find("3", QAccessible::ListItem)->state().selected);
}

TEST_F(PageStripViews, AreOneTabStopWithArrowsInside) {
  open(40);
  store().page.set({{"t1", 1}});
  rest();
  for (int i = 0; i < 60 && keyed().isEmpty(); ++i) key(Qt::Key_Tab);
  EXPECT_EQ(keyed(), "2") << "it begins at the page on show";
  EXPECT_TRUE(window()->activeFocusItem()->property("visualFocus").toBool());
  key(Qt::Key_Down);
  EXPECT_EQ(keyed(), "3");
  EXPECT_TRUE(window()->activeFocusItem()->property("visualFocus").toBool());
  key(Qt::Key_Up);
  key(Qt::Key_Up);
  key(Qt::Key_Up);
  EXPECT_EQ(keyed(), "1") << "and ends at its ends";
  key(Qt::Key_End);
  EXPECT_EQ(keyed(), "40");
  EXPECT_TRUE(QTest::qWaitFor([this] { return inSight("40"); }));
  key(Qt::Key_Down);
  EXPECT_EQ(keyed(), "40");
  EXPECT_EQ(openPage(), 1) << "going there opens nothing";
  key(Qt::Key_Return);
  EXPECT_EQ(openPage(), 39);
  key(Qt::Key_Home);
  EXPECT_EQ(keyed(), "1");
  QTest::keyClick(window(), Qt::Key_Tab);
  settle();
  EXPECT_EQ(keyed(), "");
  QTest::keyClick(window(), Qt::Key_Backtab, Qt::ShiftModifier);
  settle();
  EXPECT_EQ(keyed(), "40") << "back to the page on show";
  QTest::keyClick(window(), Qt::Key_Backtab, Qt::ShiftModifier);
  settle();
  EXPECT_EQ(keyed(), "") << "and on, without a stop at another page";
}

TEST_F(PageStripViews, BringThePageOnShowInSight) {
  open(40);
  EXPECT_TRUE(inSight("1"));
  store().page.set({{"t1", 30}});
  settle();
  EXPECT_TRUE(QTest::qWaitFor([this] { return inSight("31"); }));
  ASSERT_TRUE(press("Next page"));
  EXPECT_TRUE(QTest::qWaitFor([this] { return inSight("32") && inSight("33"); }));
}

TEST_F(PageStripViews, LookLikeWhatTheyAre) {
  open(3);
  FileDetail detail = store().details().at("t1");
  (*detail.file.pages)[1].label = "41-1711";
  (*detail.file.pages)[2].label = "A name much longer than 11";
  detail.findings.resize(2);
  store().details.set({{"t1", detail}});
  rest();
  const auto figures = [this](const QString& name) { return seen(cell(name), "Digits").value(0); };
  ASSERT_TRUE(figures("1") && figures("41-1711"));
  EXPECT_EQ(colourOf(figures("1")), theme()->accent());
  EXPECT_EQ(colourOf(figures("41-1711")), theme()->muted());
  // Of equal width, and cut off where they do not fit.
  const auto digits = seen(figures("41-1711"), "Words");
  ASSERT_EQ(digits.size(), 7);
  for (const int i : {1, 3, 4}) EXPECT_EQ(digits[i]->width(), digits[0]->width());
  const QQuickItem* words =
      seenText(cell("A name much longer than 11"), "A name much longer than 11");
  ASSERT_TRUE(words);
  EXPECT_TRUE(words->property("truncated").toBool());
  EXPECT_EQ(colourOf(words), theme()->muted());
  // One badge for each count, none for nothing.
  const auto badges = seen(cell("1"), "CountBadge");
  ASSERT_EQ(badges.size(), 3);
  for (QQuickItem* badge : badges) EXPECT_EQ(badge->property("text").toString(), "1");
  EXPECT_EQ(seen(badges[2], "Symbol").value(0)->property("name").toString(), "text.bubble.fill");
  EXPECT_TRUE(seen(cell("41-1711"), "CountBadge").isEmpty());
  EXPECT_EQ(made(cell("1"), "CountBadge"), 3);
  EXPECT_EQ(made(cell("41-1711"), "CountBadge"), 0);
  store().page.set({{"t1", 1}});
  rest();
  EXPECT_EQ(colourOf(figures("1")), theme()->muted());
  EXPECT_EQ(colourOf(figures("41-1711")), theme()->accent());
}

TEST_F(PageStripViews, StayWhereTheyWereScrolledTo) {
  open(40);
  list()->setProperty("contentY", 1'500);
  rest();
  pressFromAbove();
  EXPECT_EQ(list()->property("contentY"), 1'500);
}

TEST_F(PageStripViews, KeepThePageOnShowInSightWhereItWas) {
  open(40);
  store().page.set({{"t1", 12}});
  settle();
  ASSERT_TRUE(QTest::qWaitFor([this] { return inSight("13") && inSight("14"); }));
  stand();
  pressFromAbove();
  EXPECT_TRUE(inSight("13"));
}

TEST_F(PageStripViews, ComeToThePageOnShowWhateverGrowsOnTheWay) {
  open(40);
  store().page.set({{"t1", 7}});
  settle();
  pressFromAbove();
  EXPECT_TRUE(inSight("8") && inSight("9"));
}

TEST_F(PageStripViews, GoStraightToAPageThatIsMade) {
  open(40);
  stand();
  Int last = 0;
  while (inSight(QString::number(last + 2))) ++last;
  ASSERT_GT(last, 1);
  ASSERT_TRUE(cell(QString::number(last + 2))) << "the next one, out of sight";
  const QSignalSpy moved{list(), SIGNAL(contentYChanged())};
  store().page.set({{"t1", last}});
  desk.time.run();
  EXPECT_EQ(list()->property("currentIndex").toInt(), last);
  EXPECT_EQ(moved.count(), 0) << "there and back lets go of pages and makes others";
  EXPECT_TRUE(QTest::qWaitFor([&] { return inSight(QString::number(last + 2)); }));
  EXPECT_TRUE(inSight(QString::number(last + 1)));
}

TEST_F(PageStripViews, KeepTheKeyboardAndThePointerWhileThingsChange) {
  open(40);
  tabTo("1");
  key(Qt::Key_Down);
  const QQuickItem* visited = window()->activeFocusItem();
  QQuickItem* pointed = cell("3");
  QTest::mouseMove(window(), pointed->mapToScene({20, 20}).toPoint());
  ASSERT_TRUE(QTest::qWaitFor([&] { return pointed->property("hovered").toBool(); }));
  FileDetail detail = store().details().at("t1");
  detail.file.rev = 2;
  detail.findings[0].page = 2;
  detail.comments.clear();
  store().details.set({{"t1", detail}});
  BoardState board = *store().board();
  board.files[0].rev = 2;
  board.files[0].summary = "Two words differ.";
  store().board.set(board);
  rest();
  EXPECT_EQ(cell("3")->property("waiting").toString(), "2");
  EXPECT_EQ(window()->activeFocusItem(), visited);
  EXPECT_TRUE(ringed());
  EXPECT_TRUE(pointed->property("hovered").toBool());
}

TEST_F(PageStripViews, TakeTheRingAlongWhenThePageIsStepped) {
  open(40);
  tabTo("1");
  QTest::keyClick(window(), Qt::Key_Down, Qt::ControlModifier);
  rest();
  EXPECT_EQ(openPage(), 1);
  EXPECT_EQ(keyed(), "2");
  EXPECT_TRUE(ringed());
  store().page.set({{"t1", 39}});
  rest();
  EXPECT_EQ(keyed(), "40");
  EXPECT_TRUE(ringed());
  key(Qt::Key_Up);
  QTest::keyClick(window(), Qt::Key_Down, Qt::ControlModifier);
  settle();
  EXPECT_EQ(keyed(), "39") << "there is no next page, and arrows are meant without other keys";
  QTest::keyClick(window(), Qt::Key_Up, Qt::ShiftModifier);
  QTest::keyClick(window(), Qt::Key_Home, Qt::AltModifier);
  settle();
  EXPECT_EQ(keyed(), "39");
}

TEST_F(PageStripViews, GoByScreenfuls) {
  open(40);
  tabTo("1");
  key(Qt::Key_PageDown);
  rest();
  const int first = keyed().toInt();
  EXPECT_GT(first, 3);
  EXPECT_LT(first, 12);
  key(Qt::Key_PageDown);
  const int second = keyed().toInt();
  EXPECT_GT(second, first + 3);
  key(Qt::Key_PageUp);
  EXPECT_NEAR(keyed().toInt(), first, 1);
  for (int i = 0; i < 12; ++i) key(Qt::Key_PageDown);
  EXPECT_EQ(keyed(), "40");
  for (int i = 0; i < 12; ++i) key(Qt::Key_PageUp);
  EXPECT_EQ(keyed(), "1");
}

TEST_F(PageStripViews, RememberThePageWhileAnotherWindowIsInFront) {
  open(40);
  tabTo("1");
  key(Qt::Key_Down);
  key(Qt::Key_Down);
  ASSERT_EQ(keyed(), "3");
  QQuickWindow other;
  other.show();
  other.requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  settle();
  EXPECT_EQ(list()->property("currentIndex"), 2);
  window()->requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  settle();
  EXPECT_EQ(keyed(), "3");
  key(Qt::Key_Down);
  EXPECT_EQ(keyed(), "4");
}

TEST_F(PageStripViews, ShowPicturesWhereverTheyAreBrought) {
  open(100);
  tabTo("1");
  const auto ready = [](QQuickItem* each) {
    return seen(each, "RemoteImage").value(0)->property("ready").toBool();
  };
  pictures.asked.clear();
  key(Qt::Key_End);
  EXPECT_TRUE(pictures.asked.contains("small-99")) << "at once";
  EXPECT_FALSE(list()->property("rushing").toBool());
  rest();
  EXPECT_TRUE(ready(cell("100")));
  // By hand, past the half of what is in sight.
  QQuickItem* stays = cell("98");
  list()->setProperty("contentY", list()->property("contentY").toReal() - list()->height() * 0.6);
  EXPECT_TRUE(list()->property("rushing").toBool());
  settle();
  EXPECT_EQ(cell("98"), stays);
  EXPECT_TRUE(ready(stays));
}

TEST_F(PageStripViews, OpenAtThePageOnShow) {
  store().page.set({{"t1", 25}});
  open(40);
  EXPECT_TRUE(QTest::qWaitFor([this] { return inSight("26"); }));
}

TEST_F(PageStripViews, MakeOnlyWhatIsNearOfAThousandPages) {
  open(1'000);
  EXPECT_LT(cells().size(), 20);
  const auto small = [this] { return pictures.asked.filter("small-").size(); };
  EXPECT_LT(small(), 20);
  pictures.asked.clear();
  store().page.set({{"t1", 900}});
  settle();
  EXPECT_TRUE(QTest::qWaitFor([this] {
    settle();
    return pictures.asked.contains("small-900");
  }));
  EXPECT_TRUE(inSight("901"));
  EXPECT_LT(cells().size(), 20);
  EXPECT_LT(small(), 25) << "none of those between are asked for";
}

TEST_F(PageStripViews, BearPagesOfAnyShape) {
  open(3);
  FileDetail detail = store().details().at("t1");
  (*detail.file.pages)[0].px = {20'000, 1'000};
  (*detail.file.pages)[1].px = {1, 9'000};
  (*detail.file.pages)[2].px = {std::nan(""), 1'000};
  (*detail.file.pages)[1].label = "A name much longer than the strip is wide";
  store().details.set({{"t1", detail}});
  rest();
  EXPECT_NEAR(seen(cell("1"), "RemoteImage").value(0)->height(), 2.9, 0.01);
  for (QQuickItem* each : cells()) {
    EXPECT_GE(each->height(), 20);
    EXPECT_LE(each->width(), 92);
  }
  ASSERT_TRUE(press("A name much longer than the strip is wide", QAccessible::ListItem));
  EXPECT_EQ(openPage(), 1);
}

TEST_F(PageStripViews, GoWhereTheWindowIsNarrowOrTheyAreUnwanted) {
  open(3);
  ASSERT_TRUE(strip());
  resize({1'100, 700});
  EXPECT_TRUE(QTest::qWaitFor([this] { return !strip(); }));
  resize({1'500, 940});
  EXPECT_TRUE(QTest::qWaitFor([this] { return strip() != nullptr; }));
  store().prefs.showPageStrip.set(false);
  settle();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !strip(); }));
}

TEST_F(PageStripViews, AreNotThereForOnePage) {
  open(1);
  EXPECT_FALSE(strip());
}

// What lies where in a cell, in its own places.
class PageCells : public PageStripViews {
 protected:
  void open(Int waiting, Int issues, Int notes, const std::string& name = "2") {
    PageStripViews::open(4);
    FileDetail detail = store().details().at("t1");
    const auto add = [&](const char* state, Int count) {
      for (Int i = 0; i < count; ++i) {
        Finding finding = findingOf("x" + std::to_string(detail.findings.size()), 1, "high");
        finding.state = state;
        detail.findings.push_back(finding);
      }
    };
    add("open", waiting);
    add("issue", issues);
    for (Int i = 0; i < notes; ++i) {
      Note note;
      note.id = "y" + std::to_string(i);
      note.page = 1;
      detail.comments.push_back(note);
    }
    (*detail.file.pages)[1].label = name;
    store().details.set({{"t1", detail}});
    rest();
    cell_ = cell(QString::fromStdString(name));
    ASSERT_TRUE(cell_);
  }
  QRectF placeOf(const QQuickItem* item) {
    return item->mapRectToItem(cell_, item->boundingRect());
  }
  QRectF paper() { return placeOf(seen(cell_, "RemoteImage").value(0)); }
  QRectF name() {
    const auto digits = seen(cell_, "Digits");
    for (const QQuickItem* each : digits) {
      if (each->property("text") == cell_->property("name")) return placeOf(each);
    }
    const QQuickItem* words = seenText(cell_, cell_->property("name").toString());
    return words ? placeOf(words) : QRectF{};
  }
  QQuickItem* marked() { return cell_; }

 private:
  QQuickItem* cell_ = nullptr;
};

struct CellMarks {
  const char* name;
  Int waiting;
  Int issues;
  Int notes;
  std::string page = "2";
};
BOOST_DESCRIBE_STRUCT(CellMarks, (), (name, waiting, issues, notes, page))

class CellsWithMarks : public PageCells, public testing::WithParamInterface<CellMarks> {};

TEST_P(CellsWithMarks, AreAsHighAsThoseWithout) {
  const CellMarks& marks = GetParam();
  open(marks.waiting, marks.issues, marks.notes, marks.page);
  const double expected = 6 + 58 / 0.75 + 4 + 16 + 4;
  for (const QQuickItem* each : cells()) EXPECT_NEAR(each->height(), expected, 0.01);
  EXPECT_EQ(paper().topLeft(), QPointF(11, 6));
  EXPECT_EQ(name().left(), 11) << "in line with the page";
  EXPECT_GT(name().width(), 6);
  const double row = paper().bottom() + 4;
  EXPECT_GE(name().top(), row - 0.01);
  EXPECT_LE(name().bottom(), row + 16.01);
  double right = name().right();
  const auto badges = seen(marked(), "CountBadge");
  ASSERT_EQ(badges.size(), (marks.waiting > 0) + (marks.issues > 0) + (marks.notes > 0));
  for (const QQuickItem* badge : badges) {
    const QRectF place = placeOf(badge);
    const QQuickItem* digits = seen(badge, "Digits").value(0);
    EXPECT_GE(badge->width(), digits->width() + 3) << "nothing is cut off";
    EXPECT_LE(place.right(), 77);
    if (badge->property("icon") != "") {
      EXPECT_EQ(place.topRight(), paper().topRight() + QPointF(4, -3)) << "the page's corner";
      continue;
    }
    EXPECT_NEAR(place.center().y(), row + 8, 0.51);
    EXPECT_GE(place.left(), right + 2) << "beside what comes before";
    right = place.right();
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, CellsWithMarks,
    testing::Values(CellMarks{"None", 0, 0, 0}, CellMarks{"OneKind", 1, 0, 0},
                    CellMarks{"AllKinds", 2, 1, 3}, CellMarks{"OfTwoDigits", 24, 13, 99, "11"},
                    CellMarks{"OfThreeDigits", 240, 130, 999, "88"},
                    CellMarks{"Beyond", 1'000, 1'000, 1'000, "88"},
                    CellMarks{"WithALongName", 2, 1, 3, "A name much longer than the strip"},
                    CellMarks{"WithALongNameAlone", 0, 0, 0, "A name much longer than the strip"},
                    CellMarks{"WithALongNumber", 24, 13, 1, "123456789012"}),
    [](const auto& each) { return each.param.name; });

TEST_F(PageCells, CutALongNameShort) {
  open(240, 130, 0, "A name much longer than the strip");
  const QQuickItem* words = seenText(marked(), "A name much longer than the strip");
  ASSERT_TRUE(words);
  EXPECT_TRUE(words->property("truncated").toBool());
}

TEST_F(PageCells, LayTheirNotesOnAGroundOverThePage) {
  open(0, 0, 12);
  QQuickItem* badge = seen(marked(), "CountBadge").value(0);
  ASSERT_TRUE(badge);
  const auto grounds = seen(marked(), "QQuickRectangle");
  const auto ground = std::find_if(grounds.begin(), grounds.end(), [&](const QQuickItem* each) {
    return each != badge && placeOf(each).contains(placeOf(badge)) && each->height() < 20;
  });
  ASSERT_TRUE(ground != grounds.end());
  EXPECT_EQ(colourOf(*ground), theme()->raised());
  EXPECT_EQ(colourOf(*ground).alpha(), 255);
}

TEST_F(PageStripViews, KeepTheirMarginAtTheTop) {
  open(40);
  EXPECT_NEAR(scrolled(), -8, 0.01);
  for (const Int page : {1, 0}) {
    list()->setProperty("contentY", list()->property("originY"));
    ASSERT_TRUE(press(QString::number(page + 1), QAccessible::ListItem));
    stand();
    EXPECT_NEAR(scrolled(), -8, 0.01) << "it is brought back";
  }
  ASSERT_TRUE(press("Harbour Bread", QAccessible::ListItem));
  rest();
  ASSERT_TRUE(press("The Lighthouse", QAccessible::ListItem));
  stand();
  ASSERT_TRUE(strip());
  EXPECT_NEAR(scrolled(), -8, 0.01) << "chosen again";
  store().page.set({{"t1", 20}});
  stand();
  store().page.set({{"t1", 0}});
  stand();
  EXPECT_NEAR(scrolled(), -8, 0.01) << "come back to";
  pressFromAbove();
  EXPECT_NEAR(scrolled(), -8, 0.01) << "in less room";
}

TEST_F(PageStripViews, GoWithTheirTicketsInAHurry) {
  open(40);
  FileDetail other = lighthouse();
  other.file.id = "t2";
  other.file.pages = pagesOf(30);
  auto details = store().details();
  details.insert({"t2", other});
  details["t2"] = other;
  store().details.set(details);
  for (int i = 0; i < 20; ++i) {
    store().select({i % 2 == 0 ? "t2" : "t1"});
    desk.time.run();
    QCoreApplication::processEvents();
    if (i % 3 == 0) settle();
  }
  stand();
  EXPECT_NEAR(scrolled(), -8, 0.01);
}

TEST_F(PageStripViews, KeepTheirMarginAtTheEnd) {
  open(40);
  for (const Int page : {39, 38}) {
    store().page.set({{"t1", page}});
    stand();
    const QQuickItem* last = cell("40");
    ASSERT_TRUE(last);
    EXPECT_NEAR(last->mapToItem(list(), {0, last->height()}).y(), list()->height() - 8, 0.01)
        << page;
  }
}

}  // namespace
}  // namespace vellix
