// What a revision changes, read from the two versions' PDFs, and what that means for what was
// marked a real issue before.
#pragma once

#include <string>
#include <vector>

#include "pdf_reading.hpp"
#include "records/records.hpp"

namespace vellix::demo {

// Every change, as an open finding against the version before; ids are the caller's. `old` and
// `now` are the versions' numbers, `names` what the pages of the old one are called. Takes a while.
std::vector<Finding> changesBetween(const PdfReading& before, const PdfReading& after, Int old,
                                    Int now, const std::vector<std::string>& names);

struct CheckResult {
  std::vector<Finding> findings;
  std::string summary;
};

// A change where a real issue was is its repair. An issue in the words that nothing changed stays
// open, and one that words do not tell of is to be looked at.
CheckResult weighed(std::vector<Finding> changes, const std::vector<Finding>& before,
                    std::size_t pages);

// What is told of a PDF that could not be checked.
std::string excuseFor(const PdfReading& reading);

}  // namespace vellix::demo
