// A report, asked for or at work.
#include "jobs/report_area.hpp"

#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Ids = std::vector<std::string>;

class ReportAreas : public StoreTest {
 protected:
  ReportAreas() {
    board = boardOf({ticketOf("t1"), ticketOf("t2"), ticketOf("t3")});
    publish();
    store().selection.set({"t1"});
  }
  void publish() { store().board.set(board); }
  static Job onTickets(Ids ids, std::string status = "running", std::string id = "j") {
    Job job = jobOf(std::move(status));
    job.id = std::move(id);
    job.args = JobArgs{.file_ids = std::move(ids)};
    return job;
  }
  void showJobs(std::vector<Job> jobs) {
    board.jobs = std::move(jobs);
    publish();
  }
  void showReports(std::vector<Report> reports) {
    board.reports = std::move(reports);
    publish();
  }
  ReportAreaView view() { return reportArea(store(), desk.time.now(), desk.calendar); }
  std::vector<std::string> posted() {
    desk.time.run();
    std::vector<std::string> bodies;
    for (const auto* each : desk.http.matching("POST api/jobs")) {
      bodies.push_back(each->line() + " " + each->request.body.value_or(""));
    }
    return bodies;
  }

  BoardState board;
};

struct Which {
  const char* name;
  std::set<std::string> selection;
  std::optional<Ids> asked;
  bool working;
};
BOOST_DESCRIBE_STRUCT(Which, (), (name, selection, asked, working))

class WhichJobs : public ReportAreas, public testing::WithParamInterface<Which> {};

TEST_P(WhichJobs, AreThoseOnJustTheSelectedTickets) {
  const auto& each = GetParam();
  Job job = onTickets({});
  job.args->file_ids = each.asked;
  showJobs({job});
  store().selection.set(each.selection);
  EXPECT_EQ(view().working, each.working);
}

INSTANTIATE_TEST_SUITE_P(
    All, WhichJobs,
    testing::Values(Which{"ItsOwn", {"t1"}, Ids{"t1"}, true},
                    Which{"ItsOwnTwice", {"t1"}, Ids{"t1", "t1"}, true},
                    Which{"Another", {"t1"}, Ids{"t2"}, false},
                    Which{"ItAndAnother", {"t1"}, Ids{"t1", "t2"}, false},
                    Which{"None", {"t1"}, Ids{}, false},
                    Which{"NotTold", {"t1"}, std::nullopt, false},
                    Which{"BothInOrder", {"t1", "t2"}, Ids{"t1", "t2"}, true},
                    Which{"BothInAnotherOrder", {"t1", "t2"}, Ids{"t2", "t1"}, true},
                    Which{"OneOfBoth", {"t1", "t2"}, Ids{"t1"}, false},
                    Which{"OneMoreThanBoth", {"t1", "t2"}, Ids{"t1", "t2", "t3"}, false},
                    Which{"NothingSelected", {}, Ids{}, false}),
    [](const auto& each) { return each.param.name; });

struct State {
  const char* name;
  const char* status;
  bool working;
  const char* warning;
};
BOOST_DESCRIBE_STRUCT(State, (), (name, status, working, warning))

class ReportJobs : public ReportAreas, public testing::WithParamInterface<State> {};

TEST_P(ReportJobs, AreShownByTheirStatus) {
  showJobs({onTickets({"t1"}, GetParam().status)});
  EXPECT_EQ(view().working, GetParam().working);
  EXPECT_EQ(view().progress, GetParam().working ? "Ready in about 1 min" : "");
  EXPECT_EQ(view().warning, GetParam().warning);
}

constexpr const char* kUnfinished = "The last report didn't finish.";
INSTANTIATE_TEST_SUITE_P(All, ReportJobs,
                         testing::Values(State{"Queued", "queued", true, ""},
                                         State{"Running", "running", true, ""},
                                         State{"Done", "done", false, ""},
                                         State{"Stopped", "stopped", false, ""},
                                         State{"Failed", "failed", false, kUnfinished},
                                         State{"Stuck", "stuck", false, kUnfinished},
                                         State{"Unknown", "Failed", false, ""}),
                         [](const auto& each) { return each.param.name; });

TEST_F(ReportAreas, TellWhyTheLastOneFailed) {
  Job job = onTickets({"t1"}, "failed");
  job.summary = Summary{.check = std::vector<std::string>{"Drive is full.", "Nothing was filed."}};
  showJobs({job});
  EXPECT_EQ(view().warning, "Drive is full.");
  job.summary->check = std::vector<std::string>{};
  showJobs({job});
  EXPECT_EQ(view().warning, kUnfinished);
  job.status = "done";
  job.summary->check = std::vector<std::string>{"Look at page 3."};
  showJobs({job});
  EXPECT_EQ(view().warning, "");
}

