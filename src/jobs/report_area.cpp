#include "jobs/report_area.hpp"

#include <algorithm>

#include "gateway/url.hpp"
#include "jobs/job_block.hpp"
#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

using Ids = std::set<std::string>;

Ids idsOf(const std::vector<const FileItem*>& files) {
  Ids ids;
  for (const FileItem* file : files) ids.insert(file->id);
  return ids;
}

// The first job on just these tickets, whatever became of it.
const Job* reportJob(const Store& store, const Ids& ids) {
  if (!store.board() || ids.empty()) return nullptr;
  for (const Job& job : store.board()->jobs) {
    if (!job.args || !job.args->file_ids) continue;
    const auto& asked = *job.args->file_ids;
    if (Ids(asked.begin(), asked.end()) == ids) return &job;
  }
  return nullptr;
}

std::string warningOf(const Job* job) {
  if (!job || (job->status != "failed" && job->status != "stuck")) return {};
  if (job->summary && job->summary->check && !job->summary->check->empty() &&
      hasWords(job->summary->check->front())) {
    return job->summary->check->front();
  }
  return "The last report didn't finish.";
}

// Of one ticket any that tells of it too; of several the one on just these.
const Report* newestReport(const Store& store, const Ids& ids) {
  if (!store.board() || ids.empty()) return nullptr;
  const bool several = store.selection().size() > 1;
  const auto isIt = [&](const Report& report) {
    const Ids told(report.file_ids.begin(), report.file_ids.end());
    return several ? told == ids : told.contains(*ids.begin());
  };
  const auto found = std::ranges::find_if(store.board()->reports, isIt);
  return found == store.board()->reports.end() ? nullptr : &*found;
}

std::string madeBy(const Store& store, const Report& report, const Calendar& calendar) {
  std::string text = "Report by " + displayName(store, report.by);
  if (report.at) text += " · " + calendar.monthAndDay(momentOf(*report.at));
  return text;
}

}  // namespace

std::vector<const FileItem*> selectedFiles(const Store& store) {
  std::vector<const FileItem*> selected;
  if (!store.board()) return selected;
  const auto& files = store.board()->files;
  std::set<std::size_t> places;
  for (const std::string& id : store.selection()) places.insert(files.placeOf(id));
  for (const std::size_t place : places) {
    if (place < files.size()) selected.push_back(&files[place]);
  }
  return selected;
}

ReportAreaView reportArea(const Store& store, Moment now, const Calendar& calendar) {
  const auto files = selectedFiles(store);
  ReportAreaView view;
  view.canMake = canMakeReport(store);
  const Ids ids = idsOf(files);
  const Job* job = reportJob(store, ids);
  if (job && job->active()) {
    view.working = true;
    view.progress = store.reportEstimate(*job, now);
    view.stopping = isBeingStopped(store, *job);
  }
  view.warning = warningOf(job);
  const Report* report = newestReport(store, ids);
  if (store.selection().size() > 1) {
    view.button = "Make one report";
    view.open = openReportView(store, report, calendar);
    return view;
  }
  view.button = report ? "New report" : "Make report";
  if (!report) return view;
  view.open = openReportView(store, report, "Open the report");
  view.made = madeBy(store, *report, calendar);
  if (report->drive_link && isLinkTarget(*report->drive_link)) view.driveLink = *report->drive_link;
  return view;
}

bool canMakeReport(const Store& store) {
  const auto files = selectedFiles(store);
  const Job* job = reportJob(store, idsOf(files));
  return !files.empty() && !store.busy().contains("report") && !(job && job->active());
}

void makeReport(Store& store) {
  if (!canMakeReport(store)) return;
  std::vector<std::string> ids;
  for (const FileItem* file : selectedFiles(store)) ids.push_back(file->id);
  store.requestReport(std::move(ids));
}

void openShownReport(Store& store) {
  const Report* report = newestReport(store, idsOf(selectedFiles(store)));
  if (report) openReport(store, report->id);
}

void stopReport(Store& store) {
  const Job* job = reportJob(store, idsOf(selectedFiles(store)));
  if (job && job->active() && !isBeingStopped(store, *job)) store.stopJob(*job);
}

}  // namespace vellix
