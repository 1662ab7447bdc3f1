#include "revision_check.hpp"

#include <algorithm>

#include "check/compared.hpp"
#include "version_check.hpp"

namespace vellix::demo {
namespace {

constexpr const char* kRepaired = "Repaired: ";
constexpr const char* kNotRepaired = "Not repaired: ";
constexpr const char* kPerhapsRepaired = "See whether it is repaired: ";

// An issue is called by its own name, however often it was seen again.
std::string nameOf(const Finding& issue) {
  std::string name = issue.title;
  for (const char* seen : {kRepaired, kNotRepaired, kPerhapsRepaired}) {
    if (name.starts_with(seen)) name.erase(0, std::string(seen).size());
  }
  return name;
}

// Whether words tell of it.
bool inWords(const Finding& finding) {
  return finding.kind == "words" || finding.kind == "breaks" || finding.kind == "fonts";
}

bool meet(const Finding& change, const Finding& issue) {
  if (change.page != issue.page || inWords(change) != inWords(issue)) return false;
  if (change.kind == "size" && issue.kind == "size") return true;
  if (!change.ref_box) return false;
  const QRectF place = asRect(*change.ref_box);
  return std::ranges::any_of(placesOf(issue),
                             [&](const QRectF& box) { return place.intersects(box); });
}

}  // namespace

std::vector<Finding> changesBetween(const Compared& before, const Compared& after) {
  VersionCheck check(after.pdf, {{"previous", "v" + std::to_string(before.number), before.pdf}});
  std::vector<Finding> findings = check.atEnd().findings;
  // That nothing moved is said of the version as a whole.
  std::erase_if(findings, [](const Finding& finding) { return finding.kind == "pass"; });
  return findings;
}

CheckResult weighed(std::vector<Finding> changes, const std::vector<Finding>& before,
                    std::size_t pages) {
  std::size_t repairs = 0;
  std::size_t open = 0;
  for (const Finding& issue : before) {
    if (issue.state != "issue" || issue.page >= static_cast<Int>(pages)) continue;
    const auto change =
        std::ranges::find_if(changes, [&](const Finding& made) { return meet(made, issue); });
    if (change != changes.end()) {
      if (change->kind == "expected") continue;  // one change for two issues
      change->kind = "expected";
      change->state = "expected";
      change->severity = "low";
      change->title = kRepaired + nameOf(issue);
      ++repairs;
      continue;
    }
    const bool told = issue.kind == "words" || issue.kind == "breaks";
    Finding finding = issue;
    finding.against = "previous";
    finding.severity = "medium";
    finding.state = "open";
    finding.state_by.reset();
    finding.state_at.reset();
    finding.title = (told ? kNotRepaired : kPerhapsRepaired) + nameOf(issue);
    finding.before.reset();  // the version before reads the same
    finding.ref_box = issue.box;
    changes.push_back(std::move(finding));
  }
  for (const Finding& finding : changes) open += finding.state == "open";
  std::ranges::stable_sort(changes, {}, &Finding::page);
  CheckResult result{std::move(changes), {}};
  if (repairs > 0) {
    result.summary = counted(repairs, "repair came through.", "repairs came through.") + " ";
  }
  result.summary += open > 0      ? counted(open, "thing to look at.", "things to look at.")
                    : repairs > 0 ? "Nothing else moved."
                                  : "Nothing moved.";
  return result;
}

}  // namespace vellix::demo
