// The worker's log over the column of tickets, by pointer and by key.
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

constexpr const char* kButton = "What Claude did on the Mac mini";
constexpr const char* kPanel = "Claude's log";
constexpr const char* kShowsLog = "Technical log (for Renny)";
constexpr const char* kHidesLog = "Hide the technical log";

class ClaudeLogViews : public ViewTest {
 protected:
  ClaudeLogViews() { serveTheDay(); }

  void change(const std::function<void(BoardState&)>& how) {
    BoardState board = *store().board();
    how(board);
    store().board.set(board);
    if (window()) settle();
  }
  static Job named(std::string id, std::string status, std::string kind = "report") {
    Job job = jobOf(std::move(status), std::move(kind));
    job.id = std::move(id);
    return job;
  }
  void open(QSize size = {1'500, 940}) {
    showMain(size);
    theme()->setReducedMotion(true);
    window()->requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
  }
  void openPanel() {
    ASSERT_TRUE(press(kButton));
    ASSERT_TRUE(comes());
  }
  bool shown() { return reader().find(kPanel, QAccessible::Dialog); }
  bool comes() {
    const bool there = QTest::qWaitFor([this] { return shown(); });
    settle();
    return there;
  }
  bool goes() {
    return QTest::qWaitFor([this] { return !shown(); });
  }
  void key(Qt::Key key) {
    QTest::keyClick(window(), key);
    settle();
  }
  QString keyed() {
    const QQuickItem* item = window()->activeFocusItem();
    return item ? item->property("label").toString() : QString{};
  }
  QList<QQuickItem*> all(const char* type) { return seen(window()->contentItem(), type); }
  bool says(const QString& text) { return reader().find(text, QAccessible::StaticText); }
  void answerTechnical(const std::string& log) {
    const auto asked = desk.http.matching("GET api/jobs/");
    ASSERT_FALSE(asked.empty());
    desk.http.answer(*asked.back(), answerOf(200, R"({"log":")" + log + "\"}"));
    settle();
  }
};

TEST_F(ClaudeLogViews, StandBesideTheSync) {
  open();
  const auto buttons = all("ClaudeLogButton");
  ASSERT_EQ(buttons.size(), 1);
  const QQuickItem* sync = all("SyncCard").value(0);
  EXPECT_EQ(buttons[0]->height(), 36);
  EXPECT_EQ(buttons[0]->mapToScene({}).y(), sync->mapToScene({}).y());
  EXPECT_GT(buttons[0]->mapToScene({}).x(), sync->mapToScene({sync->width(), 0}).x());
  const QQuickItem* creature = seen(buttons[0], "ClaudeCritter").value(0);
  ASSERT_TRUE(creature);
  EXPECT_EQ(creature->size(), QSizeF(28, 16));
}

TEST_F(ClaudeLogViews, OpenByTheButtonWithTheHeadAlone) {
  open();
  EXPECT_FALSE(shown());
  openPanel();
  EXPECT_TRUE(reader().find(kPanel, QAccessible::Heading));
  EXPECT_FALSE(reader().find(kShowsLog, QAccessible::Button)) << "there is no job";
  QQuickItem* popup = all("QQuickPopupItem").value(0);
  ASSERT_TRUE(popup);
  EXPECT_EQ(popup->size(), QSizeF(380, 480));
  press(kButton);
  EXPECT_TRUE(goes());
}

TEST_F(ClaudeLogViews, AreLessHighInASmallWindow) {
  const auto all = models();
  show("Board/Sidebar",
       {{"board", all["board"]},
        {"activity", all["activity"]},
        {"log", all["log"]},
        {"pictures", all["pictures"]}},
       {420, 400});
  openPanel();
  QQuickItem* popup = seen(window()->contentItem(), "QQuickPopupItem").value(0);
  ASSERT_TRUE(popup);
  EXPECT_EQ(popup->height(), 384);
  EXPECT_GE(popup->mapToScene({}).y(), 8);
}

