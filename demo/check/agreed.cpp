#include "check/agreed.hpp"

#include <algorithm>

namespace vellix::demo {
namespace {

bool tells(const Finding& finding) { return finding.kind != "pass" && finding.kind != "expected"; }

QRectF rectOf(const std::vector<double>& box) { return {box[0], box[1], box[2], box[3]}; }

std::vector<QRectF> placesOf(const Finding& finding) {
  std::vector<QRectF> places;
  for (const auto& box : finding.boxes.value_or(std::vector<std::vector<double>>{})) {
    places.push_back(rectOf(box));
  }
  if (places.empty() && finding.box) places.push_back(rectOf(*finding.box));
  return places;
}

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
    if (!tells(finding) || page >= withOurs.size() || !withOurs[page]) continue;
    if (std::ranges::any_of(ours,
                            [&](const Finding& our) { return tells(our) && meet(finding, our); })) {
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
