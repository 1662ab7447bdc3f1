// The panel that tells what the worker does and did.
#include "jobs/claude_log.hpp"

#include <gmock/gmock.h>

#include <cmath>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kTeva = "teva@tessarine.example";
constexpr const char* kShowsLog = "Technical log (for Renny)";
constexpr const char* kHidesLog = "Hide the technical log";

class ClaudeLogs : public StoreTest {
 protected:
  ClaudeLogs() {
    board = boardOf({});
    board.users = {Person{.email = kTeva, .name = "Teva Aldous"}};
  }
  static Job named(std::string id, std::string status, std::string kind = "report") {
    Job job = jobOf(std::move(status), std::move(kind));
    job.id = std::move(id);
    return job;
  }
  static Job cameAt(std::string id, std::optional<double> created, std::string kind = "report") {
    Job job = named(std::move(id), "done", std::move(kind));
    job.created = created;
    return job;
  }
  ClaudeLogView view() {
    store().board.set(board);
    return claudeLog(store(), technical, desk.time.now(), desk.calendar);
  }
  std::vector<std::string> running() { return keysOf(view().running); }
  std::vector<std::string> ended() { return keysOf(view().reports); }
  template <class Rows>
  static std::vector<std::string> keysOf(const Rows& rows) {
    std::vector<std::string> keys;
    keys.reserve(rows.size());
    for (const auto& row : rows) keys.push_back(row.key);
    return keys;
  }

  BoardState board;
  TechnicalLog technical;
};

TEST_F(ClaudeLogs, ShowOnlyTheHeadWithoutJobs) {
  EXPECT_EQ(view(), ClaudeLogView{});
  store().board.set(std::nullopt);
  EXPECT_EQ(claudeLog(store(), technical, desk.time.now(), desk.calendar), ClaudeLogView{});
}

struct BusyCase {
  const char* status;
  bool busy;
};
BOOST_DESCRIBE_STRUCT(BusyCase, (), (status, busy))

class ClaudeLogHeads : public ClaudeLogs, public testing::WithParamInterface<BusyCase> {};

TEST_P(ClaudeLogHeads, AreAwakeWhileAJobIsActive) {
  board.sync = named("s", GetParam().status, "sync");
  EXPECT_EQ(view().busy, GetParam().busy);
  board.sync = named("s", "done", "sync");
  board.jobs = {named("a", "done"), named("b", GetParam().status)};
  EXPECT_EQ(view().busy, GetParam().busy);
  board.jobs.back().kind = "tidy";
  EXPECT_EQ(view().busy, GetParam().busy) << "whatever it does";
}

INSTANTIATE_TEST_SUITE_P(All, ClaudeLogHeads,
                         testing::Values(BusyCase{"queued", true}, BusyCase{"running", true},
                                         BusyCase{"stuck", false}, BusyCase{"done", false},
                                         BusyCase{"failed", false}, BusyCase{"stopped", false},
                                         BusyCase{"paused", false}));

struct SyncCase {
  const char* status;
  const char* heading;
  const char* kind;
};
BOOST_DESCRIBE_STRUCT(SyncCase, (), (status, heading, kind))

class ClaudeLogSyncs : public ClaudeLogs, public testing::WithParamInterface<SyncCase> {};

