// What the worker did before the service started.
#include <cmath>

#include "clock.hpp"
#include "job_log.hpp"
#include "state.hpp"

namespace vellix::demo {

void State::openJobs() {
  Job sync;
  sync.id = "job-sync-0";
  sync.kind = "sync";
  sync.status = "done";
  sync.requested_by = kJorvas;
  sync.created = std::round(now_ - 2.1 * kHour);
  sync.started = *sync.created + 4000;
  sync.finished = *sync.created + 96000;
  sync.steps = stepsOf("sync");
  sync.summary = Summary{std::vector<std::string>{"Filed one proof from Halden"},
                         std::vector<std::string>{"A Small Cartography Text is new on the board"},
                         std::nullopt};
  sync.result = JobResult{1, std::nullopt, std::nullopt, 0.42};
  const FileDetail brought = detailOf("carto-text", std::nullopt).value_or(FileDetail{});
  remember(sync, {brought});
  sync_ = sync;

  const auto asked = [&](const char* id, double hoursAgo, double seconds,
                         std::vector<std::string> tickets) {
    Job job;
    job.id = id;
    job.kind = "report";
    job.requested_by = kRenny;
    job.created = std::round(now_ - hoursAgo * kHour);
    job.started = *job.created + 2000;
    job.finished = *job.started + seconds * 1000;
    job.args = JobArgs{std::move(tickets)};
    return job;
  };

  // The oldest first: each goes before what is there.
  Job made = asked("job-report-0", 23, 42, {"letter-cover"});
  made.status = "done";
  made.steps = stepsOf("report");
  made.summary =
      Summary{std::vector<std::string>{"Made a report on one ticket"}, std::nullopt, std::nullopt};
  const std::string link = "https://drive.tessarine.example/f/report-0";
  made.result = JobResult{std::nullopt, "report-0", link, 0.08};
  const FileDetail detail = detailOf("letter-cover", std::nullopt).value_or(FileDetail{});
  remember(made, {detail});
  pdfs_["report-0"] =
      reportPdf(reportOn({detail}), [this](const std::string& key) { return pictures_.find(key); });
  reports_.push_back({"report-0",
                      made.id,
                      {"letter-cover"},
                      "The Long Letter Cover report",
                      static_cast<Int>(pdfs_["report-0"].size()),
                      link,
                      kRenny,
                      *made.finished});
  jobs_.insert(jobs_.begin(), std::move(made));

  Job failed = asked("job-report-f", 7, 15, {"bread-text"});
  failed.status = "failed";
  failed.steps = {"Gathering findings", "Fetching pages", "Drawing pages"};
  failed.summary =
      Summary{std::nullopt, std::nullopt,
              std::vector<std::string>{"The Drive folder of PO 7811 takes no more files."}};
  remember(failed, {detailOf("bread-text", std::nullopt).value_or(FileDetail{})});
  jobs_.insert(jobs_.begin(), std::move(failed));

  Job stuck = asked("job-report-s", 5, 0, {"carto-jacket"});
  stuck.status = "stuck";
  stuck.finished.reset();
  stuck.beat = stuck.started;
  stuck.step = "Gathering findings";
  stuck.steps = {"Gathering findings"};
  remember(stuck, {detailOf("carto-jacket", std::nullopt).value_or(FileDetail{})});
  jobs_.insert(jobs_.begin(), std::move(stuck));
}

// Writes the log of a job as it ran, its steps evenly over its time.
void State::remember(const Job& job, const std::vector<FileDetail>& tickets) {
  const double start = job.started.value_or(now_);
  const double end = job.finished.value_or(start);
  const std::size_t steps = job.steps->size();
  std::string& log = logs_[job.id];
  log = logHead(job, start);
  for (std::size_t step = 0; step < steps; ++step) {
    const double share = static_cast<double>(step) / static_cast<double>(steps);
    log += logOfStep(job, step, tickets, start + share * (end - start));
  }
  log += logEnd(job, end);
}

}  // namespace vellix::demo