TEST_F(ClaudeLogViews, TellOfAllThatTheWorkerDoesAndDid) {
  change([this](BoardState& board) {
    board.sync = named("s", "done", "sync");
    board.sync->finished = wireOf(desk.time.now());
    board.sync->summary = Summary{.done = {{"Filed 2 proofs"}}, .check = {{"Which PO is this?"}}};
    board.jobs = {named("a", "queued"), named("b", "running"), named("c", "stuck"),
                  named("d", "done"), named("e", "stopped")};
    board.jobs[1].step = "Comparing p3";
    board.jobs[1].steps = {{"Step 1", "Step 2", "Step 3", "Step 4", "Step 5"}};
    board.jobs[3].requested_by = "jorvas@tessarine.example";
  });
  open();
  openPanel();
  EXPECT_TRUE(reader().find("Last sync", QAccessible::Heading));
  for (const char* text :
       {"Needs a look", "just now", "In line", "Waiting for the Mac mini", "Claude is percolating…",
        "Comparing p3", "1 earlier step", "The Mac mini stopped answering"}) {
    EXPECT_TRUE(says(text)) << text;
  }
  for (const char* row : {"Filed 2 proofs", "Which PO is this?", "Step 2", "Step 5", "Done, Jorvas",
                          "Stopped, Claude"}) {
    EXPECT_TRUE(reader().find(row, QAccessible::ListItem)) << row;
  }
  EXPECT_FALSE(reader().find("Step 1", QAccessible::ListItem));
  EXPECT_TRUE(reader().find("Reports", QAccessible::Heading));
  EXPECT_EQ(reader().names(QAccessible::Button).count("Stop"), 2) << "running and stuck";
}

TEST_F(ClaudeLogViews, StopTheJobOfTheBlock) {
  change([](BoardState& board) { board.jobs = {named("a", "running"), named("b", "stuck")}; });
  open();
  openPanel();
  const auto stops = [this] {
    QList<QQuickItem*> found = all("TextButton");
    found.removeIf([](const QQuickItem* item) { return item->property("text") != "Stop"; });
    return found;
  };
  ASSERT_EQ(stops().size(), 2);
  QMetaObject::invokeMethod(stops()[1], "click");
  settle();
  ASSERT_EQ(desk.http.matching("POST ").size(), 1U);
  EXPECT_EQ(desk.http.matching("POST ")[0]->line(), "POST api/jobs/b/stop");
  EXPECT_TRUE(stops()[0]->isEnabled());
  EXPECT_FALSE(stops()[1]->isEnabled());
}

TEST_F(ClaudeLogViews, OpenAReportOfARow) {
  change([](BoardState& board) {
    board.jobs = {named("a", "done"), named("b", "done")};
    board.jobs[1].result = JobResult{.report_id = "r"};
    board.reports = {{.id = "r", .at = 1'700'000'000'000}};
  });
  open();
  openPanel();
  const QString name = "Open the report from Nov 14";
  EXPECT_EQ(reader().names(QAccessible::Button).count(name), 1);
  ASSERT_TRUE(press(name));
  EXPECT_EQ(desk.http.matching("GET api/reports/r/pdf").size(), 1U);
  EXPECT_EQ(reader().enabled(name), 0);
}

TEST_F(ClaudeLogViews, ShowAndHideTheTechnicalLog) {
  change([](BoardState& board) { board.sync = named("s", "done", "sync"); });
  open();
  openPanel();
  ASSERT_TRUE(press(kShowsLog));
  EXPECT_EQ(desk.http.matching("GET api/jobs/s").size(), 1U);
  EXPECT_FALSE(reader().find(kHidesLog, QAccessible::Button)) << "until it is there";
  answerTechnical(R"(09:41 began\n09:42 read <b>7</b> mails)");
  EXPECT_TRUE(says("09:41 began\n09:42 read <b>7</b> mails"));
  ASSERT_TRUE(press(kHidesLog));
  EXPECT_FALSE(says("09:41 began\n09:42 read <b>7</b> mails"));
  ASSERT_TRUE(press(kShowsLog));
  answerTechnical("09:43 ended");
  EXPECT_TRUE(says("09:43 ended"));
  key(Qt::Key_Escape);
  ASSERT_TRUE(goes());
  openPanel();
  EXPECT_TRUE(reader().find(kShowsLog, QAccessible::Button)) << "closing has thrown it away";
  EXPECT_EQ(desk.http.matching("GET api/jobs/s").size(), 2U);
}

