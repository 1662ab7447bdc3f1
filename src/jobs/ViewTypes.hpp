// The values that views here take, by their names in QML.
#pragma once

#include "bridge/ViewType.hpp"
#include "jobs/report_area.hpp"

namespace vellix {

VELLIX_VIEW(OpenReportView, openReportView)
VELLIX_VIEW(ReportAreaView, reportAreaView)

}  // namespace vellix
