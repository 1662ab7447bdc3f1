#include "jobs/claude_log.hpp"

#include <algorithm>
#include <limits>
#include <string_view>

#include "pieces/shown_text.hpp"
#include "records/friendly_time.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

using Jobs = std::vector<const Job*>;

// All that the panel tells of.
Jobs listedJobs(const BoardState& board) {
  Jobs listed;
  if (board.sync) listed.push_back(&*board.sync);
  for (const Job& job : board.jobs) {
    if (job.kind == "report") listed.push_back(&job);
  }
  return listed;
}

// One without any time is the oldest.
double cameAt(const Job& job) {
  constexpr double kLongAgo = -std::numeric_limits<double>::infinity();
  const double at = job.created.value_or(job.started.value_or(job.finished.value_or(kLongAgo)));
  return at == at ? at : kLongAgo;
}

// There is one button for the log, and whoever needs it mostly asks what became of the last thing
// that was asked of the worker: so it belongs to the newest job, by when it was asked for, and of
// two that are as new to the first in the list. But what is being read does not go away because
// somebody asks for something meanwhile: as long as the job of an open log is listed, it is that
// one.
const Job* jobOfLog(const Jobs& listed, const std::string& open) {
  Jobs named;
  std::ranges::copy_if(listed, std::back_inserter(named),
                       [](const Job* job) { return !job->id.empty(); });
  const auto kept = std::ranges::find(named, open, &Job::id);
  if (kept != named.end()) return *kept;
  const auto newest =
      std::ranges::max_element(named, {}, [](const Job* job) { return cameAt(*job); });
  return newest == named.end() ? nullptr : *newest;
}

TechnicalLogView technicalView(const Jobs& listed, const TechnicalLog& technical) {
  const Job* job = jobOfLog(listed, technical.job());
  if (!job) return {};
  const bool its = technical.job() == job->id;
  TechnicalLogView view{.job = job->id,
                        .button = "Technical log (for Renny)",
                        .loading = its && technical.loading(),
                        .shown = its && technical.text()};
  if (view.shown) {
    view.button = "Hide the technical log";
    // Why it failed stands at the end.
    view.text = shownFrom(*technical.text(), kMostShown);
  }
  return view;
}

// Null when the board tells of none.
const Report* reportOf(const Store& store, const Job& job) {
  const auto& reports = store.board()->reports;
  if (!job.result || !job.result->report_id) return nullptr;
  const auto report = std::ranges::find(reports, *job.result->report_id, &Report::id);
  return report == reports.end() ? nullptr : &*report;
}

ReportRowView rowOf(const Store& store, const Job& job, Moment now, const Calendar& calendar) {
  ReportRowView row{.key = job.id, .icon = "xmark.circle", .title = "Didn't finish", .tone = "red"};
  if (job.status == "done") {
    row.icon = "checkmark.circle";
    row.title = "Done";
    row.tone = "green";
  } else if (job.status == "stopped") {
    row.icon = "checkmark.circle";
    row.title = "Stopped";
    row.tone = "gray";
  }
  row.open = openReportView(store, reportOf(store, job), calendar);
  if (job.finished) row.when = friendlyTime(momentOf(*job.finished), now, calendar);
  row.who = displayName(store, job.requested_by);
  row.spoken = row.title + (row.when.empty() ? "" : ", " + row.when) + ", " + row.who;
  return row;
}

}  // namespace

ClaudeLogView claudeLog(const Store& store, const TechnicalLog& technical, Moment now,
                        const Calendar& calendar) {
  ClaudeLogView view{.busy = store.anyJobActive()};
  const auto& board = store.board();
  if (!board) return view;
  if (board->sync) {
    view.sync = jobBlock(store, *board->sync, "Sync", now, calendar);
    if (!standsOpen(*board->sync)) view.syncHeading = "Last sync";
  }
  for (const Job& job : board->jobs) {
    if (job.kind != "report") continue;
    // One that is stuck may go on yet: it is told of by its block, and not as ended as well.
    if (standsOpen(job)) {
      view.running.push_back(jobBlock(store, job, "Make report", now, calendar));
    } else {
      view.reports.push_back(rowOf(store, job, now, calendar));
    }
  }
  if (!view.reports.empty()) view.reportsHeading = "Reports";
  view.technical = technicalView(listedJobs(*board), technical);
  return view;
}

}  // namespace vellix
