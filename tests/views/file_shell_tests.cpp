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
    for (const auto* each : desk.http.matching("POST api/jobs")) {
      all.push_back(each->line() + " " + each->request.body.value_or(""));
    }
    return all;
  }
  bool says(const QString& text) { return reader().find(text, QAccessible::StaticText); }
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
  EXPECT_TRUE(says("Supplier"));
  EXPECT_TRUE(says("Harrow Print"));
  EXPECT_TRUE(reader().find("Email", QAccessible::Link));
  EXPECT_FALSE(reader().find("Harrow Print file", QAccessible::Link));
}

TEST_F(FileShell, PutsTheActionsBesideTheTitleWhereThereIsRoom) {
  serveTheDay();
  showMain({1'500, 940});
  EXPECT_LT(std::abs(make().center().y() - title().center().y()), 20);
  EXPECT_GT(make().right(), window()->mapToGlobal(QPoint{1'500 - 30, 0}).x());
  resize({760, 540});
  EXPECT_LT(std::abs(make().center().y() - title().center().y()), 20) << "it still fits";
  change([](BoardState& board) {
    board.files[0].title = "The Lighthouse";
    board.files[0].component = "and the Long Way Down to the Harbour Text";
  });
  const QRectF heading =
      placeOf("The Lighthouse and the Long Way Down to the Harbour Text", QAccessible::Heading);
  EXPECT_GT(make().top(), heading.bottom());
  EXPECT_EQ(make().left(), heading.left());
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
  EXPECT_TRUE(says("Report by Jorvas Lind · Nov 14"));
  EXPECT_TRUE(reader().find("Drive", QAccessible::Link));
  EXPECT_TRUE(reader().find("New report", QAccessible::Button));
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
  EXPECT_TRUE(reader().find("303 files", QAccessible::Heading));
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
  EXPECT_EQ(seen(window()->contentItem(), "CompareCanvas").size(), 0);
  EXPECT_EQ(seen(seen(window()->contentItem(), "FileView").value(0), "Spinner").size(), 1);
}

}  // namespace
}  // namespace vellix
