// The worker's jobs: through their steps to every end there is, and what is written down of them.
#include <algorithm>

#include "demo_service.hpp"

namespace vellix::demo_tests {
namespace {

constexpr const char* kSync = R"({"kind":"sync"})";
constexpr const char* kReport = R"({"kind":"report","file_ids":["letter-cover"]})";

class Worker : public DemoService {
 protected:
  void SetUp() override {
    DemoService::SetUp();
    worker(R"({"hold":"","fail":"","silent":false})");
  }
  void TearDown() override {
    worker(R"({"hold":"","fail":"","silent":false})");
    EXPECT_TRUE(eventually([](const BoardState& now) {
      return !(now.sync && now.sync->active()) && std::ranges::none_of(now.jobs, &Job::active);
    }));
    DemoService::TearDown();
  }
  void worker(const std::string& how) { ASSERT_EQ(statusOf(post("/demo/worker", how)), 200); }
  // Asks for a job; it, as the board tells it first.
  Job asked(const std::string& body) {
    EXPECT_EQ(statusOf(post("/api/jobs", body)), 200) << body;
    const BoardState now = board();
    return body == kSync ? now.sync.value_or(Job{}) : now.jobs.front();
  }
  Job now(const std::string& id) {
    const BoardState all = board();
    if (all.sync && all.sync->id == id) return *all.sync;
    const auto found = std::ranges::find(all.jobs, id, &Job::id);
    return found == all.jobs.end() ? Job{} : *found;
  }
  Job onceIt(const std::string& id, const std::string& status) {
    EXPECT_TRUE(eventually([&](const BoardState&) { return now(id).status == status; }))
        << status << ", but it is " << now(id).status;
    return now(id);
  }
  Job onceAt(const std::string& id, const std::string& step) {
    EXPECT_TRUE(eventually([&](const BoardState&) { return now(id).step == step; })) << step;
    return now(id);
  }
  int stop(const std::string& id) { return statusOf(post("/api/jobs/" + id + "/stop", "{}")); }
  std::string logOf(const std::string& id) {
    const auto answer = get("/api/jobs/" + id);
    const auto json = decodeJson(answer ? answer->body : "");
    const Json* log = json ? json->find("log") : nullptr;
    return log != nullptr && log->text() != nullptr ? *log->text() : std::string();
  }
};

using Texts = std::vector<std::string>;

TEST_F(Worker, TakesASyncThroughItsStepsToWhatIsToCheck) {
  worker(R"({"hold":"queued"})");
  const Job first = asked(kSync);
  EXPECT_EQ(first.status, "queued");
  EXPECT_EQ(first.requested_by, "renny@tessarine.example");
  EXPECT_TRUE(first.created);
  EXPECT_FALSE(first.started || first.step || first.steps || first.finished);
  EXPECT_EQ(statusOf(post("/api/jobs", kSync)), 400) << "one at a time";

  worker(R"({"hold":"Writing what was found"})");
  const Job at = onceAt(first.id, "Writing what was found");
  EXPECT_EQ(at.status, "running");
  ASSERT_EQ(at.steps->size(), 6U);
  EXPECT_EQ(at.steps->back(), *at.step);
  EXPECT_GE(*at.started, *at.created);
  EXPECT_GE(*at.beat, *at.started);
  EXPECT_FALSE(at.finished || at.summary);

  worker(R"({"hold":""})");
  const Job done = onceIt(first.id, "done");
  EXPECT_FALSE(done.step);
  EXPECT_EQ(done.steps->size(), 7U);
  EXPECT_GE(*done.finished, *done.started);
  EXPECT_EQ(done.result->new_files, 1);
  EXPECT_GT(*done.result->cost, 0);
  EXPECT_EQ(done.summary->done, Texts{"Read the supplier mail: 1 new proof"});
  EXPECT_EQ(done.summary->changed,
            (Texts{"Filed to Drive under PO 7744", "The Long Letter Jacket is new on the board"}));
  EXPECT_EQ(done.summary->check, Texts{"The Long Letter Jacket: The barcode reads another number"});

  const Job second = onceIt(asked(kSync).id, "done");
  EXPECT_EQ(second.summary->done, Texts{"Read the supplier mail. Nothing new."});
  EXPECT_FALSE(second.summary->changed || second.summary->check);
  EXPECT_EQ(second.result->new_files, 0);
}

TEST_F(Worker, TellsWhatAReportHolds) {
  const Job done = onceIt(asked(kReport).id, "done");
  EXPECT_EQ(done.steps->size(), 6U);
  EXPECT_EQ(done.summary->done,
            (Texts{"Made a report on The Long Letter Cover", "Marked 2 real issues"}));
  EXPECT_EQ(done.summary->changed, Texts{"Filed to Drive under PO 7744"});
  EXPECT_FALSE(done.summary->check);
  const Report report = board().reports.front();
  EXPECT_EQ(report.job_id, done.id);
  EXPECT_EQ(done.result->report_id, report.id);
  EXPECT_EQ(done.result->drive_link, report.drive_link);

  const Job several =
      onceIt(asked(R"({"kind":"report","file_ids":["letter-cover","bread-jacket"]})").id, "done");
  EXPECT_EQ(several.summary->check, Texts{"Winter Bread Jacket has no pages to draw"});
  EXPECT_EQ(board().reports.front().title, "2 tickets report");
  const Job none = onceIt(asked(R"({"kind":"report","file_ids":["bread-jacket"]})").id, "failed");
  EXPECT_EQ(none.summary->check, Texts{"There is no page to report on."});
}

TEST_F(Worker, DoesOneThingAfterTheOther) {
  worker(R"({"hold":"Comparing pages"})");
  const Job sync = asked(kSync);
  onceAt(sync.id, "Comparing pages");
  const Job report = asked(kReport);
  EXPECT_EQ(report.status, "queued");
  EXPECT_EQ(report.step, "Waiting for the sync to end");
  const Job next = asked(kReport);
  worker(R"({"hold":""})");
  const Job done = onceIt(report.id, "done");
  EXPECT_GE(*done.started, *now(sync.id).finished);
  EXPECT_GE(*onceIt(next.id, "done").started, *done.finished);
}

// As fast as they can be asked for, several share a moment.
TEST_F(Worker, TakesThemInTheOrderTheyWereAskedFor) {
  constexpr std::size_t kMany = 12;
  worker(R"({"hold":"queued"})");
  for (std::size_t i = 0; i < kMany; ++i) ASSERT_EQ(statusOf(post("/api/jobs", kReport)), 200);
  std::vector<Job> asked = board().jobs;
  asked.resize(kMany);
  std::ranges::reverse(asked);
  worker(R"({"hold":""})");
  std::vector<double> starts;
  starts.reserve(kMany);
  for (const Job& job : asked) starts.push_back(onceIt(job.id, "done").started.value_or(0));
  EXPECT_TRUE(std::ranges::is_sorted(starts));
}

TEST_F(Worker, FailsWithWhatItIsToldOnce) {
  for (const char* body : {kSync, kReport}) {
    worker(R"({"hold":"queued","fail":"The Drive folder of PO 7811 takes no more files."})");
    const Job job = asked(body);
    worker(R"({"hold":""})");
    const Job failed = onceIt(job.id, "failed");
    EXPECT_EQ(failed.summary->check, Texts{"The Drive folder of PO 7811 takes no more files."});
    EXPECT_FALSE(failed.summary->done || failed.result || failed.step);
    EXPECT_EQ(failed.steps->size(), 1U);
    EXPECT_TRUE(failed.finished);
    onceIt(asked(body).id, "done");
  }
}

TEST_F(Worker, GivesUpWhatItFallsSilentOver) {
  worker(R"({"hold":"Drawing pages"})");
  const Job running = asked(kReport);
  onceAt(running.id, "Drawing pages");
  const Job waiting = asked(R"({"kind":"report","file_ids":["salt-text"]})");
  worker(R"({"silent":true,"hold":""})");
  const Job stuck = onceIt(running.id, "stuck");
  EXPECT_EQ(stuck.step, "Drawing pages");
  EXPECT_FALSE(stuck.finished);
  onceIt(waiting.id, "stuck");
  const Job sync = onceIt(asked(kSync).id, "stuck");
  EXPECT_FALSE(sync.started) << "asked for while it is silent";

  worker(R"({"silent":false})");
  const Job again = asked(kSync);
  EXPECT_NE(again.id, sync.id) << "a stuck sync refuses no new one";
  onceIt(again.id, "done");
  EXPECT_EQ(now(running.id).status, "stuck") << "it is not taken up again by itself";
  onceIt(asked(kReport).id, "done");
  EXPECT_EQ(now(running.id).status, "failed");
  EXPECT_EQ(now(running.id).summary->check,
            Texts{"The Mac mini stopped answering. It was asked for again."});
  EXPECT_EQ(now(waiting.id).status, "stuck") << "of another ticket";
  EXPECT_EQ(stop(waiting.id), 200);
}

TEST_F(Worker, WakesBeforeItIsGivenUp) {
  worker(R"({"hold":"queued"})");
  const Job job = asked(kSync);
  worker(R"({"silent":true,"hold":""})");
  worker(R"({"silent":false})");
  onceIt(job.id, "done");
}

TEST_F(Worker, IsStoppedInEveryLiveState) {
  for (const char* body : {kSync, kReport}) {
    for (const std::string status : {"queued", "running", "stuck"}) {
      const bool early = status == "queued";
      worker(early           ? R"({"hold":"queued"})"
             : body == kSync ? R"({"hold":"Filing to Drive"})"
                             : R"({"hold":"Fetching pages"})");
      const Job job = asked(body);
      if (!early) onceIt(job.id, "running");
      if (status == "stuck") worker(R"({"silent":true})");
      onceIt(job.id, status);
      ASSERT_EQ(stop(job.id), 200) << body << status;
      const Job stopped = now(job.id);
      EXPECT_EQ(stopped.status, "stopped") << body << status;
      EXPECT_TRUE(stopped.finished) << body << status;
      EXPECT_FALSE(stopped.step) << body << status;
      EXPECT_EQ(stop(job.id), 400) << "it has ended";
      worker(R"({"hold":"","silent":false})");
      onceIt(asked(body).id, "done");
      EXPECT_EQ(now(job.id).status, body == kSync ? "" : "stopped");
    }
  }
  EXPECT_EQ(stop("job-none"), 404);
  EXPECT_EQ(statusOf(post("/demo/worker", R"({"hold":"Having tea"})")), 400);
}

TEST_F(Worker, WritesDownWhatItDoes) {
  worker(R"({"hold":"Gathering findings"})");
  const Job job = asked(kReport);
  onceAt(job.id, "Gathering findings");
  const std::string early = logOf(job.id);
  EXPECT_NE(early.find("step 1/6 Gathering findings"), std::string::npos) << early;
  EXPECT_NE(early.find("letter-cover: 2 issue, 0 fine, 0 open, 1 note"), std::string::npos);
  EXPECT_EQ(early.find("tokens"), std::string::npos);
  worker(R"({"hold":"Writing the report"})");
  onceAt(job.id, "Writing the report");
  const std::string later = logOf(job.id);
  EXPECT_TRUE(later.starts_with(early)) << "it only grows";
  EXPECT_NE(later.find(" tokens in, "), std::string::npos) << later;
  worker(R"({"hold":""})");
  onceIt(job.id, "done");
  const std::string whole = logOf(job.id);
  EXPECT_TRUE(whole.starts_with(later));
  EXPECT_NE(whole.find(job.id + " done after "), std::string::npos) << whole;
  for (const char* id : {"job-sync-0", "job-report-0", "job-report-f", "job-report-s"}) {
    EXPECT_NE(logOf(id).find("step 1/"), std::string::npos) << id;
  }
  EXPECT_EQ(statusOf(get("/api/jobs/job-none")), 404);
}

TEST_F(Worker, TellsNothingOfItWhenAskedTo) {
  const std::string path = R"({"method":"GET","path":"/api/jobs/job-sync-0",)";
  ASSERT_EQ(statusOf(post("/demo/faults", "[" + path + R"("status":200,"body":"{}"},)" + path +
                                              R"("status":500},)" + path + R"("held":true}])")),
            200);
  EXPECT_EQ(get("/api/jobs/job-sync-0")->body, "{}");
  EXPECT_EQ(statusOf(get("/api/jobs/job-sync-0")), 500);
  client_.set_read_timeout(0, 100'000);
  EXPECT_FALSE(get("/api/jobs/job-sync-0")) << "it is late";
}

}  // namespace
}  // namespace vellix::demo_tests
