// The worker: it takes one job after the other out of the line, and through its steps.
#include <algorithm>
#include <ranges>
#include <set>

#include "body.hpp"
#include "job_log.hpp"
#include "state.hpp"
#include "state_kept.hpp"

namespace vellix::demo {
namespace {

constexpr double kQueue = 1'500;
constexpr double kStep = 1'800;
constexpr double kSilence = 6'000;  // before a job counts as given up

Done refuse(int status, std::string text) {
  return std::unexpected(Refusal{status, std::move(text)});
}

std::set<std::string> ticketsOf(const Job& job) {
  const auto ids = job.args.value_or(JobArgs{}).file_ids.value_or(std::vector<std::string>{});
  return {ids.begin(), ids.end()};
}

bool known(const std::string& step) {
  const auto in = [&](const char* kind) {
    return std::ranges::find(stepsOf(kind), step) != stepsOf(kind).end();
  };
  return step.empty() || step == "queued" || in("sync") || in("report");
}

}  // namespace

const Job* State::job(const std::string& id) const {
  if (sync_ && sync_->id == id) return &*sync_;
  for (const auto* all : {&jobs_, &oldSyncs_}) {
    const auto found = std::ranges::find(*all, id, &Job::id);
    if (found != all->end()) return &*found;
  }
  return nullptr;
}

std::string State::logOf(const std::string& jobId) const {
  const auto found = logs_.find(jobId);
  return found == logs_.end() ? std::string() : found->second;
}

const std::string* State::pdfOf(const std::string& reportId) {
  if (const auto found = pdfs_.find(reportId); found != pdfs_.end()) return &found->second;
  const bool known = std::ranges::find(reports_, reportId, &Report::id) != reports_.end();
  if (!known || keeping_.shelf == nullptr) return nullptr;
  auto kept = keeping_.shelf->fileOf(reportFile(reportId));
  return kept ? &(pdfs_[reportId] = *std::move(kept)) : nullptr;
}

std::vector<Job*> State::liveJobs() {
  std::vector<Job*> live;
  if (sync_ && sync_->active()) live.push_back(&*sync_);
  // The newest is kept first, but of those asked for in one moment the first has its turn first.
  for (Job& job : jobs_ | std::views::reverse) {
    if (job.active()) live.push_back(&job);
  }
  std::ranges::stable_sort(live, {}, [](const Job* job) { return job->created.value_or(0); });
  return live;
}

Job* State::runningJob() {
  const auto live = liveJobs();
  const auto found = std::ranges::find(live, "running", &Job::status);
  return found == live.end() ? nullptr : *found;
}

Job* State::nextInLine() {
  const auto live = liveJobs();
  const auto found = std::ranges::find(live, "queued", &Job::status);
  return found == live.end() ? nullptr : *found;
}

Done State::startJob(const Json& body, const std::string& by) {
  const std::string kind = textAt(body, "kind").value_or("");
  if (kind != "sync" && kind != "report") return refuse(400, "There is no such job.");
  Job job;
  job.kind = kind;
  job.status = "queued";
  if (!by.empty()) job.requested_by = by;
  job.created = now_;
  if (const Job* busy = runningJob(); busy != nullptr) {
    job.step = busy->kind == "sync" ? "Waiting for the sync to end" : "Waiting for another report";
  }
  if (kind == "sync") {
    if (sync_ && sync_->active()) return refuse(400, "A sync is running already.");
    job.id = nextId("job-");
    if (sync_ && sync_->status == "stuck") giveWay(*sync_);
    if (sync_) oldSyncs_.push_back(*sync_);
    sync_ = job;
    record(nullptr, "sync", job.requested_by, "Started a sync");
  } else {
    const auto ids = textsAt(body, "file_ids");
    if (ids.empty()) return refuse(400, "A report needs at least one ticket.");
    for (const std::string& id : ids) {
      if (find(id) == nullptr) return refuse(404, "There is no such ticket.");
    }
    job.id = nextId("job-");
    job.args = JobArgs{ids};
    for (Job& old : jobs_) {
      if (old.status == "stuck" && ticketsOf(old) == ticketsOf(job)) giveWay(old);
    }
    jobs_.insert(jobs_.begin(), job);
    record(ids.size() == 1 ? find(ids.front()) : nullptr, "report", by, "Asked for a report");
  }
  if (worker_.silent) watchSilence();
  if (runningJob() == nullptr) goOn(kQueue);
  return {};
}

// What the worker had gathered for a job went with the service, so it begins anew.
void State::takeUpJobs() {
  for (Job* job : liveJobs()) {
    if (job->status != "running") continue;
    job->status = "queued";
    job->started.reset();
    job->beat.reset();
    job->step.reset();
    job->steps.reset();
    ++rev_;
  }
  if (nextInLine() != nullptr) goOn(kQueue);
}

// To the same job, asked for anew.
void State::giveWay(Job& stuck) {
  end(stuck, "failed",
      Summary{{}, {}, {{"The Mac mini stopped answering. It was asked for again."}}});
}

Done State::stopJob(const std::string& id, const std::string& by) {
  Job* found = const_cast<Job*>(job(id));
  if (found == nullptr) return refuse(404, "There is no such job.");
  if (!found->active() && found->status != "stuck") return refuse(400, "That job has ended.");
  end(*found, "stopped", std::nullopt);
  record(nullptr, "stop", by, found->kind == "sync" ? "Stopped the sync" : "Stopped the report");
  return {};
}

Done State::setWorker(std::optional<std::string> hold, std::optional<std::string> failure,
                      std::optional<bool> silent) {
  if (hold && !known(*hold)) return refuse(400, "There is no such step.");
  worker_.hold = hold.value_or(worker_.hold);
  worker_.failure = failure.value_or(worker_.failure);
  const bool falls = silent.value_or(false) && !worker_.silent;
  worker_.silent = silent.value_or(worker_.silent);
  if (falls) {
    ++worker_.silences;
    watchSilence();
  }
  goOn(0);
  return {};
}

void State::watchSilence() {
  later(kSilence, [this, silence = worker_.silences] {
    if (!worker_.silent || silence != worker_.silences) return;
    for (Job* job : liveJobs()) {
      // Half a millisecond, for what adding up large numbers loses.
      if (*job->created + kSilence * pace_ > now_ + 0.5) continue;
      if (job->status == "running") letGo();
      job->status = "stuck";
      logs_[job->id] += logEnd(*job, now_);
      ++rev_;
    }
  });
}

void State::goOn(double wait) {
  later(wait, [this, turn = ++worker_.turn] {
    if (turn == worker_.turn) work();
  });
}

void State::work() {
  if (worker_.silent) return;
  if (Job* job = runningJob(); job != nullptr) {
    if (job->step != worker_.hold && !worker_.waitsForPdf && !worker_.own) nextStep(*job);
  } else if (Job* next = nextInLine(); next != nullptr && worker_.hold != "queued") {
    begin(*next);
  }
}

void State::nextStep(Job& job) {
  job.beat = now_;
  const bool noPages =
      job.kind == "report" && std::ranges::none_of(worker_.gathered, [](auto& one) {
        return !one.file.pages.value_or(std::vector<Page>{}).empty();
      });
  if (!job.steps->empty() && (!worker_.failure.empty() || noPages)) {
    const std::string line =
        worker_.failure.empty() ? "There is no page to report on." : worker_.failure;
    worker_.failure.clear();
    end(job, "failed", Summary{{}, {}, {{line}}});
    return;
  }
  const auto& steps = stepsOf(job.kind);
  const std::size_t step = job.steps->size();
  if (step < steps.size()) {
    job.step = steps[step];
    job.steps->push_back(steps[step]);
    logs_[job.id] += logOfStep(job, step, worker_.gathered, now_);
    ++rev_;
    goOn(kStep);
  } else if (job.kind == "sync") {
    finishSync(job);
  } else {
    worker_.waitsForPdf = true;
  }
}

void State::end(Job& job, const std::string& status, std::optional<Summary> summary) {
  const bool atWork = job.status == "running";
  job.status = status;
  job.finished = now_;
  job.step.reset();
  if (summary) job.summary = std::move(summary);
  logs_[job.id] += logEnd(job, now_);
  ++rev_;
  if (!atWork && job.kind == "sync") tellStopped();
  if (!atWork) return;
  letGo();
  goOn(kQueue);
}

// The worker holds nothing of a job any more.
void State::letGo() {
  if (worker_.pdf.valid()) worker_.dropped.push_back(std::move(worker_.pdf));
  worker_.gathered.clear();
  letOwnGo();
  worker_.waitsForPdf = false;
}

}  // namespace vellix::demo
