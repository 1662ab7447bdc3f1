#include "approval/HistoryModel.hpp"

namespace vellix {

HistoryModel::HistoryModel(Store& store, const MainLoop& clock, const Calendar& calendar)
    : store_(store),
      clock_(clock),
      calendar_(calendar),
      onChange_(store.changes.observe(
          Store::kBoard | Store::kDetails | Store::kSelection | Store::kPolled,
          [this] { update(); })) {}

void HistoryModel::reads(QObject* reader, bool reading) {
  const bool was = read();
  if (reading) {
    readers_.insert(reader);
  } else {
    readers_.erase(reader);
  }
  if (!was) update();
}

void HistoryModel::update() {
  if (!read()) return;
  const FileDetail* detail = store_.currentDetail();
  const Moment now = clock_.now();
  if (origin_.show(detail ? originOf(*detail, now, calendar_) : OriginView{})) {
    emit originChanged();
  }
  auto told = detail ? vellix::history(store_, *detail, now, calendar_) : HistoryView{};
  if (history_.show(std::move(told))) emit historyChanged();
}

}  // namespace vellix
