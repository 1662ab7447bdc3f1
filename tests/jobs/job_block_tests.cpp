// One job, in line, at work, stuck or ended.
#include "jobs/job_block.hpp"

#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Words = std::vector<std::string>;

constexpr const char* kTeva = "teva@tessarine.example";

class JobBlocks : public StoreTest {
 protected:
  JobBlocks() {
    board = boardOf({});
    board.users = {Person{.email = kTeva, .name = "Teva Aldous"}};
    publish();
  }
  void publish() { store().board.set(board); }
  double minutesAgo(double minutes) { return wireOf(desk.time.now()) - minutes * 60'000; }
  JobBlockView view(const Job& job, std::string_view action = "Sync") {
    return jobBlock(store(), job, action, desk.time.now(), desk.calendar);
  }
  ResultBlockView result(const Job& job) {
    return resultBlock(store(), job, desk.time.now(), desk.calendar);
  }
  std::string footer(const Job& job) { return view(job).footer; }

  BoardState board;
};

struct KindCase {
  const char* name;
  const char* status;
  std::optional<const char*> step;
  const char* kind;
  const char* icon;
  const char* tone;
  const char* title;
  const char* line;
  const char* stopKey;
};
BOOST_DESCRIBE_STRUCT(KindCase, (), (name, status, step, kind, icon, tone, title, line, stopKey))

class JobBlockKinds : public JobBlocks, public testing::WithParamInterface<KindCase> {};

TEST_P(JobBlockKinds, FollowTheStatus) {
  const auto& each = GetParam();
  Job job = jobOf(each.status);
  job.steps = Words{"Opened the mail"};
  if (each.step) job.step = *each.step;
  const JobBlockView shown = view(job);
  EXPECT_EQ(shown.key, "j");
  EXPECT_EQ(shown.kind, each.kind);
  EXPECT_EQ(shown.icon, each.icon);
  EXPECT_EQ(shown.tone, each.tone);
  EXPECT_EQ(shown.title, each.title);
  EXPECT_EQ(shown.line, each.line);
  EXPECT_EQ(shown.stopKey, each.stopKey);
  EXPECT_FALSE(shown.stopping);
  const bool running = std::string{"running"} == each.kind;
  EXPECT_EQ(shown.steps.rows.size(), running ? 1U : 0U);
  EXPECT_EQ(shown.footer.empty(), !running);
  EXPECT_EQ(shown.result.title.empty(), std::string{"result"} != each.kind);
}

constexpr const char* kWaiting = "Waiting for the Mac mini";
constexpr const char* kWarning = "exclamationmark.triangle.fill";
constexpr const char* kStuckTitle = "The Mac mini stopped answering";
constexpr const char* kStuckLine =
    "It may be asleep or off Wi-Fi. Press Sync to try again, or Stop.";
constexpr std::nullopt_t kUntold = std::nullopt;

KindCase ended(const char* name, const char* status) {
  return {name, status, "Filing", "result", "", "", "", "", ""};
}

INSTANTIATE_TEST_SUITE_P(
    All, JobBlockKinds,
    testing::Values(
        KindCase{"Queued", "queued", kUntold, "queued", "", "", "In line", kWaiting, ""},
        KindCase{"QueuedWithAStep", "queued", "After mail", "queued", "", "", "In line",
                 "After mail", ""},
        KindCase{"QueuedWithABlankStep", "queued", " ", "queued", "", "", "In line", kWaiting, ""},
        KindCase{"Running", "running", kUntold, "running", "", "", "", "", "stop-j"},
        KindCase{"RunningWithAStep", "running", "Filing", "running", "", "", "", "Filing",
                 "stop-j"},
        KindCase{"RunningWithABlankStep", "running", " ", "running", "", "", "", "", "stop-j"},
        KindCase{"Stuck", "stuck", kUntold, "stuck", kWarning, "orange", kStuckTitle, kStuckLine,
                 "stop-j"},
        KindCase{"StuckWithAStep", "stuck", "Filing", "stuck", kWarning, "orange", kStuckTitle,
                 kStuckLine, "stop-j"},
        ended("Done", "done"), ended("Failed", "failed"), ended("Stopped", "stopped"),
        ended("Empty", ""), ended("KnownByAnotherCase", "Running"), ended("Unknown", "paused")),
    [](const auto& each) { return each.param.name; });

TEST_F(JobBlocks, NameTheButtonToPressAgain) {
  EXPECT_EQ(view(jobOf("stuck"), "Make report").line,
            "It may be asleep or off Wi-Fi. Press Make report to try again, or Stop.");
}

TEST_F(JobBlocks, KnowWhetherTheirOwnJobIsBeingStopped) {
  store().busy.set({"stop-other", "sync"});
  EXPECT_FALSE(view(jobOf("running")).stopping);
  store().busy.set({"stop-j"});
  EXPECT_TRUE(view(jobOf("running")).stopping);
  EXPECT_TRUE(view(jobOf("stuck")).stopping);
  EXPECT_FALSE(view(jobOf("queued")).stopping) << "nothing there that could tell";
  EXPECT_FALSE(view(jobOf("done")).stopping);
}

struct FooterCase {
  const char* name;
  std::optional<const char*> who;
  std::optional<double> started;  // minutes ago
  std::optional<double> created;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(FooterCase, (), (name, who, started, created, text))

class JobFooters : public JobBlocks, public testing::WithParamInterface<FooterCase> {};

TEST_P(JobFooters, TellWhoAndWhen) {
  const auto& each = GetParam();
  Job job = jobOf("running");
  if (each.who) job.requested_by = *each.who;
  if (each.started) job.started = minutesAgo(*each.started);
  if (each.created) job.created = minutesAgo(*each.created);
  EXPECT_EQ(footer(job), each.text);
}

INSTANTIATE_TEST_SUITE_P(
    All, JobFooters,
    testing::Values(FooterCase{"ByTheStart", kTeva, 3, 9, "Started by Teva · 3 min ago"},
                    FooterCase{"ByItsCreation", kTeva, kUntold, 9, "Started by Teva · 9 min ago"},
                    FooterCase{"ByNothing", kTeva, kUntold, kUntold, "Started by Teva · "},
                    FooterCase{"ByNobody", kUntold, 3, kUntold, "Started by Claude · 3 min ago"},
                    FooterCase{"ByAStranger", "olo@elsewhere.example", 0, kUntold,
                               "Started by Olo · just now"}),
    [](const auto& each) { return each.param.name; });

TEST_F(JobBlocks, SayYouToTheReader) {
  Job job = jobOf("running");
  job.requested_by = board.me.email;
  EXPECT_EQ(footer(job), "Started by You · ");
}

TEST_F(JobBlocks, ListTheStepsOfTheRunningJob) {
  Job job = jobOf("running");
  EXPECT_EQ(view(job).steps, StepsListView{});
  job.steps = Words{"1", " ", "2", "", "3", "4", "5"};
  EXPECT_EQ(view(job).steps, stepsList({"1", "2", "3", "4", "5"}, true))
      << "blank ones tell nothing";
}

struct EndCase {
  const char* name;
  const char* status;
  std::optional<Words> check;
  const char* icon;
  const char* title;
  const char* tone;
};
BOOST_DESCRIBE_STRUCT(EndCase, (), (name, status, check, icon, title, tone))

class ResultEnds : public JobBlocks, public testing::WithParamInterface<EndCase> {};

TEST_P(ResultEnds, TellWhatBecameOfIt) {
  const auto& each = GetParam();
  Job job = jobOf(each.status);
  job.summary = Summary{.check = each.check};
  const ResultBlockView shown = result(job);
  EXPECT_EQ(shown.icon, each.icon);
  EXPECT_EQ(shown.title, each.title);
  EXPECT_EQ(shown.tone, each.tone);
  EXPECT_EQ(view(job).result, shown);
}

EndCase failed(const char* name, const char* status, std::optional<Words> check) {
  return {name, status, std::move(check), "xmark.circle.fill", "Didn't finish", "red"};
}
INSTANTIATE_TEST_SUITE_P(
    All, ResultEnds,
    testing::Values(EndCase{"Done", "done", kUntold, "checkmark.circle.fill", "Done", "green"},
                    EndCase{"DoneWithNothingToCheck", "done", Words{}, "checkmark.circle.fill",
                            "Done", "green"},
                    EndCase{"DoneWithABlankCheck", "done", Words{" "}, "checkmark.circle.fill",
                            "Done", "green"},
                    EndCase{"DoneWithACheck", "done", Words{"p5"}, "exclamationmark.circle.fill",
                            "Needs a look", "orange"},
                    EndCase{"Stopped", "stopped", kUntold, "stop.circle.fill", "Stopped", "muted"},
                    EndCase{"StoppedWithACheck", "stopped", Words{"p5"}, "stop.circle.fill",
                            "Stopped", "muted"},
                    failed("Failed", "failed", kUntold),
                    failed("FailedWithACheck", "failed", Words{"p5"}),
                    failed("Unknown", "paused", kUntold), failed("Empty", "", kUntold)),
    [](const auto& each) { return each.param.name; });

TEST_F(JobBlocks, AreDoneWithoutASummary) {
  const ResultBlockView shown = result(jobOf("done"));
  EXPECT_EQ(shown,
            (ResultBlockView{.icon = "checkmark.circle.fill", .title = "Done", .tone = "green"}));
}

TEST_F(JobBlocks, ListDoneThenChangedThenToCheck) {
  Job job = jobOf("failed");
  job.summary = Summary{.done = Words{"Read 3 mails", "", "Filed 2"},
                        .changed = Words{"Moved one"},
                        .check = Words{"No PDF", " "}};
  const auto line = [](const char* key, const char* text, const char* icon, const char* tone) {
    return ResultLineView{.key = key, .text = text, .icon = icon, .tone = tone};
  };
  EXPECT_THAT(result(job).lines, ElementsAre(line("0", "Read 3 mails", "checkmark", "green"),
                                             line("1", "Filed 2", "checkmark", "green"),
                                             line("2", "Moved one", "folder", "muted"),
                                             line("3", "No PDF", "exclamationmark", "orange")));
}

TEST_F(JobBlocks, SayWhenAndForWhomTheyEnded) {
  Job job = jobOf("done");
  job.started = job.created = minutesAgo(20);
  EXPECT_EQ(result(job).finished, "");
  EXPECT_EQ(result(job).by, "");
  job.finished = minutesAgo(12);
  job.requested_by = kTeva;
  EXPECT_EQ(result(job).finished, "12 min ago");
  EXPECT_EQ(result(job).by, "By Teva");
  job.requested_by = " ";
  EXPECT_EQ(result(job).by, "");
}

class JobStops : public JobBlocks {
 protected:
  static Job named(std::string id, std::string status, std::string kind = "report") {
    Job job = jobOf(std::move(status), std::move(kind));
    job.id = std::move(id);
    return job;
  }
};

TEST_F(JobStops, GoToTheJobAsTheBoardHasIt) {
  board.sync = named("s", "stuck", "sync");
  board.jobs = {named("a", "running"), named("b", "queued"), named("c", "done")};
  publish();
  for (const char* id : {"s", "a", "a", "b", "c", "gone", ""}) stopJob(store(), id);
  desk.time.run();
  EXPECT_THAT(lines(),
              ElementsAre("POST api/jobs/s/stop", "POST api/jobs/a/stop", "POST api/jobs/b/stop"));
}

TEST_F(JobStops, FindTheOpenOneAmongJobsOfOneId) {
  board.sync = named("a", "done", "sync");
  board.jobs = {named("a", "done"), named("a", "running")};
  publish();
  stopJob(store(), "a");
  desk.time.run();
  EXPECT_THAT(lines(), ElementsAre("POST api/jobs/a/stop"));
}

TEST_F(JobStops, DoNothingWithoutABoard) {
  store().board.set(std::nullopt);
  stopJob(store(), "a");
  desk.time.run();
  EXPECT_THAT(lines(), IsEmpty());
}

}  // namespace
}  // namespace vellix
