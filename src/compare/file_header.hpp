// What stands over the canvas: which ticket this is.
#pragma once

#include <string>
#include <vector>

#include "records/records.hpp"

namespace vellix {

struct FileHeaderView {
  std::string id;
  std::string heading;
  std::string status;
  bool reprint = false;
  std::string summary;
  bool operator==(const FileHeaderView&) const = default;
};
BOOST_DESCRIBE_STRUCT(FileHeaderView, (), (id, heading, status, reprint, summary))

inline FileHeaderView fileHeader(const FileItem& file) {
  return {.id = file.id,
          .heading = file.heading(),
          .status = file.status,
          .reprint = file.track == "reprint",
          .summary = file.summary.value_or("")};
}

}  // namespace vellix
