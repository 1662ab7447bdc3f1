#include "jobs/open_report.hpp"

#include <algorithm>

namespace vellix {
namespace {

constexpr const char* kOpens = "Open the report";

bool isOpening(const Store& store, const std::string& id) {
  return store.busy().contains("open-" + id);
}

}  // namespace

OpenReportView openReportView(const Store& store, const Report* report, std::string label) {
  if (!report || report->id.empty()) return {};
  return {.report = report->id, .label = std::move(label), .opening = isOpening(store, report->id)};
}

OpenReportView openReportView(const Store& store, const Report* report, const Calendar& calendar) {
  if (!report || !report->at) return openReportView(store, report, kOpens);
  const auto day = calendar.monthAndDay(momentOf(*report->at));
  return openReportView(store, report, std::string{kOpens} + " from " + day);
}

void openReport(Store& store, const std::string& id) {
  const auto& board = store.board();
  if (!board || id.empty() || isOpening(store, id)) return;
  const auto report = std::ranges::find(board->reports, id, &Report::id);
  if (report != board->reports.end()) store.openReport(*report);
}

}  // namespace vellix
