// A ticket whose detail is on its way: what will be there has its place already.
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class WaitingTickets : public ViewTest {
 protected:
  // The ticket that waits has as many pages as told, or does not tell; `bring` brings them.
  void wait(QSize size, std::optional<Int> pages) {
    pages_ = pages.value_or(3);
    serveTheDay();
    FileItem file = ticketOf("t9");
    file.title = "Not Yet Here";
    file.supplier = "Harrow Print";
    file.page_count = pages;
    BoardState board = *store().board();
    board.files.push_back(file);
    store().board.set(board);
    showMain(size);
    theme()->setReducedMotion(true);
    store().selection.set({"t9"});
    settle();
    ASSERT_FALSE(store().currentDetail());
  }
  void bring() {
    FileDetail detail = lighthouse();
    detail.file.id = "t9";
    detail.file.title = "Not Yet Here";
    detail.file.page_count = pages_;
    detail.file.pages = pagesOf(pages_);
    for (auto& page : *detail.file.pages) {
      page.img = "waited-" + std::to_string(page.i);
      page.label = called_;
      if (page.i == 0 && onlyLatest_) page.refs = {{"latest", RefPage{}}};
    }
    store().details.edit([&](auto& all) { all["t9"] = detail; });
    settle();
  }
  QQuickItem* the(const QByteArray& type) { return seen(window()->contentItem(), type).value(0); }
  QRectF place(const QByteArray& type) {
    const QQuickItem* item = the(type);
    return item ? item->mapRectToScene(item->boundingRect()) : QRectF{};
  }
  QList<QRectF> places() {
    QList<QRectF> all;
    for (const char* type :
         {"FileHeader", "CompareCanvas", "CanvasBar", "TicketPanel", "Segmented"}) {
      all.append(place(type));
    }
    for (const char* name : {"Previous page", "Next page", "100%"}) {
      auto* button = reader().find(name, QAccessible::Button);
      all.append(button ? QRectF{button->rect()} : QRectF{});
    }
    for (const QQuickItem* each : seen(the("CanvasBar"), "PressArea")) {
      all.append(each->mapRectToScene(each->boundingRect()));
    }
    return all;
  }

 private:
  Int pages_ = 0;

 protected:
  std::optional<std::string> called_;  // each page
  bool onlyLatest_ = false;            // the first page is compared with nothing else
};

