#include "report.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <sstream>

#include "measure.hpp"

namespace vellix::bench {
namespace {

constexpr const char* kNone = "-";

std::vector<std::string> partsOf(const std::string& line) {
  std::vector<std::string> parts;
  std::istringstream from(line);
  for (std::string part; std::getline(from, part, '\t');) parts.push_back(part);
  return parts;
}

double numberOf(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

// What is none is told as nothing.
std::optional<double> maybeNumberOf(const std::string& text) {
  return text == kNone ? std::nullopt : std::optional{numberOf(text)};
}
std::string textOf(std::optional<double> number) {
  char text[32];
  std::snprintf(text, sizeof text, "%.17g", number.value_or(0));
  return number ? text : kNone;
}

// A figure with its unit, in a column.
std::string shownAs(double figure, const std::string& unit) {
  char text[64];
  std::snprintf(text, sizeof text, "%9.2f %-2s", figure, unit.c_str());
  return text;
}

template <class T>
void append(std::vector<T>& to, std::vector<T>& from) {
  to.insert(to.end(), from.begin(), from.end());
}

}  // namespace

double Result::held() const {
  if (!bare) return ours;
  return *bare > 0 ? ours / *bare : (ours > 0 ? std::numeric_limits<double>::infinity() : 0);
}

void tell(const Result& result) {
  std::printf("result\t%s\t%s\t%s\t%s\t%s\t%s\n", result.name.c_str(), textOf(result.ours).c_str(),
              textOf(result.bare).c_str(), result.unit.c_str(), textOf(result.budget).c_str(),
              textOf(result.middle).c_str());
  std::fflush(stdout);
}
void tellMost(const std::string& name, std::vector<double> figures, const std::string& unit,
              double budget) {
  tell({.name = name,
        .ours = percentile99(figures),
        .unit = unit,
        .budget = budget,
        .middle = median(std::move(figures))});
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
  if (parts.size() == 7 && parts[0] == "result") {
    results.push_back({.name = parts[1],
                       .ours = numberOf(parts[2]),
                       .bare = maybeNumberOf(parts[3]),
                       .unit = parts[4],
                       .budget = numberOf(parts[5]),
                       .middle = maybeNumberOf(parts[6])});
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
  std::printf("\n%-56s %12s %12s %12s %8s %12s\n", "", "ours", "median", "bare", "ratio",
              "at most");
  for (const auto& result : results) {
    const std::string& unit = result.unit;
    char ratio[32] = "";
    if (result.bare) std::snprintf(ratio, sizeof ratio, "%.2f", result.held());
    std::printf(
        "%-56s %s %12s %12s %8s %s  %s\n", result.name.c_str(), shownAs(result.ours, unit).c_str(),
        result.middle ? shownAs(*result.middle, unit).c_str() : "",
        result.bare ? shownAs(*result.bare, unit).c_str() : "", ratio,
        shownAs(result.budget, result.bare ? "" : unit).c_str(), result.over() ? "OVER" : "ok");
  }
  for (const auto& note : notes) std::printf("  %s\n", note.c_str());
  for (const auto& fault : faults) std::printf("BROKEN: %s\n", fault.c_str());
  std::fflush(stdout);
}

bool Report::good() const { return faults.empty() && std::ranges::none_of(results, &Result::over); }

}  // namespace vellix::bench
