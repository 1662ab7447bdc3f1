// What the rules take, and what comes of it.
#pragma once

#include <boost/describe.hpp>
#include <expected>
#include <future>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "pdf_file.hpp"
#include "records/records.hpp"

namespace vellix::demo {

struct Refusal {
  int status = 400;
  std::string text;
};
template <class T>
using Outcome = std::expected<T, Refusal>;
using Done = Outcome<std::monostate>;

// What an answer about a share link holds.
struct ShareAnswer {
  ShareInfo share;
};
BOOST_DESCRIBE_STRUCT(ShareAnswer, (), (share))
struct VersionAnswer {
  Int version = 0;
};
BOOST_DESCRIBE_STRUCT(VersionAnswer, (), (version))

// An uploaded revision.
struct Upload {
  std::shared_ptr<const PdfFile> pdf;
  std::string path;  // where it lies; empty for one in memory alone
  std::size_t size = 0;
  std::string filename;
  std::string note;
};
// Its number, and its pages as soon as they are read.
struct Uploaded {
  Int version = 0;
  std::shared_future<PdfReading> reading;
};

// What a revision changes, and the version that it was compared with; 0 for none.
struct Changes {
  Int old = 0;
  std::vector<Finding> all;
};

}  // namespace vellix::demo
