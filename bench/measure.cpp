#include "measure.hpp"

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

namespace vellix::bench {
namespace {

double timeOf(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// The number behind "name:" in one of the kernel's tables; 0 when there is none.
double numberIn(const std::string& path, const std::string& name) {
  std::ifstream table(path);
  for (std::string line; std::getline(table, line);) {
    if (line.starts_with(name + ":")) return std::stod(line.substr(name.size() + 1));
  }
  return 0;
}

}  // namespace

double wallTime() { return timeOf(CLOCK_MONOTONIC); }
double cpuOfProcess() { return timeOf(CLOCK_PROCESS_CPUTIME_ID); }
double cpuOfThread() { return timeOf(CLOCK_THREAD_CPUTIME_ID); }

double residentMegabytes() { return numberIn("/proc/self/smaps_rollup", "Rss") / 1024; }
double proportionalMegabytes() { return numberIn("/proc/self/smaps_rollup", "Pss") / 1024; }

long voluntarySwitches() {
  double all = 0;
  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
    all += numberIn(task.path().string() + "/status", "voluntary_ctxt_switches");
  }
  return static_cast<long>(all);
}

double median(std::vector<double> figures) {
  if (figures.empty()) return 0;
  std::ranges::sort(figures);
  const auto middle = figures.size() / 2;
  return figures.size() % 2 == 1 ? figures[middle] : (figures[middle - 1] + figures[middle]) / 2;
}

double percentile99(std::vector<double> figures) {
  if (figures.empty()) return 0;
  std::ranges::sort(figures);
  return figures[(figures.size() * 99 + 99) / 100 - 1];
}

}  // namespace vellix::bench
