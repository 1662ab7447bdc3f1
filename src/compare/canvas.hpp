// What the compare canvas shows of a page: which panes, in which size, with which words.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "records/records.hpp"
#include "store/open_page.hpp"

namespace vellix {

// One candidate pane. No role marks the supplier's.
struct PaneInfo {
  std::string key;
  std::optional<std::string> role;
  std::optional<std::string> img;  // blob key; none when there is nothing to show
  double aspect = 0;               // width over height
  std::string label;
  std::string tone;
  std::optional<std::string> thumb;  // blob key of the same picture, small
  bool operator==(const PaneInfo&) const = default;
};

const RefPage* refPage(const Page& page, const std::string& role);  // owned by the page; or null
// Width over height: the reference's own, else the page's.
double aspectOf(const RefPage* ref, const Page& page);
std::string thirdRole(const Page& page, const FileItem& file, Int version);
std::vector<PaneInfo> panesOf(const Page& page, const FileItem& file, Int version,
                              const std::set<std::string>& shown);
// The roles of these panes, in order.
std::vector<std::string> rolesOf(const std::vector<PaneInfo>& panes);

}  // namespace vellix
