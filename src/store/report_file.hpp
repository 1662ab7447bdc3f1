// Under which name a report is put into the person's folder of downloads.
#pragma once

#include <optional>
#include <string>

#include "platform/ports/report_folder.hpp"

namespace vellix {

// In bytes: what file systems take.
inline constexpr int kMostFileName = 255;
// Names that are tried for one report.
inline constexpr int kMostReportNames = 1'000;

// The nth name for a report of that title: "Title.pdf" and "Title 2.pdf". The title is cut short
// where the name would be too long.
std::string reportFileName(const std::optional<std::string>& title, int n = 1);

// Puts the report there under the first name that is free, unless it lies there already under one
// before that. The name it has then; none when it could not be written, or when too many names are
// taken. Waits for the folder, so not on the main thread.
std::optional<std::string> keepReport(const std::optional<std::string>& title,
                                      ReportFolder& folder);

}  // namespace vellix
