#include "board/PlanModel.hpp"

#include "bridge/replaced.hpp"

namespace vellix {

PlanModel::PlanModel(Store& store, const MainLoop& clock, const Calendar& calendar)
    : store_(store),
      clock_(clock),
      calendar_(calendar),
      onChange_(
          store.changes.observe(Store::kBoard | Store::kSelection | Store::kBusy | Store::kPolled,
                                [this] { update(); })) {
  update();
}

void PlanModel::update() {
  const Moment now = clock_.now();
  const FileItem* file = store_.currentFile();
  const auto due = file ? dueButton(store_, *file, now, calendar_) : DueButtonView{};
  if (replaced(due_, due)) emit dueChanged();
  if (replaced(reviewer_, file ? assignButton(store_, *file) : AssignButtonView{})) {
    emit reviewerChanged();
  }
}

double PlanModel::firstPick() const {
  const FileItem* file = store_.currentFile();
  return file ? wireOf(vellix::firstPick(*file, clock_.now())) : 0;
}

QVariantMap PlanModel::picker(double pick, double earliest, double latest) const {
  return toQml(datePicker(momentOf(pick), {momentOf(earliest), momentOf(latest)}, calendar_))
      .toMap();
}

MomentRange PlanModel::range() const {
  return {momentOf(due_["earliest"].toDouble()), momentOf(due_["latest"].toDouble())};
}

double PlanModel::stepped(double pick, const QString& part, int by) const {
  return wireOf(vellix::stepped(momentOf(pick), part.toStdString(), by, range(), calendar_));
}

double PlanModel::typed(double pick, const QString& part, int number) const {
  return wireOf(vellix::typed(momentOf(pick), part.toStdString(), number, range(), calendar_));
}

void PlanModel::setDue(double pick) {
  const FileItem* file = store_.currentFile();
  if (file) store_.setDueDate(*file, dueToSet(*file, momentOf(pick), clock_.now()));
}

void PlanModel::setUrgent(bool urgent) {
  if (const FileItem* file = store_.currentFile()) store_.setUrgent(*file, urgent);
}

void PlanModel::resetDue() {
  if (const FileItem* file = store_.currentFile()) store_.resetDue(*file);
}

void PlanModel::assign(const QString& email) {
  const FileItem* file = store_.currentFile();
  if (file) chooseReviewer(store_, *file, email.toStdString());
}

void PlanModel::move() {
  if (const FileItem* file = store_.currentFile()) moveToOtherQueue(store_, *file);
}

}  // namespace vellix
