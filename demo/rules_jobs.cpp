// The worker's jobs, reports, photos, and the other reviewer.
#include <algorithm>

#include "body.hpp"
#include "report_pdf.hpp"
#include "state.hpp"

namespace vellix::demo {
namespace {

constexpr double kQueue = 1'500;
constexpr double kStep = 1'800;
constexpr double kColleague = 50'000;

Done refuse(int status, std::string text) {
  return std::unexpected(Refusal{status, std::move(text)});
}

const std::vector<std::string>& stepsOf(const std::string& kind) {
  static const std::vector<std::string> sync = {"Reading supplier mail", "Filing to Drive",
                                                "Finding our files", "Comparing pages",
                                                "Writing what was found"};
  static const std::vector<std::string> report = {"Gathering findings", "Drawing pages",
                                                  "Writing the report"};
  return kind == "sync" ? sync : report;
}

}  // namespace

const Job* State::job(const std::string& id) const {
  if (sync_ && sync_->id == id) return &*sync_;
  const auto found = std::ranges::find(jobs_, id, &Job::id);
  return found == jobs_.end() ? nullptr : &*found;
}

Job* State::liveJob(const std::string& id) {
  Job* found = const_cast<Job*>(job(id));
  return found != nullptr && found->active() ? found : nullptr;
}

std::string State::logOf(const Job& job) const {
  std::string log = "job " + job.id + " (" + job.kind + ")\n";
  for (const std::string& step : job.steps.value_or(std::vector<std::string>{})) {
    log += "  " + step + "\n";
  }
  if (job.result && job.result->report_id) log += "  wrote report " + *job.result->report_id + "\n";
  return log + "status: " + job.status + "\n";
}

const std::string* State::pdfOf(const std::string& reportId) const {
  const auto found = pdfs_.find(reportId);
  return found == pdfs_.end() ? nullptr : &found->second;
}

Done State::startJob(const Json& body, const std::string& by) {
  const std::string kind = textAt(body, "kind").value_or("");
  if (kind != "sync" && kind != "report") return refuse(400, "There is no such job.");
  Job job;
  job.kind = kind;
  job.status = "queued";
  job.requested_by = by;
  job.created = now_;
  if (kind == "sync") {
    if (sync_ && sync_->active()) return refuse(400, "A sync is running already.");
    job.id = nextId("job-");
    sync_ = job;
    record(nullptr, "sync", by, "Started a sync");
  } else {
    const auto ids = textsAt(body, "file_ids");
    if (ids.empty()) return refuse(400, "A report needs at least one ticket.");
    for (const std::string& id : ids) {
      if (find(id) == nullptr) return refuse(404, "There is no such ticket.");
    }
    job.id = nextId("job-");
    job.args = JobArgs{ids};
    jobs_.insert(jobs_.begin(), job);
    record(ids.size() == 1 ? find(ids.front()) : nullptr, "report", by, "Asked for a report");
  }
  later(kQueue, [this, id = job.id] { stepJob(id, 0); });
  return {};
}

void State::stepJob(const std::string& id, std::size_t step) {
  Job* job = liveJob(id);
  if (job == nullptr) return;
  const auto& steps = stepsOf(job->kind);
  job->beat = now_;
  if (step == steps.size()) {
    finishJob(*job);
    return;
  }
  job->status = "running";
  if (!job->started) job->started = now_;
  job->step = steps[step];
  if (!job->steps) job->steps.emplace();
  job->steps->push_back(steps[step]);
  ++rev_;
  later(kStep, [this, id, step] { stepJob(id, step + 1); });
}

void State::finishJob(Job& job) {
  job.status = "done";
  job.finished = now_;
  job.step.reset();
  if (job.kind == "report") {
    finishReport(job);
    return;
  }
  Int brought = 0;
  for (Ticket& ticket : tickets_) {
    if (!ticket.waiting) continue;
    ticket.waiting = false;
    // It came in now, as far as anyone here can tell.
    ticket.item.received = now_;
    ticket.item.created = now_;
    ticket.item.due = dueOf(ticket.item);
    ticket.newest().record.at = now_;
    ticket.newest().origin.received = now_;
    record(&ticket, "new_file", std::nullopt,
           ticket.item.heading() + " came in from " + ticket.item.supplier.value_or("a supplier"));
    ++brought;
  }
  job.result = JobResult{brought, std::nullopt, std::nullopt, 0.31};
  Summary summary;
  summary.done = {brought == 0 ? "Read the supplier mail. Nothing new."
                               : "Filed one proof to Drive"};
  if (brought > 0) summary.changed = {"One new ticket is on the board"};
  job.summary = summary;
  record(nullptr, "synced", std::nullopt,
         brought == 0 ? "Synced. Nothing new." : "Synced. One new file.");
}

void State::finishReport(Job& job) {
  std::vector<FileDetail> details;
  for (const std::string& id :
       job.args.value_or(JobArgs{}).file_ids.value_or(std::vector<std::string>{})) {
    if (auto detail = detailOf(id, std::nullopt)) details.push_back(std::move(*detail));
  }
  Report report;
  report.id = nextId("report-");
  report.job_id = job.id;
  for (const FileDetail& detail : details) report.file_ids.push_back(detail.file.id);
  report.title = details.size() == 1 ? details.front().file.heading() + " report"
                                     : std::to_string(details.size()) + " tickets report";
  report.by = job.requested_by;
  report.at = now_;
  std::string& pdf = pdfs_[report.id];
  pdf = reportPdf(*report.title, details);
  report.size = static_cast<Int>(pdf.size());
  job.result = JobResult{std::nullopt, report.id, std::nullopt, 0.07};
  Summary summary;
  summary.done = {details.size() == 1
                      ? "Made a report on one ticket"
                      : "Made a report on " + std::to_string(details.size()) + " tickets"};
  job.summary = summary;
  reports_.insert(reports_.begin(), report);
  record(details.size() == 1 ? find(details.front().file.id) : nullptr, "report_ready",
         std::nullopt, "Report ready");
}

Done State::stopJob(const std::string& id, const std::string& by) {
  if (job(id) == nullptr) return refuse(404, "There is no such job.");
  Job* live = liveJob(id);
  if (live == nullptr) return refuse(400, "That job has ended.");
  live->status = "stopped";
  live->finished = now_;
  live->step.reset();
  record(nullptr, "stop", by, live->kind == "sync" ? "Stopped the sync" : "Stopped the report");
  return {};
}

Done State::setPhoto(std::string bytes, const std::string& by) {
  if (!bytes.starts_with("\xFF\xD8")) return refuse(400, "A photo is a JPEG.");
  const auto user = std::ranges::find(users_, by, &Person::email);
  if (user == users_.end()) return refuse(404, "Nobody here has that address.");
  user->photo = nextId("photos/") + ".jpg";
  pictures_.put(*user->photo, std::move(bytes));
  record(nullptr, "photo", by, "Changed their photo");
  return {};
}

Done State::colleagueActs(const std::string& fileId, const std::string& text,
                          const std::string& by) {
  Ticket* ticket = find(fileId);
  if (ticket == nullptr) return refuse(404, "There is no such ticket.");
  const auto user = std::ranges::find(users_, by, &Person::email);
  if (user == users_.end()) return refuse(404, "Nobody here has that address.");
  user->last_seen = now_;
  Note note;
  note.id = nextId("note-");
  note.file_id = fileId;
  note.page = 0;
  note.text = text;
  note.by = by;
  note.at = now_;
  ticket->notes.push_back({note, ticket->newest().record.n});
  record(ticket, "comment", by, text, 0);
  return {};
}

// Decides an open finding of the reprints now and then, or leaves a word about one.
void State::scheduleColleague() {
  later(kColleague, [this] {
    std::vector<std::pair<std::string, std::string>> open;  // ticket, finding
    for (const Ticket& ticket : tickets_) {
      if (ticket.waiting || ticket.item.assignee != kJorvas) continue;
      for (const Finding& finding : ticket.newest().findings) {
        if (finding.state == "open" && isReal(finding))
          open.emplace_back(ticket.item.id, finding.id);
      }
    }
    if (!open.empty()) {
      const auto& [ticket, finding] = open[colleague_() % open.size()];
      if (colleague_() % 2 == 0) {
        (void)colleagueActs(ticket, "I’ll ask the supplier about this one.", kJorvas);
      } else {
        (void)setFinding(finding, "issue", kJorvas);
      }
    }
    scheduleColleague();
  });
}

}  // namespace vellix::demo
