// A report on tickets, as a PDF: the pages with what was found marked on them, and the words below.
// The same tickets make the same bytes.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "records/records.hpp"

namespace vellix::demo {

struct ReportAsked {
  std::string title;
  std::vector<FileDetail> tickets;
  std::map<std::string, std::string> names;  // by e-mail, of who may have decided something
};

// `picture` gives the JPEG of a blob's key. Any thread; takes as long as the pictures take.
std::string reportPdf(const ReportAsked& asked,
                      const std::function<std::optional<std::string>(const std::string&)>& picture);

}  // namespace vellix::demo
