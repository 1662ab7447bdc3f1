// A report on tickets, as a PDF.
#pragma once

#include <string>
#include <vector>

#include "records/records.hpp"

namespace vellix::demo {

std::string reportPdf(const std::string& title, const std::vector<FileDetail>& details);

}  // namespace vellix::demo
