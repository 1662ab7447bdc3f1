// What the worker writes down while it works: for whoever wants to know what it did, and when.
#pragma once

#include <string>
#include <vector>

#include "records/records.hpp"

namespace vellix::demo {

const std::vector<std::string>& stepsOf(const std::string& kind);

// What the model was given to read for a job, what it wrote, and the price of both in dollars.
struct Spent {
  Int in = 0;
  Int out = 0;
  double cost = 0;
};
Spent spentOn(const std::vector<FileDetail>& tickets);

// Lines of a log, each with its end; `at` is when they were written.
std::string logHead(const Job& job, double at);
// `step` counts from 0; `tickets` are those that the job is about, with their pages and findings.
std::string logOfStep(const Job& job, std::size_t step, const std::vector<FileDetail>& tickets,
                      double at);
std::string logLine(double at, const std::string& line);
std::string logEnd(const Job& job, double at);

}  // namespace vellix::demo
