// What the worker did before the service started.
#include <cmath>

#include "clock.hpp"
#include "report_pdf.hpp"
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
  sync.steps = {"Reading supplier mail", "Filing to Drive", "Checking pages",
                "Writing what was found"};
  sync.summary = Summary{std::vector<std::string>{"Filed one proof from Halden"},
                         std::vector<std::string>{"A Small Cartography Text is new on the board"},
                         std::nullopt};
  sync.result = JobResult{1, std::nullopt, std::nullopt, 0.42};
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
  made.steps = {"Gathering findings", "Drawing pages", "Writing the report"};
  made.summary =
      Summary{std::vector<std::string>{"Made a report on one ticket"}, std::nullopt, std::nullopt};
  const std::string link = "https://drive.tessarine.example/f/report-0";
  made.result = JobResult{std::nullopt, "report-0", link, 0.08};
  const FileDetail detail = detailOf("letter-cover", std::nullopt).value_or(FileDetail{});
  pdfs_["report-0"] = reportPdf("The Long Letter Cover report", {detail});
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
  failed.steps = {"Gathering findings", "Drawing pages"};
  failed.summary =
      Summary{std::nullopt, std::nullopt,
              std::vector<std::string>{"The Drive folder of PO 7811 takes no more files."}};
  jobs_.insert(jobs_.begin(), std::move(failed));

  Job stuck = asked("job-report-s", 5, 0, {"carto-jacket"});
  stuck.status = "stuck";
  stuck.finished.reset();
  stuck.beat = stuck.started;
  stuck.step = "Gathering findings";
  stuck.steps = {"Gathering findings"};
  jobs_.insert(jobs_.begin(), std::move(stuck));
}

}  // namespace vellix::demo
