// What stands over the canvas: which ticket this is.
#pragma once

#include <string>
#include <vector>

#include "pieces/vocabulary.hpp"
#include "records/records.hpp"

namespace vellix {

struct FileHeaderView {
  std::string id;
  std::string heading;
  PillView status;
  PillView track;
  std::string summary;
  bool operator==(const FileHeaderView&) const = default;
};
BOOST_DESCRIBE_STRUCT(FileHeaderView, (), (id, heading, status, track, summary))

inline FileHeaderView fileHeader(const FileItem& file) {
  return {.id = file.id,
          .heading = file.heading(),
          .status = statusPill(file.status),
          .track = trackPill(file.track == "reprint"),
          .summary = file.summary.value_or("")};
}

}  // namespace vellix
