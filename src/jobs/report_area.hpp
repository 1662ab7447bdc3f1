// A report on one ticket or on several together: asked for by a button, or seen at work.
#pragma once

#include <string>
#include <vector>

#include "jobs/open_report.hpp"
#include "platform/ports/calendar.hpp"
#include "store/store.hpp"

namespace vellix {

struct ReportAreaView {
  bool working = false;   // a pill and "Stop" stand in the place of the button
  std::string progress;   // of the pill
  bool stopping = false;  // the request to stop is on its way
  std::string button;
  bool canMake = false;
  std::string warning;    // why the last one did not come
  std::string made;       // whose the newest is, and of which day
  std::string driveLink;  // where it lies; empty when it is not told
  OpenReportView open;    // the newest on all that is selected
  bool operator==(const ReportAreaView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ReportAreaView, (),
                      (working, progress, stopping, button, canMake, warning, made, driveLink,
                       open))

// What is selected and on the board, in its order. Owned by the Store.
std::vector<const FileItem*> selectedFiles(const Store& store);

// On the tickets that are selected: one, or several together.
ReportAreaView reportArea(const Store& store, Moment now, const Calendar& calendar);

// Not while the one on just these tickets is in the making, or one is asked for.
bool canMakeReport(const Store& store);
// One report on all of the tickets that are selected.
void makeReport(Store& store);
// Opens the report that reportArea offers.
void openShownReport(Store& store);
// Stops the report job that reportArea shows, if it is there still and not being stopped.
void stopReport(Store& store);

}  // namespace vellix