TEST_P(ClaudeLogSyncs, StandUnderAHeadingOnceTheyHaveEnded) {
  board.sync = named("s", GetParam().status, "sync");
  const ClaudeLogView shown = view();
  EXPECT_EQ(shown.syncHeading, GetParam().heading);
  ASSERT_TRUE(shown.sync);
  EXPECT_EQ(shown.sync->kind, GetParam().kind);
  EXPECT_EQ(shown.sync, jobBlock(store(), *board.sync, "Sync", desk.time.now(), desk.calendar));
  EXPECT_THAT(shown.running, IsEmpty());
  EXPECT_THAT(shown.reports, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, ClaudeLogSyncs,
                         testing::Values(SyncCase{"queued", "", "queued"},
                                         SyncCase{"running", "", "running"},
                                         SyncCase{"stuck", "", "stuck"},
                                         SyncCase{"done", "Last sync", "result"},
                                         SyncCase{"failed", "Last sync", "result"},
                                         SyncCase{"stopped", "Last sync", "result"},
                                         SyncCase{"paused", "Last sync", "result"}));

struct RowCase {
  const char* status;
  bool running;
  const char* icon;
  const char* title;
  const char* tone;
};
BOOST_DESCRIBE_STRUCT(RowCase, (), (status, running, icon, title, tone))

class ClaudeLogReports : public ClaudeLogs, public testing::WithParamInterface<RowCase> {};

TEST_P(ClaudeLogReports, AreBlocksUntilTheyEndAndRowsFromThenOn) {
  const auto& each = GetParam();
  board.jobs = {named("a", each.status), named("b", each.status, "sync"),
                named("c", each.status, "tidy")};
  const ClaudeLogView shown = view();
  if (each.running) {
    EXPECT_THAT(shown.running, ElementsAre(jobBlock(store(), board.jobs[0], "Make report",
                                                    desk.time.now(), desk.calendar)));
    EXPECT_THAT(shown.reports, IsEmpty());
    EXPECT_EQ(shown.reportsHeading, "");
    return;
  }
  EXPECT_THAT(shown.running, IsEmpty());
  EXPECT_EQ(shown.reportsHeading, "Reports");
  ASSERT_EQ(shown.reports.size(), 1U);
  EXPECT_EQ(shown.reports[0].key, "a");
  EXPECT_EQ(shown.reports[0].icon, each.icon);
  EXPECT_EQ(shown.reports[0].title, each.title);
  EXPECT_EQ(shown.reports[0].tone, each.tone);
}

INSTANTIATE_TEST_SUITE_P(
    All, ClaudeLogReports,
    testing::Values(RowCase{"queued", true, "", "", ""}, RowCase{"running", true, "", "", ""},
                    RowCase{"stuck", true, "", "", ""},
                    RowCase{"done", false, "checkmark.circle", "Done", "green"},
                    RowCase{"stopped", false, "checkmark.circle", "Stopped", "gray"},
                    RowCase{"failed", false, "xmark.circle", "Didn't finish", "red"},
                    RowCase{"paused", false, "xmark.circle", "Didn't finish", "red"},
                    RowCase{"", false, "xmark.circle", "Didn't finish", "red"}));

TEST_F(ClaudeLogs, KeepTheOrderOfTheList) {
  board.jobs = {named("a", "done"), named("b", "running"), named("c", "failed"),
                named("d", "queued"), named("e", "stopped")};
  EXPECT_THAT(running(), ElementsAre("b", "d"));
  EXPECT_THAT(ended(), ElementsAre("a", "c", "e"));
}

TEST_F(ClaudeLogs, SayWhenAndForWhomAReportWasMade) {
  Job job = named("a", "done");
  board.jobs = {job};
  EXPECT_EQ(view().reports[0].when, "");
  EXPECT_EQ(view().reports[0].who, "Claude");
  EXPECT_EQ(view().reports[0].spoken, "Done, Claude");
  job.finished = wireOf(desk.time.now()) - 5 * 60'000;
  job.requested_by = kTeva;
  board.jobs = {job};
  EXPECT_EQ(view().reports[0].when, "5 min ago");
  EXPECT_EQ(view().reports[0].who, "Teva");
  EXPECT_EQ(view().reports[0].spoken, "Done, 5 min ago, Teva");
}

TEST_F(ClaudeLogs, OfferTheReportThatAJobMade) {
  board.jobs = {named("a", "done"), named("b", "failed"), named("c", "done")};
  board.jobs[0].result = JobResult{.report_id = "r"};
  board.jobs[1].result = JobResult{.report_id = "gone"};
  board.reports = {{.id = "other"}, {.id = "r", .at = 1'700'000'000'000}};
  EXPECT_EQ(view().reports[0].open, (OpenReportView{"r", "Open the report from Nov 14"}));
  EXPECT_EQ(view().reports[1].open, OpenReportView{});
  EXPECT_EQ(view().reports[2].open, OpenReportView{});
  store().busy.set({"open-r"});
  EXPECT_TRUE(view().reports[0].open.opening);
  store().busy.set({"open-other"});
  EXPECT_FALSE(view().reports[0].open.opening);
}

TEST_F(ClaudeLogs, BearJobsOfOneId) {
  board.sync = named("9223372036854775808", "running", "sync");
  board.jobs = {named("9223372036854775808", "running"), named("9223372036854775808", "done"),
                named("9223372036854775808", "done")};
  EXPECT_EQ(running().size(), 1U);
  EXPECT_EQ(ended().size(), 2U);
  EXPECT_EQ(view().technical.job, "9223372036854775808");
}

struct NewestCase {
  const char* name;
  std::optional<Job> sync;
  std::vector<Job> jobs;
  const char* of;
};
BOOST_DESCRIBE_STRUCT(NewestCase, (), (name, of))

class NewestJobs : public ClaudeLogs, public testing::WithParamInterface<NewestCase> {};

TEST_P(NewestJobs, HaveTheButtonOfTheTechnicalLog) {
  board.sync = GetParam().sync;
  board.jobs = GetParam().jobs;
  EXPECT_EQ(view().technical.job, GetParam().of);
  EXPECT_EQ(view().technical.button, std::string{GetParam().of}.empty() ? "" : kShowsLog);
}

Job at(std::string id, std::optional<double> created, std::optional<double> started = {},
       std::optional<double> finished = {}, std::string kind = "report") {
  Job job = jobOf("done", std::move(kind));
  job.id = std::move(id);
  job.created = created;
  job.started = started;
  job.finished = finished;
  return job;
}
Job sync(std::optional<double> created) { return at("s", created, {}, {}, "sync"); }
constexpr std::nullopt_t kNone = std::nullopt;

INSTANTIATE_TEST_SUITE_P(
    All, NewestJobs,
    testing::Values(
        NewestCase{"NoJobs", kNone, {}, ""}, NewestCase{"TheSyncAlone", sync(1), {}, "s"},
        NewestCase{"AReportAlone", kNone, {at("a", 1)}, "a"},
        NewestCase{"TheSync", sync(3), {at("a", 2), at("b", 1)}, "s"},
        NewestCase{"TheReport", sync(1), {at("a", 2), at("b", 3)}, "b"},
        NewestCase{"TheFirstOfTwoAsNew", sync(2), {at("a", 2)}, "s"},
        NewestCase{"ByTheStart", kNone, {at("a", 1), at("b", kNone, 2)}, "b"},
        NewestCase{"ByTheEnd", kNone, {at("a", 1), at("b", kNone, kNone, 2)}, "b"},
        NewestCase{"ByItsCreationFirst", kNone, {at("a", 2), at("b", 1, 3, 4)}, "a"},
        NewestCase{"WithoutATime", kNone, {at("a", kNone), at("b", 0)}, "b"},
        NewestCase{"WithoutAnyTime", kNone, {at("a", kNone), at("b", kNone)}, "a"},
        NewestCase{"WithATimeThatIsNone", kNone, {at("a", std::nan("")), at("b", 0)}, "b"},
        NewestCase{"WithoutAnId", kNone, {at("", 5), at("b", 0)}, "b"},
        NewestCase{"OfAnotherKind", kNone, {at("a", 5, {}, {}, "tidy"), at("b", 0)}, "b"},
        NewestCase{"OfAnotherKindAlone", kNone, {at("a", 5, {}, {}, "sync")}, ""}),
    [](const auto& each) { return each.param.name; });

TEST_F(ClaudeLogs, ShowTheTechnicalLog) {
  board.jobs = {cameAt("a", 1)};
  const auto request = technical.press("a");
  EXPECT_EQ(view().technical, (TechnicalLogView{.job = "a", .button = kShowsLog, .loading = true}));
  technical.arrived(*request, "09:41 began");
  EXPECT_EQ(
      view().technical,
      (TechnicalLogView{.job = "a", .button = kHidesLog, .shown = true, .text = "09:41 began"}));
  technical.press("a");
  EXPECT_EQ(view().technical, (TechnicalLogView{.job = "a", .button = kShowsLog}));
}

TEST_F(ClaudeLogs, ShowOfALongLogNoMoreThanCanBeLaidOut) {
  board.jobs = {cameAt("a", 1)};
  technical.arrived(*technical.press("a"), std::string(3 << 20, 'x') + "\nfailed: é");
  EXPECT_EQ(view().technical.text, "…" + std::string(19'990, 'x') + "\nfailed: é");
  technical.press("a");
  technical.arrived(*technical.press("a"), std::string(20'000, 'x'));
  EXPECT_EQ(view().technical.text, std::string(20'000, 'x'));
}

TEST_F(ClaudeLogs, KeepTheLogThatIsReadWhenANewerJobComes) {
  board.jobs = {cameAt("a", 1)};
  technical.arrived(*technical.press("a"), "09:41 began");
  board.jobs = {cameAt("b", 2), cameAt("a", 1)};
  EXPECT_EQ(view().technical.job, "a");
  EXPECT_EQ(view().technical.text, "09:41 began");
  technical.press("a");
  EXPECT_EQ(view().technical.job, "b");
}

TEST_F(ClaudeLogs, DropTheLogOfAJobThatHasGone) {
  technical.arrived(*technical.press("a"), "09:41 began");
  EXPECT_EQ(view().technical, TechnicalLogView{}) << "nor is another there";
  board.jobs = {cameAt("b", 2)};
  EXPECT_EQ(view().technical, (TechnicalLogView{.job = "b", .button = kShowsLog}));
}

}  // namespace
}  // namespace vellix
