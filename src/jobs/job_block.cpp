#include "jobs/job_block.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

#include "records/friendly_time.hpp"
#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

// With more of them, so many are shown of the last.
constexpr std::size_t kAllSteps = 4;

constexpr std::array<std::string_view, 8> kWorkingLines{
    "percolating",        "reading the fine print",
    "lining pages up",    "squinting at kerning",
    "comparing notes",    "checking the quote marks",
    "counting the lines", "holding it up to the light",
};
// A power of two, so that the lowest bits of any number tell the line.
static_assert((kWorkingLines.size() & (kWorkingLines.size() - 1)) == 0);

using Words = std::vector<std::string>;

// An empty one tells nothing.
Words worded(const std::optional<Words>& texts) {
  Words kept;
  if (!texts) return kept;
  std::ranges::copy_if(*texts, std::back_inserter(kept),
                       [](const std::string& text) { return hasWords(text); });
  return kept;
}

std::string timeOf(const std::optional<double>& wire, Moment now, const Calendar& calendar) {
  return wire ? friendlyTime(momentOf(*wire), now, calendar) : "";
}

std::string stopKeyOf(const Job& job) { return "stop-" + job.id; }

void allowStop(JobBlockView& view, const Store& store, const Job& job) {
  view.stopKey = stopKeyOf(job);
  view.stopping = isBeingStopped(store, job);
}

std::string footerOf(const Store& store, const Job& job, Moment now, const Calendar& calendar) {
  const auto& since = job.started ? job.started : job.created;
  return "Started by " + displayName(store, job.requested_by) + " · " +
         timeOf(since, now, calendar);
}

void addLines(ResultBlockView& view, const Words& texts, const ResultLineView& look) {
  for (const std::string& text : texts) {
    ResultLineView line = look;
    line.key = std::to_string(view.lines.size());
    line.text = text;
    view.lines.push_back(std::move(line));
  }
}

ResultBlockView endOf(const Job& job, bool toCheck) {
  if (job.status == "done" && !toCheck) {
    return {.icon = "checkmark.circle.fill", .title = "Done", .tone = "green"};
  }
  if (job.status == "done") {
    return {.icon = "exclamationmark.circle.fill", .title = "Needs a look", .tone = "orange"};
  }
  if (job.status == "stopped") {
    return {.icon = "stop.circle.fill", .title = "Stopped", .tone = "muted"};
  }
  return {.icon = "xmark.circle.fill", .title = "Didn't finish", .tone = "red"};
}

}  // namespace

JobBlockView jobBlock(const Store& store, const Job& job, std::string_view action, Moment now,
                      const Calendar& calendar) {
  JobBlockView view{.key = job.id, .kind = job.status};
  if (job.status == "queued") {
    view.title = "In line";
    view.line = wordsOr(job.step, "Waiting for the Mac mini");
  } else if (job.status == "running") {
    view.line = wordsOf(job.step);
    view.steps = stepsList(worded(job.steps), true);
    view.footer = footerOf(store, job, now, calendar);
    allowStop(view, store, job);
  } else if (job.status == "stuck") {
    view.icon = "exclamationmark.triangle.fill";
    view.tone = "orange";
    view.title = "The Mac mini stopped answering";
    view.line =
        "It may be asleep or off Wi-Fi. Press " + std::string{action} + " to try again, or Stop.";
    allowStop(view, store, job);
  } else {
    view.kind = "result";
    view.result = resultBlock(store, job, now, calendar);
  }
  return view;
}

ResultBlockView resultBlock(const Store& store, const Job& job, Moment now,
                            const Calendar& calendar) {
  static const Summary kNone;
  const Summary& summary = job.summary ? *job.summary : kNone;
  const Words check = worded(summary.check);
  ResultBlockView view = endOf(job, !check.empty());
  view.finished = timeOf(job.finished, now, calendar);
  addLines(view, worded(summary.done), {.icon = "checkmark", .tone = "green"});
  addLines(view, worded(summary.changed), {.icon = "folder", .tone = "muted"});
  addLines(view, check, {.icon = "exclamationmark", .tone = "orange"});
  if (hasWords(job.requested_by)) view.by = "By " + displayName(store, job.requested_by);
  return view;
}

StepsListView stepsList(const std::vector<std::string>& steps, bool live) {
  StepsListView view;
  const std::size_t hidden = steps.size() > kAllSteps ? steps.size() - kAllSteps : 0;
  if (hidden > 0) {
    view.earlier = std::to_string(hidden) + " earlier step" + (hidden == 1 ? "" : "s");
  }
  for (std::size_t i = hidden; i < steps.size(); ++i) {
    StepView row{.key = std::to_string(i), .live = live && i + 1 == steps.size()};
    if (!row.live) {
      row.icon = "checkmark.circle.fill";
      row.tone = "green";
    }
    row.text = steps[i];
    view.rows.push_back(std::move(row));
  }
  return view;
}

std::string workingLine(std::string_view who, Int n) {
  const auto index = static_cast<std::uint64_t>(n) % kWorkingLines.size();
  return std::string{who} + " is " + std::string{kWorkingLines[index]} + "…";
}

bool standsOpen(const Job& job) { return job.active() || job.status == "stuck"; }

bool isBeingStopped(const Store& store, const Job& job) {
  return store.busy().contains(stopKeyOf(job));
}

void stopJob(Store& store, const std::string& id) {
  const auto& board = store.board();
  if (!board) return;
  const auto isIt = [&](const Job& job) { return job.id == id && standsOpen(job); };
  const auto found = std::ranges::find_if(board->jobs, isIt);
  const Job* job = found == board->jobs.end() ? nullptr : &*found;
  if (board->sync && isIt(*board->sync)) job = &*board->sync;
  if (job && !isBeingStopped(store, *job)) store.stopJob(*job);
}

}  // namespace vellix
