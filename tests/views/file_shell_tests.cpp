// The header of a ticket, the report on it, and several tickets at once.
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class FileShell : public ViewTest {
 protected:
  void change(const std::function<void(BoardState&)>& how) {
    BoardState board = *store().board();
    how(board);
    store().board.set(board);
    if (window()) settle();
  }
  void showJob(std::string status, std::vector<std::string> ids = {"t1"}) {
    change([&](BoardState& board) {
      Job job = jobOf(std::move(status));
      job.started = wireOf(desk.time.now());
      job.args = JobArgs{.file_ids = std::move(ids)};
      board.jobs = {job};
    });
  }
  std::vector<std::string> posted() {
    std::vector<std::string> all;
    for (const auto* each : desk.http.matching("POST ")) {
      all.push_back(each->line() + " " + each->request.body.value_or(""));
    }
    return all;
  }
  bool says(const QString& text) { return reader().find(text, QAccessible::StaticText); }
  QString keyed() {
    const QQuickItem* item = window()->activeFocusItem();
    return item ? item->property("label").toString() : QString{};
  }
  bool ringed() {
    const QQuickItem* item = window()->activeFocusItem();
    return item && item->property("visualFocus").toBool();
  }
  void tabTo(const QString& name) {
    for (int i = 0; i < 60 && keyed() != name; ++i) {
      QTest::keyClick(window(), Qt::Key_Tab);
      settle();
    }
    ASSERT_EQ(keyed(), name);
  }
  QRectF placeOf(const QString& name, QAccessible::Role role) {
    auto* found = reader().find(name, role);
    return found ? QRectF{found->rect()} : QRectF{};
  }
  QRectF make() { return placeOf("Make report", QAccessible::Button); }
  QRectF title() { return placeOf("The Lighthouse", QAccessible::Heading); }
};

using Lines = std::vector<std::string>;

