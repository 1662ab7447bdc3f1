// What a revision changes, read from the two versions' PDFs, and what that means for what was
// marked a real issue before.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "pdf_file.hpp"
#include "records/records.hpp"

namespace vellix::demo {

// A version as it is compared; its PDF can be read.
struct Compared {
  Int number = 0;
  std::shared_ptr<const PdfFile> pdf;
};

// Every change, as an open finding against the version before; ids are the caller's. Takes a while.
std::vector<Finding> changesBetween(const Compared& before, const Compared& after);

struct CheckResult {
  std::vector<Finding> findings;
  std::string summary;
};

// A change where a real issue was is its repair. An issue in the words that nothing changed stays
// open, and one that words do not tell of is to be looked at.
CheckResult weighed(std::vector<Finding> changes, const std::vector<Finding>& before,
                    std::size_t pages);

}  // namespace vellix::demo
