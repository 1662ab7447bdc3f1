// How long a report takes, and what is told of one that is being made.
#include <algorithm>
#include <cmath>

#include "store/store.hpp"

namespace vellix {
namespace {

// In seconds.
constexpr double kUnknownReport = 75;
constexpr double kSync = 480;
constexpr double kLeastSync = 60;
// Times come from outside: whatever they are, the minutes must be a number that can be written.
constexpr double kLongest = 1e12;

double seconds(double wire) { return wire / 1000.0; }

std::string readyIn(double left) {
  if (!(left > 5)) return "Almost ready…";
  if (left < 55) {
    const auto wait = std::max<Int>(std::llround(std::ceil(left / 5) * 5), 5);
    return "Ready in about " + std::to_string(wait) + " sec";
  }
  const auto minutes = std::max<Int>(std::llround(std::min(left, kLongest) / 60), 1);
  return "Ready in about " + std::to_string(minutes) + " min";
}

}  // namespace

double Store::typicalReportSeconds() const {
  std::vector<double> lengths;
  static const std::vector<Job> kNone;
  for (const Job& job : board() ? board()->jobs : kNone) {
    const bool whole = job.kind == "report" && job.status == "done" && job.started &&
                       job.finished && *job.started < *job.finished;
    if (whole) lengths.push_back(seconds(*job.finished - *job.started));
  }
  if (lengths.empty()) return kUnknownReport;
  std::ranges::sort(lengths);
  return lengths[lengths.size() / 2];
}

std::string Store::reportEstimate(const Job& job, Moment now) const {
  const double base = typicalReportSeconds();
  if (job.status != "queued") {
    const double since = job.started ? seconds(wireOf(now) - *job.started) : 0;
    return readyIn(base - since);
  }
  const bool syncing = board() && board()->sync && board()->sync->status == "running";
  if (!syncing) return readyIn(base);
  const Job& sync = *board()->sync;
  const double begun = sync.started.value_or(sync.created.value_or(wireOf(now)));
  const double rest = std::max(seconds(begun - wireOf(now)) + kSync, kLeastSync);
  return "After the sync. " + readyIn(base + rest);
}

}  // namespace vellix