TEST_F(WaitingTickets, HoldThePlacesOfWhatComes) {
  wait({1'500, 940}, 3);
  const auto before = places();
  for (const QRectF& each : before) EXPECT_FALSE(each.isEmpty());
  EXPECT_EQ(place("CanvasBar").left(), place("FileView").left() + 92);
  EXPECT_EQ(place("TicketPanel").width(), 330);
  EXPECT_EQ(place("CanvasBar").right(), place("TicketPanel").left());
  EXPECT_FALSE(the("PageStrip")) << "nor the pages of the ticket before";
  EXPECT_FALSE(the("Inspector"));
  bring();
  EXPECT_EQ(places(), before);
  EXPECT_EQ(place("PageStrip").right(), place("CanvasBar").left());
  EXPECT_EQ(seen(the("PageStrip"), "PageCell").size(), 3);
  EXPECT_TRUE(the("Inspector"));
}

TEST_F(WaitingTickets, HoldThemInASmallWindow) {
  wait({760, 540}, 3);
  EXPECT_EQ(place("CanvasBar").left(), place("FileView").left());
  EXPECT_FALSE(the("TicketPanel"));
  const auto before = places();
  bring();
  EXPECT_EQ(places(), before);
}

TEST_F(WaitingTickets, HoldNoPlaceForAStripOfOnePage) {
  wait({1'500, 940}, 1);
  EXPECT_EQ(place("CanvasBar").left(), place("FileView").left());
  const auto before = places();
  bring();
  EXPECT_EQ(places(), before);
}

TEST_F(WaitingTickets, HaveAStripAtOnceThatNothingTold) {
  wait({1'500, 940}, std::nullopt);
  EXPECT_EQ(place("CanvasBar").left(), place("FileView").left());
  theme()->setReducedMotion(false);
  QTest::qWait(100);
  std::vector<double> widths;
  QQuickItem* canvas = the("CompareCanvas");
  QObject::connect(canvas, &QQuickItem::widthChanged, canvas,
                   [&] { widths.push_back(canvas->width()); });
  const double before = canvas->width();
  bring();
  QTest::qWait(400);
  EXPECT_EQ(widths, std::vector<double>{before - 92}) << "nothing moves under the eye";
  EXPECT_EQ(place("CanvasBar").left(), place("FileView").left() + 92);
}

struct Arrival {
  QSize size;
  Int pages;
  std::string called;
};
void PrintTo(const Arrival& each, std::ostream* out) {
  *out << each.size.width() << " wide, " << each.pages << " pages called " << each.called;
}

class ArrivingTickets : public WaitingTickets, public testing::WithParamInterface<Arrival> {};

TEST_P(ArrivingTickets, MoveNothingWithTheNamesAndReferencesOfTheirPages) {
  called_ = GetParam().called;
  onlyLatest_ = true;
  wait(GetParam().size, GetParam().pages);
  for (const CompareMode mode : {CompareMode::side, CompareMode::overlay}) {
    store().details.edit([](auto& all) { all.erase("t9"); });
    store().setMode(mode);
    settle();
    ASSERT_FALSE(store().currentDetail());
    EXPECT_TRUE(reader().find("FBC", QAccessible::CheckBox));
    const auto before = places();
    bring();
    EXPECT_EQ(places(), before);
    EXPECT_TRUE(reader().find("Last print", QAccessible::CheckBox));
  }
}

INSTANTIATE_TEST_SUITE_P(All, ArrivingTickets,
                         testing::Values(Arrival{{760, 540}, 12, "xviii"},
                                         Arrival{{1'500, 940}, 3, "xviii"},
                                         Arrival{{1'500, 940}, 12, "12–13"},
                                         Arrival{{1'500, 940}, 240, "Inside front cover"},
                                         Arrival{{1'900, 1'000}, 12, "Inside front cover"}));

TEST_F(WaitingTickets, HaveABarThatDoesNothingYet) {
  wait({1'500, 940}, 3);
  for (const char* name : {"Next page", "100%"}) {
    ASSERT_TRUE(reader().find(name, QAccessible::Button)) << name;
    EXPECT_EQ(reader().enabled(name), 0) << name;
  }
  const auto place = [&] { return reader().find("p1 · 1 of 3", QAccessible::StaticText); };
  EXPECT_FALSE(place()) << "which page it opens at is not known yet";
  QTest::keyClick(window(), Qt::Key_Down, Qt::ControlModifier);
  settle();
  EXPECT_FALSE(store().page().contains("t9"));
  bring();
  EXPECT_EQ(reader().enabled("Next page"), 1);
  EXPECT_EQ(reader().enabled("100%"), 1);
  EXPECT_TRUE(place());
}

TEST_F(WaitingTickets, SayThatTheyWaitWhereThePageWillBe) {
  wait({1'500, 940}, 3);
  EXPECT_TRUE(seen(the("FileView"), "Spinner").isEmpty()) << "most have come before";
  ASSERT_TRUE(QTest::qWaitFor([this] { return !seen(the("FileView"), "Spinner").isEmpty(); }));
  const QRectF spinner = place("LateSpinner");
  QRectF room = place("CompareCanvas");
  room.setBottom(place("CanvasBar").top());
  EXPECT_NEAR(spinner.center().x(), room.center().x(), 1);
  EXPECT_NEAR(spinner.center().y(), room.center().y(), 1);
  EXPECT_EQ(spinner.size(), QSizeF(18, 18));
  bring();
  EXPECT_TRUE(seen(the("FileView"), "Spinner").isEmpty());
}

TEST_F(WaitingTickets, DrawNoLineWhereNothingEnds) {
  wait({1'500, 940}, 1);
  store().prefs.showNotes.set(false);
  settle();
  EXPECT_FALSE(the("TicketPanel"));
  for (const QQuickItem* line : seen(the("FileView"), "Hairline")) {
    EXPECT_FALSE(line->property("vertical").toBool());
  }
}

}  // namespace
}  // namespace vellix
