#include "jobs/ClaudeLogModel.hpp"

namespace vellix {

ClaudeLogModel::ClaudeLogModel(Store& store, API& api, const MainLoop& clock,
                               const Calendar& calendar)
    : store_(store),
      clock_(clock),
      calendar_(calendar),
      technical_(api, [this] { update(); }),
      onChange_(store.changes.observe(
          Store::kSignedIn | Store::kBoard | Store::kBusy | Store::kPolled, [this] { update(); })) {
  update();
}

void ClaudeLogModel::update() {
  // One session may follow another without a sign-out; the board goes with each.
  if (!store_.signedIn() || !store_.board()) technical_.discard();
  if (busy_ != store_.anyJobActive()) {
    busy_ = !busy_;
    emit busyChanged();
  }
  if (readers_.empty()) return;
  if (log_.show(claudeLog(store_, technical_.log(), clock_.now(), calendar_))) emit logChanged();
}

void ClaudeLogModel::reads(QObject* reader, bool reading) {
  disconnect(reader, nullptr, this, nullptr);
  if (reading) {
    readers_.insert(reader);
    connect(reader, &QObject::destroyed, this, [this, reader] { reads(reader, false); });
  } else {
    readers_.erase(reader);
  }
  if (readers_.empty()) technical_.discard();
  update();
}

void ClaudeLogModel::stop(const QString& job) { stopJob(store_, job.toStdString()); }
void ClaudeLogModel::open(const QString& report) { openReport(store_, report.toStdString()); }

void ClaudeLogModel::pressTechnical() {
  technical_.press(log_->technical.job);
  update();
}

}  // namespace vellix
