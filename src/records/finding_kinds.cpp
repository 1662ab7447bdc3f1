#include "records/finding_kinds.hpp"

#include <algorithm>
#include <array>
#include <string_view>

namespace vellix {

bool isPassed(const Finding& finding) {
  return finding.kind == "expected" || finding.kind == "pass";
}

bool standsAlone(const Finding& finding) {
  static constexpr std::array<std::string_view, 5> kinds{"hidden", "barcode", "spots", "pass",
                                                         "missing_page"};
  return std::ranges::find(kinds, finding.kind) != kinds.end();
}

bool counts(const Finding& finding, const std::vector<std::string>& roles) {
  return standsAlone(finding) || std::ranges::find(roles, finding.against) != roles.end();
}

}  // namespace vellix
