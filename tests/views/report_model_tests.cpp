// What the report's model tells its views.
#include "jobs/ReportModel.hpp"

#include <QSignalSpy>

#include "store/store_test.hpp"

namespace vellix {
namespace {

class ReportModels : public StoreTest {
 protected:
  ReportModels() {
    board = boardOf({ticketAt("t1", 1), ticketAt("t2", 1)});
    showBoard();
    select({"t1"});
  }
  void showBoard() {
    store().board.set(board);
    desk.time.run();
  }
  void select(std::set<std::string> ids) {
    store().selection.set(std::move(ids));
    desk.time.run();
  }
  ReportModel& model() {
    if (!model_) model_.emplace(store(), desk.time, desk.calendar);
    return *model_;
  }
  QVariant report(const char* field) { return model().area()[field]; }

  BoardState board;

 private:
  std::optional<ReportModel> model_;
};

TEST_F(ReportModels, FollowTheReport) {
  EXPECT_EQ(report("button"), "Make report");
  EXPECT_TRUE(report("canMake").toBool());
  model().make();
  desk.time.run();
  EXPECT_FALSE(report("canMake").toBool());
  EXPECT_EQ(desk.http.exchanges.back().request.body, R"({"kind":"report","file_ids":["t1"]})");
  Job job = jobOf("running");
  job.started = wireOf(desk.time.now());
  job.args = JobArgs{.file_ids = std::vector<std::string>{"t1"}};
  board.jobs = {job};
  showBoard();
  EXPECT_TRUE(report("working").toBool());
  EXPECT_EQ(report("progress"), "Ready in about 1 min");
  model().stop();
  desk.time.run();
  EXPECT_TRUE(report("stopping").toBool());
  EXPECT_EQ(desk.http.exchanges.back().line(), "POST api/jobs/j/stop");
}

TEST_F(ReportModels, CountDownAtEachTick) {
  Job job = jobOf("running");
  job.started = wireOf(desk.time.now());
  job.args = JobArgs{.file_ids = std::vector<std::string>{"t1"}};
  board.jobs = {job};
  showBoard();
  const QSignalSpy reports{&model(), &ReportModel::areaChanged};
  model().tick();
  EXPECT_EQ(reports.count(), 0) << "nothing to tell";
  desk.time.advance(Milliseconds{30'000});
  EXPECT_EQ(report("progress"), "Ready in about 1 min");
  model().tick();
  EXPECT_EQ(report("progress"), "Ready in about 45 sec");
  EXPECT_EQ(reports.count(), 1);
}

TEST_F(ReportModels, OpenTheReport) {
  board.reports = {{.id = "r", .file_ids = {"t1"}}};
  showBoard();
  EXPECT_EQ(report("open").toMap()["report"], "r");
  model().open();
  desk.time.run();
  EXPECT_EQ(desk.http.exchanges.back().line(), "GET api/reports/r/pdf");
  EXPECT_TRUE(report("open").toMap()["opening"].toBool());
}

TEST_F(ReportModels, SpeakOfOneReportOnSeveralTickets) {
  EXPECT_EQ(report("button"), "Make report");
  select({"t1", "t2"});
  EXPECT_EQ(report("button"), "Make one report");
}

}  // namespace
}  // namespace vellix
