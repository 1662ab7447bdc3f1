#include "check/agreed.hpp"

#include <algorithm>

namespace vellix::demo {
namespace {

bool meet(const Finding& finding, const Finding& our) {
  if (finding.page != our.page) return false;
  const auto places = placesOf(finding);
  const auto ourPlaces = placesOf(our);
  // What has no place concerns the page as a whole.
  if (places.empty() || ourPlaces.empty()) return finding.kind == our.kind;
  return std::ranges::any_of(places, [&](const QRectF& place) {
    return std::ranges::any_of(ourPlaces,
                               [&](const QRectF& other) { return place.intersects(other); });
  });
}

}  // namespace

void acceptAsOurs(std::vector<Finding>& findings, const std::vector<Finding>& ours,
                  const Partners& withOurs) {
  for (Finding& finding : findings) {
    const auto page = static_cast<std::size_t>(finding.page);
    if (!isReal(finding) || page >= withOurs.size() || !withOurs[page]) continue;
    if (std::ranges::any_of(
            ours, [&](const Finding& our) { return isReal(our) && meet(finding, our); })) {
      continue;
    }
    const bool before = finding.against == "previous";
    finding.title = (before ? "Repaired: " : "Our edit: ") + finding.title;
    finding.detail = finding.detail.value_or("") + (finding.detail ? " " : "") +
                     (before ? "It is as in our file now." : "Our file has it so too.");
    finding.kind = "expected";
    finding.state = "expected";
    finding.severity = "low";
  }
}

void tellBesideBefore(std::vector<Finding>& ours, const Partners& withBefore) {
  std::erase_if(ours, [](const Finding& finding) { return finding.kind == "pass"; });
  for (Finding& finding : ours) {
    const auto page = static_cast<std::size_t>(finding.page);
    finding.against = "previous";
    finding.title = "Not as in our file: " + finding.title;
    // There our own page stands in its place.
    if (page >= withBefore.size() || !withBefore[page]) continue;
    // Our wording is in the detail, and our file's place is none of the page before it.
    finding.before.reset();
    finding.ref_box.reset();
  }
}

}  // namespace vellix::demo
