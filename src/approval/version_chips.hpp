// The versions of a ticket as numbered chips: which is looked at, and another by a press.
#pragma once

#include <string>
#include <vector>

#include "store/store.hpp"

namespace vellix {

// "{supplier} proof" for the first, and whose revision any later one is.
std::string versionCaption(const Store& store, const FileItem& file, const Version& version);

struct VersionChipView {
  Int n = 0;
  std::string badge;
  std::string caption;
  bool selected = false;
  bool checking = false;  // a spinner stands behind the caption
  bool failed = false;    // a warning does
  std::string help;       // empty for none
  std::string spoken;     // what a screen reader calls it
  bool operator==(const VersionChipView&) const = default;
};
BOOST_DESCRIBE_STRUCT(VersionChipView, (),
                      (n, badge, caption, selected, checking, failed, help, spoken))

// In the order of the list; none where there is nothing to choose from.
std::vector<VersionChipView> versionChips(const Store& store, const FileDetail& detail);

// Shows that version of the ticket on show, if it has it.
void pressVersion(Store& store, Int n);

}  // namespace vellix
