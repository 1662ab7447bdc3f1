// The values that views here take, by their names in QML.
#pragma once

#include "bridge/ViewType.hpp"
#include "jobs/claude_log.hpp"
#include "jobs/job_block.hpp"
#include "jobs/report_area.hpp"

namespace vellix {

VELLIX_VIEW(ClaudeLogView, claudeLogView)
VELLIX_VIEW(JobBlockView, jobBlockView)
VELLIX_VIEW(OpenReportView, openReportView)
VELLIX_VIEW(ReportAreaView, reportAreaView)
VELLIX_VIEW(ReportRowView, reportRowView)
VELLIX_VIEW(ResultBlockView, resultBlockView)
VELLIX_VIEW(ResultLineView, resultLineView)
VELLIX_VIEW(StepView, stepView)
VELLIX_VIEW(StepsListView, stepsListView)
VELLIX_VIEW(TechnicalLogView, technicalLogView)

}  // namespace vellix
