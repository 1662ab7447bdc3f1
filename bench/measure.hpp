// What is measured, and how often.
#pragma once

#include <vector>

namespace vellix::bench {

// Every figure is a median of this many, after one round that does not count.
inline constexpr int kRounds = 11;

// In milliseconds.
double wallTime();      // of the monotonic clock, the same in every process
double cpuOfProcess();  // of all threads, user and system
double cpuOfThread();   // of the calling one

// Of this process.
double residentMegabytes();      // all that is mapped and present
double proportionalMegabytes();  // what is shared with others is divided among them
long voluntarySwitches();        // of all threads that live

double median(std::vector<double> figures);
// Ninety-nine of a hundred are at most so large.
double percentile99(std::vector<double> figures);

struct Figures {
  double ours = 0;
  double bare = 0;
};

// Runs both in turn; each returns its figure. Medians.
template <class Ours, class Bare>
Figures alternate(Ours ours, Bare bare, int rounds = kRounds) {
  std::vector<double> our;
  std::vector<double> their;
  for (int round = 0; round <= rounds; ++round) {
    const double one = ours();
    const double other = bare();
    if (round == 0) continue;
    our.push_back(one);
    their.push_back(other);
  }
  return {median(std::move(our)), median(std::move(their))};
}

}  // namespace vellix::bench