TEST_F(ReportAreas, GoByTheFirstJobOfTheBoard) {
  showJobs({onTickets({"t1", "t2"}, "running", "both"), onTickets({"t1"}, "done", "newer"),
            onTickets({"t1"}, "failed", "older")});
  EXPECT_FALSE(view().working);
  EXPECT_EQ(view().warning, "");
}

TEST_F(ReportAreas, CountDownWithTheClock) {
  Job job = onTickets({"t1"});
  job.started = wireOf(desk.time.now());
  showJobs({job});
  desk.time.advance(Milliseconds{45'000});
  EXPECT_EQ(view().progress, "Ready in about 30 sec");
  desk.time.advance(Milliseconds{45'000});
  EXPECT_EQ(view().progress, "Almost ready…");
}

TEST_F(ReportAreas, OfferAFirstReportAndThenANewOne) {
  EXPECT_EQ(view().button, "Make report");
  EXPECT_EQ(view().made, "");
  showReports({{.id = "r2", .file_ids = {"t2"}}});
  EXPECT_EQ(view().button, "Make report");
  showReports({{.id = "r2", .file_ids = {"t2"}}, {.id = "r", .file_ids = {"t2", "t1"}}});
  EXPECT_EQ(view().button, "New report");
  store().selection.set({"t1", "t2"});
  EXPECT_EQ(view().button, "Make one report");
  EXPECT_EQ(view().made, "");
}

TEST_F(ReportAreas, TellWhoseTheFirstReportIs) {
  Report report{
      .id = "r", .file_ids = {"t1"}, .by = "jorvas@tessarine.example", .at = 1'700'000'000'000};
  Report older{.id = "o", .file_ids = {"t1"}, .drive_link = "https://a.example/o", .by = "x@y.z"};
  showReports({report, older});
  EXPECT_EQ(view().made, "Report by Jorvas · Nov 14");
  EXPECT_EQ(view().driveLink, "");
  report.at.reset();
  report.by.reset();
  report.drive_link = "https://a.example/r";
  showReports({report, older});
  EXPECT_EQ(view().made, "Report by Claude");
  EXPECT_EQ(view().driveLink, "https://a.example/r");
  report.by = "";
  showReports({report, older});
  EXPECT_EQ(view().made, "Report by Claude");
  for (const char* none : {"", "Reports/7781", "file:///tmp/r.pdf", "javascript:alert(1)"}) {
    report.drive_link = none;
    showReports({report});
    EXPECT_EQ(view().driveLink, "") << none;
  }
}

struct Opened {
  const char* name;
  std::set<std::string> selection;
  std::vector<Ids> reports;  // the tickets of each; their ids are r0, r1 and so on
  const char* report;
  const char* label;
};
BOOST_DESCRIBE_STRUCT(Opened, (), (name, selection, reports, report, label))

class OpenedReports : public ReportAreas, public testing::WithParamInterface<Opened> {};

TEST_P(OpenedReports, AreTheFirstOnWhatIsSelected) {
  std::vector<Report> reports;
  for (const Ids& ids : GetParam().reports) {
    reports.push_back(
        {.id = "r" + std::to_string(reports.size()), .file_ids = ids, .at = 1'700'000'000'000});
  }
  showReports(reports);
  store().selection.set(GetParam().selection);
  EXPECT_EQ(view().open, (OpenReportView{GetParam().report, GetParam().label}));
  openShownReport(store());
  desk.time.run();
  const std::string opened = GetParam().report;
  EXPECT_EQ(desk.http.matching("GET api/reports/").size(), opened.empty() ? 0U : 1U);
  if (!opened.empty()) {
    EXPECT_EQ(desk.http.exchanges.back().line(), "GET api/reports/" + opened + "/pdf");
  }
}

constexpr const char* kOpens = "Open the report";
constexpr const char* kOpensOfDay = "Open the report from Nov 14";
INSTANTIATE_TEST_SUITE_P(
    All, OpenedReports,
    testing::Values(
        Opened{"None", {"t1"}, {}, "", ""}, Opened{"OfAnother", {"t1"}, {{"t2"}}, "", ""},
        Opened{"ItsOwn", {"t1"}, {{"t2"}, {"t1"}, {"t1"}}, "r1", kOpens},
        Opened{"WithAnother", {"t1"}, {{"t2", "t1"}}, "r0", kOpens},
        Opened{"SeveralInAnotherOrder", {"t1", "t2"}, {{"t2", "t1"}}, "r0", kOpensOfDay},
        Opened{"SeveralOfOne", {"t1", "t2"}, {{"t1"}, {"t2"}}, "", ""},
        Opened{"SeveralOfMore", {"t1", "t2"}, {{"t1", "t2", "t3"}}, "", ""},
        Opened{
            "SeveralFirst", {"t1", "t2"}, {{"t1"}, {"t1", "t2"}, {"t2", "t1"}}, "r1", kOpensOfDay},
        Opened{"OnNothing", {}, {{}, {"t1"}}, "", ""}),
    [](const auto& each) { return each.param.name; });

TEST_F(ReportAreas, TellThatAReportIsBeingOpened) {
  showReports({{.id = "r", .file_ids = {"t1"}}});
  EXPECT_FALSE(view().open.opening);
  openShownReport(store());
  desk.time.run();
  EXPECT_TRUE(view().open.opening);
  openShownReport(store());
  openReport(store(), "r");
  desk.time.run();
  EXPECT_EQ(desk.http.matching("GET api/reports/r/pdf").size(), 1U) << "not twice";
  store().busy.set({"open-other", "open-"});
  EXPECT_FALSE(view().open.opening);
}

TEST_F(ReportAreas, OpenNoReportThatTheBoardDoesNotTellOf) {
  showReports({{.id = "", .file_ids = {"t1"}}});
  EXPECT_EQ(view().open, OpenReportView{}) << "there is nothing to ask for";
  EXPECT_EQ(view().button, "New report");
  openShownReport(store());
  openReport(store(), "");
  openReport(store(), "gone");
  store().board.set(std::nullopt);
  openShownReport(store());
  openReport(store(), "r");
  desk.time.run();
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST_F(ReportAreas, OpenAReportOfNoDay) {
  showReports({{.id = "r", .file_ids = {"t1", "t2"}}});
  store().selection.set({"t1", "t2"});
  EXPECT_EQ(view().open.label, kOpens);
}

TEST_F(ReportAreas, MakeNoSecondReportWhileOneIsAskedFor) {
  EXPECT_TRUE(view().canMake);
  store().busy.set({"report"});
  EXPECT_FALSE(view().canMake);
  store().busy.set({"status"});
  EXPECT_TRUE(view().canMake);
}

TEST_F(ReportAreas, StopTheJobThatTheyShow) {
  showJobs({onTickets({"t1"}, "done", "other"), onTickets({"t2"}, "running", "j2")});
  stopReport(store());
  EXPECT_THAT(posted(), IsEmpty()) << "it has ended by itself";
  store().selection.set({"t2"});
  EXPECT_FALSE(view().stopping);
  stopReport(store());
  EXPECT_TRUE(view().stopping);
  EXPECT_THAT(posted(), ElementsAre("POST api/jobs/j2/stop {}"));
  store().selection.set({"t1"});
  EXPECT_FALSE(view().stopping);
}

TEST_F(ReportAreas, MakeAndStopNothingTwice) {
  makeReport(store());
  makeReport(store());
  EXPECT_EQ(posted().size(), 1U);
  store().busy.set({});
  showJobs({onTickets({"t1"}, "running")});
  EXPECT_FALSE(view().canMake);
  makeReport(store());
  stopReport(store());
  stopReport(store());
  EXPECT_EQ(posted().size(), 2U) << "one to make and one to stop";
}

TEST_F(ReportAreas, AskForAReportOnWhatIsSelected) {
  makeReport(store());
  EXPECT_THAT(posted(), ElementsAre(R"(POST api/jobs {"kind":"report","file_ids":["t1"]})"));
}

TEST_F(ReportAreas, AskForOneReportOnAllInTheOrderOfTheBoard) {
  store().selection.set({"t3", "t1", "gone"});
  makeReport(store());
  EXPECT_THAT(posted(), ElementsAre(R"(POST api/jobs {"kind":"report","file_ids":["t1","t3"]})"));
}

TEST_F(ReportAreas, AskForNothingOnNothing) {
  for (const std::set<std::string>& selection : {std::set<std::string>{}, {"gone", "lost"}}) {
    store().selection.set(selection);
    EXPECT_FALSE(view().canMake);
    makeReport(store());
    stopReport(store());
  }
  EXPECT_THAT(posted(), IsEmpty());
}

TEST_F(ReportAreas, CountATicketOnceThoughTheBoardHasItTwice) {
  board.files.push_back(ticketOf("t1"));
  publish();
  EXPECT_EQ(selectedFiles(store()).size(), 1U);
}

TEST_F(ReportAreas, BearThatThereIsNoBoard) {
  store().board.set(std::nullopt);
  EXPECT_THAT(selectedFiles(store()), IsEmpty());
  EXPECT_EQ(view(), (ReportAreaView{.button = "Make report"}));
}

}  // namespace
}  // namespace vellix
