#include "jobs/ReportModel.hpp"

namespace vellix {

ReportModel::ReportModel(Store& store, const MainLoop& clock, const Calendar& calendar)
    : store_(store),
      clock_(clock),
      calendar_(calendar),
      onChange_(store.changes.observe(Store::kBoard | Store::kSelection | Store::kBusy,
                                      [this] { update(); })) {
  update();
}

void ReportModel::update() {
  if (area_.show(reportArea(store_, clock_.now(), calendar_))) emit areaChanged();
}

void ReportModel::make() { makeReport(store_); }
void ReportModel::open() { openShownReport(store_); }
void ReportModel::stop() { stopReport(store_); }
void ReportModel::tick() { update(); }

}  // namespace vellix
