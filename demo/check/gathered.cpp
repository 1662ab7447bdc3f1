#include "check/gathered.hpp"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "check/compared.hpp"
#include "digest.hpp"

namespace vellix::demo {
namespace {

constexpr std::size_t kDigits = 16;

std::string idOf(const Finding& finding, const std::string& folder) {
  std::string all;
  const auto take = [&](const std::string& text) { all.append(text).push_back(0); };
  const auto takeBox = [&](const std::optional<std::vector<double>>& box) {
    for (const double edge : box.value_or(std::vector<double>{})) {
      take(std::to_string(std::lround(edge * 1e4)));
    }
  };
  take(std::to_string(finding.page));
  // Not the kind and the title: an expected one is the same finding as it was before it was that.
  take(finding.against);
  take(finding.before.value_or(""));
  take(finding.after.value_or(""));
  takeBox(finding.box);
  takeBox(finding.ref_box);
  if (!finding.box) take(finding.title);
  return folder + "-" + digestText(all).substr(0, kDigits);
}

auto placeOf(const Finding& finding) {
  const double y = finding.box ? finding.box->at(1) : -1;
  const double x = finding.box ? finding.box->at(0) : -1;
  // What passed stands behind what did not.
  return std::tuple(finding.page, !isReal(finding), y, x);
}

}  // namespace

void putAmong(std::vector<Finding>& all, std::vector<Finding> more, const std::string& folder,
              const std::string& ticket, std::set<std::string>& told) {
  for (Finding& finding : more) {
    finding.file_id = ticket;
    finding.id = idOf(finding, folder);
    for (int again = 2; told.contains(finding.id); ++again) {
      finding.id = idOf(finding, folder) + "-" + std::to_string(again);
    }
    told.insert(finding.id);
    const auto was = std::ranges::find(all, finding.id, &Finding::id);
    if (was == all.end()) {
      all.push_back(std::move(finding));
    } else {
      if (was->state_by && isReal(finding)) {
        finding.state = was->state;
        finding.state_by = was->state_by;
        finding.state_at = was->state_at;
      }
      *was = std::move(finding);
    }
  }
  std::ranges::stable_sort(all, {}, placeOf);
  for (std::size_t i = 0; i < all.size(); ++i) all[i].ord = static_cast<Int>(i);
}

void dropUntold(std::vector<Finding>& all, const std::set<std::string>& told,
                const std::set<std::string>& noted) {
  std::erase_if(all, [&](const Finding& finding) {
    const bool decided = finding.state_by && finding.state != "open";
    return !told.contains(finding.id) && !decided && !noted.contains(finding.id);
  });
  const std::string gone = "The last check did not find it again.";
  for (Finding& finding : all) {
    if (told.contains(finding.id) || finding.detail.value_or("").ends_with(gone)) continue;
    finding.detail = finding.detail ? *finding.detail + " " + gone : gone;
  }
}

std::string summaryOf(const std::vector<Finding>& all, std::size_t pages) {
  std::set<Int> on;
  std::size_t open = 0;
  for (const Finding& finding : all) {
    if (!isReal(finding)) continue;
    ++open;
    on.insert(finding.page);
  }
  const auto of = [](std::size_t count, const char* noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
  };
  if (open == 0) return "Nothing differs on " + of(pages, "page") + ".";
  return (open == 1 ? "One thing to look at" : std::to_string(open) + " things to look at") +
         " on " +
         (pages == 1 ? "one page" : std::to_string(on.size()) + " of " + of(pages, "page")) + ".";
}

}  // namespace vellix::demo