TEST_F(FileShell, TellsFactsAndOffersLinks) {
  serveTheDay();
  change([](BoardState& board) {
    board.files[0].links = Links{.gmail = "https://mail.example", .drive = "not a link"};
  });
  showMain({1'500, 940});
  EXPECT_TRUE(says("Supplier: Harrow Print"));
  EXPECT_FALSE(says("Supplier")) << "once";
  EXPECT_TRUE(reader().find("Email", QAccessible::Link));
  EXPECT_FALSE(reader().find("Harrow Print file", QAccessible::Link));
}

TEST_F(FileShell, KeepsTheLinkThatHasTheKeyboard) {
  serveTheDay();
  change([](BoardState& board) { board.files[0].links = Links{.gmail = "https://mail.example"}; });
  showMain({1'500, 940});
  tabTo("Email");
  QQuickItem* email = window()->activeFocusItem();
  QTest::mouseMove(window(), email->mapToScene({20, 10}).toPoint());
  const auto hovered = [&] { return email->property("hovered").toBool(); };
  ASSERT_TRUE(QTest::qWaitFor(hovered));
  FileDetail detail = lighthouse(2);
  detail.origin = Origin{.links = Links{.gmail = "https://mail.example/2", .indd = "https://a.b"}};
  store().details.set({{"t1", detail}});
  settle();
  ASSERT_TRUE(QTest::qWaitFor([this] {
    settle();
    return reader().find("InDesign", QAccessible::Link) != nullptr;
  }));
  EXPECT_EQ(window()->activeFocusItem(), email);
  EXPECT_TRUE(ringed());
  EXPECT_TRUE(QTest::qWaitFor(hovered));
  EXPECT_EQ(email->property("url").toUrl(), QUrl{"https://mail.example/2"});
}

TEST_F(FileShell, ShortensALongSupplier) {
  serveTheDay();
  const std::string name(200, 'm');
  change([&](BoardState& board) {
    board.files[0].supplier = name;
    board.files[0].links = Links{.drive = "https://drive.example"};
  });
  for (const QSize size : kSizes) {
    if (!window()) showMain(size);
    resize(size);
    auto* link = reader().find(QString::fromStdString(name + " file"), QAccessible::Link);
    ASSERT_TRUE(link);
    EXPECT_LE(link->rect().width(), 240);
    QQuickItem* words = seenText(seen(window()->contentItem(), "LinkPill").value(0),
                                 QString::fromStdString(name + " file"));
    ASSERT_TRUE(words);
    EXPECT_TRUE(words->property("truncated").toBool());
    EXPECT_EQ(seen(words, "ToolTipArea").value(0)->property("text").toString(),
              QString::fromStdString(name + " file"));
  }
}

TEST_F(FileShell, GoesToTheActionsBeforeTheLinks) {
  serveTheDay();
  change([](BoardState& board) { board.files[0].links = Links{.gmail = "https://mail.example"}; });
  showMain({1'500, 940});
  tabTo("Make report");
  QTest::keyClick(window(), Qt::Key_Tab);
  EXPECT_EQ(keyed(), "Email");
}

TEST_F(FileShell, PutsTheActionsBesideTheTitleWhereThereIsRoom) {
  serveTheDay();
  showMain({1'500, 940});
  EXPECT_LT(std::abs(make().center().y() - title().center().y()), 20);
  EXPECT_GT(make().right(), window()->mapToGlobal(QPoint{1'500 - 30, 0}).x());
  resize({1'100, 700});
  EXPECT_LT(std::abs(make().center().y() - title().center().y()), 20) << "it still fits";
  resize({760, 540});
  change([](BoardState& board) {
    board.files[0].title = "The Lighthouse";
    board.files[0].component = "and the Long Way Down to the Harbour Text";
  });
  const QRectF heading =
      placeOf("The Lighthouse and the Long Way Down to the Harbour Text", QAccessible::Heading);
  const QRectF mark = placeOf("Mark reviewed", QAccessible::Button);
  EXPECT_GT(mark.top(), heading.bottom());
  EXPECT_GT(mark.left(), heading.left()) << "behind when it is due, and who reviews it";
  EXPECT_LT(std::abs(make().center().y() - mark.center().y()), 1);
  EXPECT_GT(make().left(), mark.right());
}

TEST_F(FileShell, MarksTheTicketReviewedAndGoesOn) {
  serveTheDay();
  showMain({1'500, 940});
  tabTo("Mark reviewed");
  QTest::keyClick(window(), Qt::Key_Return);
  settle();
  EXPECT_EQ(posted(), Lines{R"(POST api/files/t1/status {"status":"reviewed"})"});
  EXPECT_EQ(store().selection(), std::set<std::string>{"t2"});
  EXPECT_EQ(reader().enabled("Mark reviewed"), 0) << "until the board is in";
  const QString next = window()->activeFocusItem()->property("text").toString();
  EXPECT_EQ(next, "Harbour Bread") << "at the next ticket's title";
  QTest::keyClick(window(), Qt::Key_Return);
  QTest::keyClick(window(), Qt::Key_Space);
  settle();
  EXPECT_EQ(posted().size(), 1U) << "where no key does anything by mistake";
  QTest::keyClick(window(), Qt::Key_Tab);
  settle();
  EXPECT_EQ(keyed(), "Set due");
  EXPECT_TRUE(ringed());
}

TEST_F(FileShell, TakesAReviewUpAgain) {
  serveTheDay();
  change([](BoardState& board) { board.files[0].status = "reviewed"; });
  showMain({1'500, 940});
  EXPECT_FALSE(reader().find("Mark reviewed", QAccessible::Button));
  ASSERT_TRUE(press("Reopen"));
  EXPECT_EQ(posted(), Lines{R"(POST api/files/t1/status {"status":"in_review"})"});
}

TEST_F(FileShell, AsksForAReportOnceAtATime) {
  serveTheDay();
  showMain({1'500, 940});
  ASSERT_TRUE(press("Make report"));
  EXPECT_EQ(posted(), Lines{R"(POST api/jobs {"kind":"report","file_ids":["t1"]})"});
  EXPECT_EQ(reader().enabled("Make report"), 0);
  press("Make report");
  EXPECT_EQ(posted().size(), 1U);
}

TEST_F(FileShell, DoesTheSameByTheMenusKeys) {
  serveTheDay();
  showMain({1'500, 940});
  QTest::keyClick(window(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
  settle();
  EXPECT_EQ(posted(), Lines{R"(POST api/jobs {"kind":"report","file_ids":["t1"]})"});
  EXPECT_EQ(reader().enabled("Make report"), 0);
}

TEST_F(FileShell, CountsDownToAReportAndStopsIt) {
  serveTheDay();
  showMain({1'500, 940});
  showJob("running");
  EXPECT_TRUE(says("Ready in about 1 min"));
  EXPECT_FALSE(reader().find("Make report", QAccessible::Button));
  desk.time.advance(Milliseconds{45'000});
  EXPECT_TRUE(QTest::qWaitFor([this] {
    settle();
    return says("Ready in about 30 sec");
  })) << "within a second of its own";
  ASSERT_TRUE(press("Stop"));
  EXPECT_EQ(posted(), Lines{"POST api/jobs/j/stop {}"});
  EXPECT_EQ(reader().enabled("Stop"), 0);
  showJob("stopped");
  EXPECT_TRUE(reader().find("Make report", QAccessible::Button));
}

TEST_F(FileShell, TicksOnlyWhileThePillIsSeen) {
  serveTheDay();
  showMain({1'500, 940});
  EXPECT_TRUE(seen(window()->contentItem(), "ReportProgress").isEmpty());
  showJob("running");
  const auto pills = seen(window()->contentItem(), "ReportProgress");
  ASSERT_EQ(pills.size(), 1);
  EXPECT_TRUE(pills[0]->property("seen").toBool());
  window()->showMinimized();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !pills[0]->property("seen").toBool(); }));
  window()->showNormal();
  EXPECT_TRUE(QTest::qWaitFor([&] { return pills[0]->property("seen").toBool(); }));
}

TEST_F(FileShell, HandsTheKeyboardFromButtonToButton) {
  serveTheDay();
  showMain({1'500, 940});
  tabTo("Make report");
  QTest::keyClick(window(), Qt::Key_Return);
  settle();
  ASSERT_EQ(posted().size(), 1U);
  EXPECT_EQ(reader().enabled("Make report"), 0);
  store().busy.set({});
  settle();
  EXPECT_EQ(keyed(), "Make report") << "one that failed can be asked for again";
  EXPECT_TRUE(ringed());
  QTest::keyClick(window(), Qt::Key_Return);
  settle();
  showJob("queued");
  EXPECT_EQ(keyed(), "Stop");
  EXPECT_TRUE(ringed());
  QTest::keyClick(window(), Qt::Key_Return);
  settle();
  EXPECT_EQ(reader().enabled("Stop"), 0);
  store().busy.set({});
  settle();
  EXPECT_EQ(keyed(), "Stop") << "a stop that failed can be tried again";
  EXPECT_TRUE(ringed());
  showJob("stopped");
  EXPECT_EQ(keyed(), "Make report");
  EXPECT_TRUE(ringed());
}

TEST_F(FileShell, TakesTheKeyboardFromNobody) {
  serveTheDay();
  change([](BoardState& board) { board.files[0].links = Links{.gmail = "https://mail.example"}; });
  showMain({1'500, 940});
  tabTo("Make report");
  tabTo("Email");
  showJob("running");
  EXPECT_EQ(keyed(), "Email");
  showJob("done");
  EXPECT_EQ(keyed(), "Email");
}

TEST_F(FileShell, TellsTheTimeAsSoonAsItIsSeenAgain) {
  serveTheDay();
  showMain({1'500, 940});
  showJob("running");
  const auto pills = seen(window()->contentItem(), "ReportProgress");
  ASSERT_EQ(pills.size(), 1);
  const qreal wide = pills[0]->width();
  window()->showMinimized();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !pills[0]->property("seen").toBool(); }));
  desk.time.advance(Milliseconds{45'000});
  window()->showNormal();
  ASSERT_TRUE(QTest::qWaitFor([&] { return pills[0]->property("seen").toBool(); }));
  for (int i = 0; i < 5; ++i) settle();
  EXPECT_TRUE(says("Ready in about 30 sec"));
  const qreal wider = pills[0]->width();
  EXPECT_GE(wider, wide);
  desk.time.advance(Milliseconds{25'000});
  ASSERT_TRUE(QTest::qWaitFor([this] {
    settle();
    return !says("Ready in about 30 sec");
  }));
  EXPECT_LT(pills[0]->implicitWidth(), wider) << "fewer letters";
  EXPECT_EQ(pills[0]->width(), wider) << "and nothing moves";
}

TEST_F(FileShell, TellsWhatBecameOfReports) {
  serveTheDay();
  showMain({1'500, 940});
  showJob("failed");
  EXPECT_TRUE(says("The last report didn't finish."));
  change([](BoardState& board) {
    board.reports = {{.id = "r",
                      .file_ids = {"t1"},
                      .drive_link = "https://drive.example/r",
                      .by = "jorvas@tessarine.example",
                      .at = 1'700'000'000'000}};
  });
  EXPECT_TRUE(says("Report by Jorvas · Nov 14"));
  EXPECT_TRUE(reader().find("Drive", QAccessible::Link));
  EXPECT_TRUE(reader().find("New report", QAccessible::Button));
}

TEST_F(FileShell, OpensTheReportOfTheTicket) {
  serveTheDay();
  change([](BoardState& board) { board.reports = {{.id = "r", .file_ids = {"t1"}}}; });
  showMain({1'500, 940});
  tabTo("Open the report");
  QTest::keyClick(window(), Qt::Key_Return);
  settle();
  EXPECT_EQ(desk.http.matching("GET api/reports/r/pdf").size(), 1U);
  EXPECT_EQ(reader().enabled("Open the report"), 0) << "while it is on its way";
  EXPECT_EQ(keyed(), "Open the report") << "where the keyboard stays";
  const auto opener = [this] { return seen(window()->activeFocusItem(), "Spinner").size(); };
  EXPECT_EQ(opener(), 1);
  QTest::keyClick(window(), Qt::Key_Return);
  settle();
  EXPECT_EQ(desk.http.matching("GET api/reports/r/pdf").size(), 1U);
  store().busy.set({});
  settle();
  EXPECT_EQ(reader().enabled("Open the report"), 1);
  EXPECT_EQ(opener(), 0);
}

TEST_F(FileShell, OpensOneReportOnSeveralTickets) {
  serveTheDay();
  change([](BoardState& board) {
    board.reports = {{.id = "one", .file_ids = {"t1"}},
                     {.id = "both", .file_ids = {"t2", "t1"}, .at = 1'700'000'000'000}};
  });
  showMain({760, 540});
  store().selection.set({"t2", "t1"});
  settle();
  ASSERT_TRUE(press("Open the report from Nov 14"));
  EXPECT_EQ(desk.http.matching("GET api/reports/both/pdf").size(), 1U);
  EXPECT_EQ(reader().enabled("Open the report from Nov 14"), 0);
  store().selection.set({"t2", "t3"});
  settle();
  EXPECT_FALSE(reader().find("Open the report from Nov 14", QAccessible::Button));
}

TEST_F(FileShell, NamesSeveralTicketsAndMakesOneReport) {
  serveTheDay();
  showMain({1'500, 940});
  store().selection.set({"t2", "t1"});
  settle();
  EXPECT_TRUE(reader().find("2 files", QAccessible::Heading));
  EXPECT_TRUE(says("The Lighthouse · Harbour Bread"));
  ASSERT_TRUE(press("Make one report"));
  EXPECT_EQ(posted(), Lines{R"(POST api/jobs {"kind":"report","file_ids":["t1","t2"]})"});
  EXPECT_EQ(reader().enabled("Make one report"), 0);
  showJob("queued", {"t2", "t1"});
  EXPECT_TRUE(says("Ready in about 1 min"));
  EXPECT_TRUE(reader().find("Stop", QAccessible::Button));
}

TEST_F(FileShell, WrapsAndScrollsALongListOfTitles) {
  serveTheDay();
  change([this](BoardState& board) {
    for (int i = 0; i < 300; ++i) {
      board.files.push_back(ticketOf("x" + std::to_string(i)));
      board.files.back().title = "A title of some length";
    }
  });
  showMain({760, 540});
  std::set<std::string> all;
  for (const auto& file : store().board()->files) all.insert(file.id);
  store().selection.set(all);
  settle();
  const auto views = seen(window()->contentItem(), "MultiView");
  ASSERT_EQ(views.size(), 1);
  const auto flicks = seen(views[0], "QQuickFlickable");
  ASSERT_EQ(flicks.size(), 1);
  EXPECT_GT(flicks[0]->property("contentHeight").toDouble(), flicks[0]->height());
  EXPECT_TRUE(flicks[0]->activeFocusOnTab());
  flicks[0]->forceActiveFocus(Qt::TabFocusReason);
  settle();
  EXPECT_EQ(seen(flicks[0], "FocusRing").size(), 1);
  EXPECT_TRUE(reader().find("Selected files", QAccessible::Pane));
  const auto at = [&] { return flicks[0]->property("contentY").toDouble(); };
  const double end = flicks[0]->property("contentHeight").toDouble() - flicks[0]->height();
  QTest::keyClick(window(), Qt::Key_Down);
  EXPECT_EQ(at(), 40);
  QTest::keyClick(window(), Qt::Key_PageDown);
  EXPECT_NEAR(at(), std::min(end, 40 + 0.9 * flicks[0]->height()), 0.01);
  QTest::keyClick(window(), Qt::Key_Home);
  EXPECT_EQ(at(), 0);
  QTest::keyClick(window(), Qt::Key_Up);
  EXPECT_EQ(at(), 0);
  QTest::keyClick(window(), Qt::Key_Tab);
  EXPECT_EQ(keyed(), "Make one report");
  EXPECT_GT(at(), 0) << "it is below all the titles";
  EXPECT_LE(at(), end);
  EXPECT_TRUE(reader().find("303 files", QAccessible::Heading));
}

TEST_F(FileShell, ScrollsAHeaderThatIsTooHigh) {
  serveTheDay();
  change([](BoardState& board) {
    board.files[0].links = Links{.gmail = "https://mail.example"};
    for (int i = 0; i < 300; ++i) *board.files[0].summary += " One more word.";
  });
  showMain({760, 540});
  tabTo("Ticket");
  QQuickItem* area = window()->activeFocusItem();
  const auto at = [&] { return area->property("contentY").toDouble(); };
  QTest::keyClick(window(), Qt::Key_PageDown);
  EXPECT_GT(at(), 0);
  QTest::keyClick(window(), Qt::Key_Home);
  EXPECT_EQ(at(), 0);
  tabTo("Email");
  EXPECT_GT(at(), 0);
  resize({1'500, 3'000});
  EXPECT_FALSE(area->property("activeFocusOnTab").toBool());
  EXPECT_FALSE(reader().find("Ticket", QAccessible::Pane));
}

TEST_F(FileShell, KeepsTheHeaderStandingWhileTheDetailLoads) {
  serveTheDay();
  FileItem file = ticketOf("t9");
  file.title = "Not Yet Here";
  change([&](BoardState& board) { board.files.push_back(file); });
  showMain({1'500, 940});
  store().selection.set({"t9"});
  settle();
  EXPECT_TRUE(reader().find("Not Yet Here", QAccessible::Heading));
  EXPECT_TRUE(reader().find("Make report", QAccessible::Button));
}

}  // namespace
}  // namespace vellix
