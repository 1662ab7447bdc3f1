// When a report will be there.
#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "store/store_test.hpp"

namespace vellix {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();

class ReportEstimates : public StoreTest {
 protected:
  double now() { return wireOf(desk.time.now()); }
  // A job that lasted so many seconds.
  Job lasted(double seconds, std::string status = "done", std::string kind = "report") {
    Job job = jobOf(std::move(status), std::move(kind));
    job.started = 1'000'000;
    job.finished = *job.started + seconds * 1000;
    return job;
  }
  void showJobs(std::vector<Job> jobs) {
    BoardState board = store().board().value_or(boardOf({}));
    board.jobs = std::move(jobs);
    store().board.set(board);
  }
  void showSync(Job sync) {
    BoardState board = store().board().value_or(boardOf({}));
    board.sync = std::move(sync);
    store().board.set(board);
  }
  std::string told(const Job& job) { return store().reportEstimate(job, desk.time.now()); }
  // Of a report that runs and has so many seconds left of the usual 75.
  std::string toldOf(double left) {
    Job job = jobOf("running");
    job.started = now() - (75 - left) * 1000;
    return told(job);
  }
};

struct Past {
  const char* name;
  std::vector<double> lasted;
  double typical;
};
BOOST_DESCRIBE_STRUCT(Past, (), (name, lasted, typical))

class TypicalReports : public ReportEstimates, public testing::WithParamInterface<Past> {};

TEST_P(TypicalReports, AreTheUpperMedian) {
  std::vector<Job> jobs;
  for (const double seconds : GetParam().lasted) jobs.push_back(lasted(seconds));
  showJobs(jobs);
  EXPECT_EQ(store().typicalReportSeconds(), GetParam().typical);
}

INSTANTIATE_TEST_SUITE_P(All, TypicalReports,
                         testing::Values(Past{"None", {}, 75}, Past{"One", {12.5}, 12.5},
                                         Past{"Two", {40, 80}, 80}, Past{"Twenty", {20, 10}, 20},
                                         Past{"Three", {120, 40, 80}, 80},
                                         Past{"Four", {4, 3, 2, 1}, 3}),
                         [](const auto& each) { return each.param.name; });

TEST_F(ReportEstimates, KnowNothingWithoutABoard) { EXPECT_EQ(store().typicalReportSeconds(), 75); }

TEST_F(ReportEstimates, CountOnlyReportsThatWereDoneAndTimed) {
  Job unbegun = lasted(10);
  unbegun.started.reset();
  Job unended = lasted(10);
  unended.finished.reset();
  showJobs({lasted(10, "failed"), lasted(10, "running"), lasted(10, "done", "sync"), lasted(0),
            lasted(-10), unbegun, unended});
  EXPECT_EQ(store().typicalReportSeconds(), 75);
}

struct Wording {
  double left;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(Wording, (), (left, text))

class ReportWordings : public ReportEstimates, public testing::WithParamInterface<Wording> {};

TEST_P(ReportWordings, GoByTheSecondsLeft) { EXPECT_EQ(toldOf(GetParam().left), GetParam().text); }

INSTANTIATE_TEST_SUITE_P(
    All, ReportWordings,
    testing::Values(Wording{-4'000, "Almost ready…"}, Wording{0, "Almost ready…"},
                    Wording{5, "Almost ready…"}, Wording{5.001, "Ready in about 10 sec"},
                    Wording{6, "Ready in about 10 sec"}, Wording{9.999, "Ready in about 10 sec"},
                    Wording{10, "Ready in about 10 sec"}, Wording{10.1, "Ready in about 15 sec"},
                    Wording{40, "Ready in about 40 sec"}, Wording{54.9, "Ready in about 55 sec"},
                    Wording{55, "Ready in about 1 min"}, Wording{75, "Ready in about 1 min"},
                    Wording{89, "Ready in about 1 min"}, Wording{90, "Ready in about 2 min"},
                    Wording{600, "Ready in about 10 min"}));

TEST_F(ReportEstimates, BearAnyTime) {
  Job job = jobOf("running");
  for (const auto& [started, text] : {std::pair{-1e300, "Almost ready…"},
                                      {-kInfinite, "Almost ready…"},
                                      {std::nan(""), "Almost ready…"},
                                      {1e300, "Ready in about 16666666667 min"},
                                      {kInfinite, "Ready in about 16666666667 min"}}) {
    job.started = started;
    EXPECT_EQ(told(job), text) << started;
  }
}

TEST_F(ReportEstimates, BearAnyTimeOfTheSync) {
  for (const auto& [started, text] :
       {std::pair{-1e300, "After the sync. Ready in about 2 min"},
        {-kInfinite, "After the sync. Ready in about 2 min"},
        {std::nan(""), "After the sync. Almost ready…"},
        {kInfinite, "After the sync. Ready in about 16666666667 min"}}) {
    Job sync = jobOf("running", "sync");
    sync.started = started;
    showSync(sync);
    EXPECT_EQ(told(jobOf("queued")), text) << started;
  }
}

TEST_F(ReportEstimates, BearAnyLengthOfThePast) {
  Job endless = lasted(10);
  endless.started = -kInfinite;
  Job unknown = lasted(10);
  unknown.finished = std::nan("");
  showJobs({endless, unknown});
  EXPECT_EQ(store().typicalReportSeconds(), kInfinite);
  EXPECT_EQ(told(jobOf("queued")), "Ready in about 16666666667 min");
}

TEST_F(ReportEstimates, NeverCountUpwards) {
  Job job = jobOf("running");
  job.started = now();
  std::vector<std::string> texts;
  for (int second = 0; second < 200; ++second) {
    const std::string text = store().reportEstimate(job, momentOf(*job.started + second * 1000.0));
    if (texts.empty() || texts.back() != text) texts.push_back(text);
  }
  EXPECT_THAT(texts, testing::ElementsAre(
                         "Ready in about 1 min", "Ready in about 55 sec", "Ready in about 50 sec",
                         "Ready in about 45 sec", "Ready in about 40 sec", "Ready in about 35 sec",
                         "Ready in about 30 sec", "Ready in about 25 sec", "Ready in about 20 sec",
                         "Ready in about 15 sec", "Ready in about 10 sec", "Almost ready…"));
}

TEST_F(ReportEstimates, BeginWithTheWholeWhileNobodySaysWhenItBegan) {
  EXPECT_EQ(told(jobOf("running")), "Ready in about 1 min");
  showJobs({lasted(30)});
  EXPECT_EQ(told(jobOf("running")), "Ready in about 30 sec");
}

struct Queue {
  const char* name;
  std::optional<const char*> sync;
  std::optional<double> startedAgo;  // seconds
  std::optional<double> createdAgo;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(Queue, (), (name, sync, startedAgo, createdAgo, text))

class QueuedReports : public ReportEstimates, public testing::WithParamInterface<Queue> {};

TEST_P(QueuedReports, WaitForTheSyncThatRuns) {
  const auto& each = GetParam();
  if (each.sync) {
    Job sync = jobOf(*each.sync, "sync");
    if (each.startedAgo) sync.started = now() - *each.startedAgo * 1000;
    if (each.createdAgo) sync.created = now() - *each.createdAgo * 1000;
    showSync(sync);
  }
  Job queued = jobOf("queued");
  queued.started = now() - 70'000;  // left from an earlier try, and no help
  EXPECT_EQ(told(queued), each.text);
}

constexpr const char* kOneMinute = "Ready in about 1 min";

INSTANTIATE_TEST_SUITE_P(
    All, QueuedReports,
    testing::Values(
        Queue{"NoSync", {}, {}, {}, kOneMinute}, Queue{"Queued", "queued", 400, {}, kOneMinute},
        Queue{"Done", "done", 400, {}, kOneMinute}, Queue{"Failed", "failed", 400, {}, kOneMinute},
        Queue{"Stopped", "stopped", 400, {}, kOneMinute},
        Queue{"Stuck", "stuck", 400, {}, kOneMinute},
        Queue{"Running", "running", 400, {}, "After the sync. Ready in about 3 min"},
        // The sync is taken to last another minute at the least: from here on it stays at that.
        Queue{"RunningForSevenMinutes", "running", 420, {}, "After the sync. Ready in about 2 min"},
        Queue{"JustBegun", "running", 0, {}, "After the sync. Ready in about 9 min"},
        Queue{"RunningForLong", "running", 900, {}, "After the sync. Ready in about 2 min"},
        Queue{"KnownByItsCreation", "running", {}, 400, "After the sync. Ready in about 3 min"},
        Queue{"ByTheStartFirst", "running", 400, 900, "After the sync. Ready in about 3 min"},
        Queue{"KnownByNothing", "running", {}, {}, "After the sync. Ready in about 9 min"}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
