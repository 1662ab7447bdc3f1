#include "board/ActivityModel.hpp"

namespace vellix {

ActivityModel::ActivityModel(Store& store, const MainLoop& clock, const Calendar& calendar)
    : store_(store),
      clock_(clock),
      calendar_(calendar),
      onBoard_(store.changes.observe(Store::kBoard | Store::kPolled, [this] { update(); })),
      onPanels_(store.changes.observe(Store::kPanels, [this] { followStore(); })) {
  followStore();
}

// Nobody pays for a feed that is closed.
void ActivityModel::update() {
  if (!open_) return;
  rows_.setRows(activity(store_, clock_.now(), calendar_));
}

void ActivityModel::followStore() {
  if (open_ == store_.showActivity()) return;
  open_ = store_.showActivity();
  update();
  emit openChanged();
}

void ActivityModel::setOpen(bool open) {
  store_.setShowActivity(open);
  followStore();
}

void ActivityModel::choose(const QString& key) {
  if (openEvent(store_, key.toStdString())) setOpen(false);
}

}  // namespace vellix
