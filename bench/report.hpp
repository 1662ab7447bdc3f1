// How the processes of a run tell their results: one line each on standard output, its parts
// parted by tabs.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vellix::bench {

// One line of the table. All figures but a ratio's budget are in `unit`.
struct Result {
  std::string name;
  double ours = 0;
  std::optional<double> bare;  // none: the budget is for `ours` itself
  std::string unit;
  double budget = 0;             // the most that the ratio may be, or else `ours`
  std::optional<double> middle;  // where `ours` is a 99th percentile: the median
  double held() const;           // what is held against the budget
  bool over() const { return !(held() <= budget); }
};

void tell(const Result& result);
// The 99th percentile of the figures, with their median, against a budget of its own.
void tellMost(const std::string& name, std::vector<double> figures, const std::string& unit,
              double budget);
void tellFigure(const std::string& name, double figure);  // for another process to use
void tellFault(const std::string& what);                  // something that must hold did not
void tellNote(const std::string& what);                   // worth reading beside the table

struct Report {
  std::vector<Result> results;
  std::vector<std::pair<std::string, double>> figures;
  std::vector<std::string> faults;
  std::vector<std::string> notes;

  // Lines that are none of the above are passed over.
  void read(const std::string& line);
  void add(Report other);
  double figure(const std::string& name) const;  // not a number when it was not told
  void print() const;
  bool good() const;
};

}  // namespace vellix::bench
