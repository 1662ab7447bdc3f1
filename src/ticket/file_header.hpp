// What stands over the canvas: which ticket this is, what is known of it and where it lies.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "pieces/vocabulary.hpp"
#include "platform/ports/calendar.hpp"
#include "store/store.hpp"

namespace vellix {

struct FactView {
  std::string label;
  std::string value;
  bool operator==(const FactView&) const = default;
};
BOOST_DESCRIBE_STRUCT(FactView, (), (label, value))

// A web or mail address under a name.
struct LinkView {
  std::string label;
  std::string icon;
  std::string url;
  bool operator==(const LinkView&) const = default;
};
BOOST_DESCRIBE_STRUCT(LinkView, (), (label, icon, url))

struct FileHeaderView {
  std::string heading;
  PillView status;
  PillView track;
  std::optional<PillView> approval;
  std::string summary;
  std::vector<FactView> facts;
  std::vector<LinkView> links;
  bool operator==(const FileHeaderView&) const = default;
};
BOOST_DESCRIBE_STRUCT(FileHeaderView, (), (heading, status, track, approval, summary, facts, links))

// `detail` is null until it is here; the ticket alone does until then.
FileHeaderView fileHeader(const Store& store, const FileItem& file, const FileDetail* detail,
                          Moment now, const Calendar& calendar);

}  // namespace vellix
