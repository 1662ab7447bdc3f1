// How the processes of a run tell their results: one line each on standard output, its parts
// parted by tabs.
#pragma once

#include <string>
#include <vector>

namespace vellix::bench {

// One line of the table. `ours` and `bare` are in `unit`.
struct Result {
  std::string name;
  double ours = 0;
  double bare = 0;
  std::string unit;
  double budget = 0;  // the greatest ratio
  double ratio() const;
  bool over() const { return !(ratio() <= budget); }
};

void tell(const Result& result);
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
