// What a job is about when the worker takes it up, and what it leaves when it is done.
#include <algorithm>
#include <set>

#include "check/compared.hpp"
#include "job_log.hpp"
#include "ready.hpp"
#include "report_pdf.hpp"
#include "state.hpp"
#include "texts.hpp"

namespace vellix::demo {
namespace {

constexpr std::size_t kMostChecks = 6;

Texts filed(const std::vector<FileDetail>& tickets) {
  std::set<std::string> orders;
  for (const FileDetail& detail : tickets) {
    // Somebody's own proof has no order.
    if (detail.file.po) orders.insert(*detail.file.po);
  }
  Texts lines;
  for (const std::string& po : orders) lines.push_back("Filed to Drive under PO " + po);
  return lines;
}

}  // namespace

void State::begin(Job& job) {
  job.status = "running";
  job.started = now_;
  job.steps.emplace();
  letGo();
  if (job.kind == "sync") {
    for (const Ticket& ticket : tickets_) {
      if (!ticket.waiting) continue;
      FileDetail detail{.file = itemOf(ticket), .findings = ticket.newest().findings};
      detail.file.pages = ticket.newest().pages;
      worker_.gathered.push_back(std::move(detail));
    }
  } else {
    const auto ids = job.args.value_or(JobArgs{}).file_ids.value_or(Texts{});
    for (const std::string& id : ids) {
      if (auto detail = detailOf(id, std::nullopt)) worker_.gathered.push_back(std::move(*detail));
    }
    worker_.pdf = std::async(std::launch::async, [this, asked = reportOn(worker_.gathered)] {
      return reportPdf(asked, [this](const std::string& key) { return pictures_.find(key); });
    });
  }
  logs_[job.id] = logHead(job, now_);
  if (job.kind == "sync" && holdsOwn() && worker_.gathered.empty()) {
    beginOwn();
  } else {
    nextStep(job);
  }
}

ReportAsked State::reportOn(const std::vector<FileDetail>& tickets) const {
  ReportAsked asked{tickets.size() == 1 ? tickets.front().file.heading() + " report"
                                        : std::to_string(tickets.size()) + " tickets report",
                    tickets,
                    {}};
  for (const Person& user : users_) asked.names[user.email] = user.firstName();
  for (const Guest& guest : approvers_) asked.names[guest.email] = nameOf(guest.email);
  return asked;
}

void State::goOnWithReport() {
  std::erase_if(worker_.dropped, [](const auto& pdf) { return ready(pdf); });
  if (worker_.silent || !worker_.waitsForPdf || !ready(worker_.pdf)) return;
  if (Job* job = runningJob(); job != nullptr) finishReport(*job);
}

void State::finishSync(Job& job) {
  std::size_t brought = 0;
  Texts changed = filed(worker_.gathered);
  Texts check;
  for (Ticket& ticket : tickets_) {
    if (!ticket.waiting) continue;
    ticket.waiting = false;
    // It came in now, as far as anyone here can tell.
    ticket.item.received = now_;
    ticket.item.created = now_;
    ticket.item.due = dueOf(ticket.item);
    ticket.newest().record.at = now_;
    ticket.newest().origin.received = now_;
    const std::string heading = ticket.item.heading();
    record(&ticket, "new_file", std::nullopt,
           heading + " came in from " + ticket.item.supplier.value_or("a supplier"));
    changed.push_back(heading + " is new on the board");
    for (const Finding& finding : ticket.newest().findings) {
      if (finding.severity != "high" || !isReal(finding) || check.size() >= kMostChecks) continue;
      check.push_back(heading + ": " + finding.title);
    }
    ++brought;
  }
  job.result = JobResult{static_cast<Int>(brought), std::nullopt, std::nullopt,
                         spentOn(worker_.gathered).cost};
  const std::string told = brought == 0
                               ? "Read the supplier mail. Nothing new."
                               : "Read the supplier mail: " + counted(brought, "new proof");
  job.summary = Summary{Texts{told}, unlessEmpty(changed), unlessEmpty(check)};
  if (holdsOwn()) {
    beginOwn();
    return;
  }
  end(job, "done", std::nullopt);
  record(nullptr, "synced", std::nullopt,
         brought == 0 ? "Synced. Nothing new." : "Synced. One new file.");
}

void State::finishReport(Job& job) {
  const std::vector<FileDetail> details = std::move(worker_.gathered);
  Report report;
  report.id = nextId("report-");
  report.job_id = job.id;
  for (const FileDetail& detail : details) report.file_ids.push_back(detail.file.id);
  report.title = reportOn(details).title;
  report.by = job.requested_by;
  report.at = now_;
  report.drive_link = "https://drive.tessarine.example/f/" + report.id;
  std::string& pdf = pdfs_[report.id];
  pdf = worker_.pdf.get();
  report.size = static_cast<Int>(pdf.size());
  job.result = JobResult{std::nullopt, report.id, report.drive_link, spentOn(details).cost};
  std::size_t issues = 0;
  Texts check;
  for (const FileDetail& detail : details) {
    issues +=
        static_cast<std::size_t>(std::ranges::count(detail.findings, "issue", &Finding::state));
    if (!detail.file.pages.value_or(std::vector<Page>{}).empty()) continue;
    check.push_back(detail.file.heading() + " has no pages to draw");
  }
  const std::string on =
      details.size() == 1 ? details.front().file.heading() : counted(details.size(), "ticket");
  Texts done = {"Made a report on " + on, "Marked " + counted(issues, "real issue")};
  reports_.insert(reports_.begin(), report);
  end(job, "done", Summary{std::move(done), unlessEmpty(filed(details)), unlessEmpty(check)});
  record(details.size() == 1 ? find(details.front().file.id) : nullptr, "report_ready",
         std::nullopt, "Report ready");
}

}  // namespace vellix::demo
