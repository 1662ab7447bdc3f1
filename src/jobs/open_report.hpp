// The button that fetches a finished report and opens it.
#pragma once

#include <string>

#include "platform/ports/calendar.hpp"
#include "store/store.hpp"

namespace vellix {

struct OpenReportView {
  std::string report;  // its id; empty where there is none to open
  std::string label;
  bool opening = false;  // it is on its way
  bool operator==(const OpenReportView&) const = default;
};
BOOST_DESCRIBE_STRUCT(OpenReportView, (), (report, label, opening))

// Where nothing beside the button tells of the day, its label does. `report` may be null; one
// without an id cannot be asked for.
OpenReportView openReportView(const Store& store, const Report* report, std::string label);
OpenReportView openReportView(const Store& store, const Report* report, const Calendar& calendar);

// Opens the report of this id that the board tells of, if it is not on its way.
void openReport(Store& store, const std::string& id);

}  // namespace vellix
