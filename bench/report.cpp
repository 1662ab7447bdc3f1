#include "report.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <sstream>

namespace vellix::bench {
namespace {

std::vector<std::string> partsOf(const std::string& line) {
  std::vector<std::string> parts;
  std::istringstream from(line);
  for (std::string part; std::getline(from, part, '\t');) parts.push_back(part);
  return parts;
}

double numberOf(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

template <class T>
void append(std::vector<T>& to, std::vector<T>& from) {
  to.insert(to.end(), from.begin(), from.end());
}

}  // namespace

double Result::ratio() const {
  return bare > 0 ? ours / bare : (ours > 0 ? std::numeric_limits<double>::infinity() : 0);
}

void tell(const Result& result) {
  std::printf("result\t%s\t%.17g\t%.17g\t%s\t%.17g\n", result.name.c_str(), result.ours,
              result.bare, result.unit.c_str(), result.budget);
  std::fflush(stdout);
}
void tellFigure(const std::string& name, double figure) {
  std::printf("figure\t%s\t%.17g\n", name.c_str(), figure);
  std::fflush(stdout);
}
void tellFault(const std::string& what) {
  std::printf("fault\t%s\n", what.c_str());
  std::fflush(stdout);
}
void tellNote(const std::string& what) {
  std::printf("note\t%s\n", what.c_str());
  std::fflush(stdout);
}

void Report::read(const std::string& line) {
  const auto parts = partsOf(line);
  if (parts.size() == 6 && parts[0] == "result") {
    results.push_back(
        {parts[1], numberOf(parts[2]), numberOf(parts[3]), parts[4], numberOf(parts[5])});
  } else if (parts.size() == 3 && parts[0] == "figure") {
    figures.emplace_back(parts[1], numberOf(parts[2]));
  } else if (parts.size() == 2 && parts[0] == "fault") {
    faults.push_back(parts[1]);
  } else if (parts.size() == 2 && parts[0] == "note") {
    notes.push_back(parts[1]);
  }
}

void Report::add(Report other) {
  append(results, other.results);
  append(figures, other.figures);
  append(faults, other.faults);
  append(notes, other.notes);
}

double Report::figure(const std::string& name) const {
  const auto found =
      std::ranges::find(figures, name, [](const auto& entry) { return entry.first; });
  return found == figures.end() ? std::nan("") : found->second;
}

void Report::print() const {
  std::printf("\n%-52s %12s %12s %8s %8s\n", "", "ours", "bare", "ratio", "budget");
  for (const auto& result : results) {
    std::printf("%-52s %8.2f %-3s %8.2f %-3s %8.2f %8.2f  %s\n", result.name.c_str(), result.ours,
                result.unit.c_str(), result.bare, result.unit.c_str(), result.ratio(),
                result.budget, result.over() ? "OVER" : "ok");
  }
  for (const auto& note : notes) std::printf("  %s\n", note.c_str());
  for (const auto& fault : faults) std::printf("BROKEN: %s\n", fault.c_str());
  std::fflush(stdout);
}

bool Report::good() const { return faults.empty() && std::ranges::none_of(results, &Result::over); }

}  // namespace vellix::bench