TEST_F(ClaudeLogViews, HoldALongTechnicalLogInItsBox) {
  change([](BoardState& board) {
    board.sync = named("s", "running", "sync");
    board.sync->steps = {{"Reading the mail"}};
    board.jobs = {named("a", "running"), named("b", "running"), named("c", "running")};
    board.sync->created = wireOf(Moment{}) + 1;
  });
  open();
  openPanel();
  ASSERT_TRUE(press(kShowsLog));
  std::string log;
  for (int i = 0; i < 30'000; ++i) log += "09:41 a line of the log, one of many\\n";
  answerTechnical(log);
  QQuickItem* technical = all("TechnicalLog").value(0);
  ASSERT_TRUE(technical);
  EXPECT_LT(technical->height(), 260);
  QQuickItem* box = seen(technical, "ScrollArea").value(0);
  ASSERT_TRUE(box);
  EXPECT_GT(box->property("contentHeight").toReal(), 1'000);
  QQuickItem* outer = seen(all("ClaudeLog").value(0), "ScrollArea").value(0);
  ASSERT_TRUE(outer);
  ASSERT_GT(outer->property("contentHeight").toReal(), outer->height());
  const auto below = [&] {
    return outer->property("contentHeight").toReal() - outer->height() -
           outer->property("contentY").toReal();
  };
  outer->setProperty("contentY", outer->property("contentY").toReal() + below());
  box->setProperty("contentY", 300);
  settle();
  const QPointF stood = technical->mapToScene({});
  change([](BoardState& board) { board.sync->steps->push_back("Filing the proofs"); });
  settle();
  EXPECT_EQ(technical->mapToScene({}), stood) << "as long as it is read";
  EXPECT_EQ(box->property("contentY").toReal(), 300);
}

TEST_F(ClaudeLogViews, AreWorkedByKeyAndGiveTheKeyboardBack) {
  change([](BoardState& board) { board.sync = named("s", "stuck", "sync"); });
  open();
  QQuickItem* button = all("ClaudeLogButton").value(0);
  button->forceActiveFocus(Qt::TabFocusReason);
  key(Qt::Key_Return);
  ASSERT_TRUE(comes());
  ASSERT_TRUE(QTest::qWaitFor([this] { return keyed() == kShowsLog; })) << keyed().toStdString();
  EXPECT_TRUE(window()->activeFocusItem()->property("visualFocus").toBool());
  key(Qt::Key_Return);
  answerTechnical("09:41 began");
  EXPECT_EQ(keyed(), kHidesLog);
  key(Qt::Key_Tab);
  EXPECT_EQ(keyed(), "Stop") << "round the panel, and not out of it";
  key(Qt::Key_Space);
  EXPECT_EQ(desk.http.matching("POST api/jobs/s/stop").size(), 1U);
  key(Qt::Key_Escape);
  EXPECT_TRUE(goes());
  EXPECT_TRUE(QTest::qWaitFor([&] { return button->hasActiveFocus(); }));
  EXPECT_TRUE(button->property("visualFocus").toBool());
}

TEST_F(ClaudeLogViews, CloseByEscapeWhereThereIsNothingToDo) {
  open();
  QQuickItem* button = all("ClaudeLogButton").value(0);
  button->forceActiveFocus(Qt::TabFocusReason);
  key(Qt::Key_Space);
  ASSERT_TRUE(comes());
  key(Qt::Key_Tab);
  EXPECT_TRUE(shown());
  key(Qt::Key_Escape);
  EXPECT_TRUE(goes());
  EXPECT_TRUE(QTest::qWaitFor([&] { return button->hasActiveFocus(); }));
}

TEST_F(ClaudeLogViews, StandAloneAsAPanel) {
  change([](BoardState& board) { board.sync = named("s", "queued", "sync"); });
  QVariantMap properties = models();
  properties.insert(windowModels());
  show("Jobs/ClaudeLog", {{"log", properties["log"]}}, {380, 480});
  EXPECT_TRUE(says("In line"));
  EXPECT_TRUE(says("Waiting for the Mac mini"));
}

TEST_F(ClaudeLogViews, GoWithTheSession) {
  change([](BoardState& board) { board.sync = named("s", "done", "sync"); });
  open();
  openPanel();
  ASSERT_TRUE(press(kShowsLog));
  store().signOut(false);
  settle();
  EXPECT_TRUE(goes());
}

}  // namespace
}  // namespace vellix
