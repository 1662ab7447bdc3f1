// What the worker does and did: the sync, the reports, and the raw log of one job.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "jobs/job_block.hpp"
#include "jobs/open_report.hpp"
#include "jobs/technical_log.hpp"

namespace vellix {

struct ReportRowView {
  std::string key;  // the job's id
  std::string icon;
  std::string title;
  std::string tone;
  std::string when;  // it ended; empty when that is not told
  std::string who;
  std::string spoken;  // what a screen reader says of it
  OpenReportView open;
  bool operator==(const ReportRowView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ReportRowView, (), (key, icon, title, tone, when, who, spoken, open))

struct TechnicalLogView {
  std::string job;     // the id of the one it is of; empty where no job is told of
  std::string button;  // shows or hides it
  bool loading = false;
  bool shown = false;
  std::string text;  // as much of it as is laid out
  bool operator==(const TechnicalLogView&) const = default;
};
BOOST_DESCRIBE_STRUCT(TechnicalLogView, (), (job, button, loading, shown, text))

struct ClaudeLogView {
  bool busy = false;        // the creature is awake
  std::string syncHeading;  // over one that has ended
  std::optional<JobBlockView> sync;
  std::vector<JobBlockView> running;  // reports, as what follows
  std::string reportsHeading;         // empty while none has ended
  std::vector<ReportRowView> reports;
  TechnicalLogView technical;
  bool operator==(const ClaudeLogView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ClaudeLogView, (),
                      (busy, syncHeading, sync, running, reportsHeading, reports, technical))

ClaudeLogView claudeLog(const Store& store, const TechnicalLog& technical, Moment now,
                        const Calendar& calendar);

}  // namespace vellix
