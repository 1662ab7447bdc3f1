#include "board/PlanModel.hpp"

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
  if (due_.show(file ? dueButton(store_, *file, now, calendar_) : DueButtonView{})) {
    emit dueChanged();
  }
  if (reviewer_.show(file ? assignButton(store_, *file) : AssignButtonView{})) {
    emit reviewerChanged();
  }
  // Its range moves with the time.
  pick(pick_);
}

MomentRange PlanModel::range() const { return {momentOf(due_->earliest), momentOf(due_->latest)}; }

void PlanModel::pick(DatePick pick) {
  pick_ = std::move(pick);
  const bool any = due_->late.empty();
  if (picker_.show(any ? datePicker(pick_, range(), calendar_) : DatePickerView{})) {
    emit pickerChanged();
  }
}

void PlanModel::beginPick() {
  if (const FileItem* file = store_.currentFile()) pick({.at = firstPick(*file, clock_.now())});
}

void PlanModel::step(const QString& part, int by) {
  pick(stepped(pick_, part.toStdString(), by, range(), calendar_));
}

void PlanModel::type(const QString& part, const QString& digit) {
  const char typed = digit.size() == 1 ? digit[0].toLatin1() : '\0';
  pick(withDigit(pick_, part.toStdString(), typed, range(), calendar_));
}

void PlanModel::enter(const QString& part, int number) {
  pick(withNumber(pick_, part.toStdString(), number, range(), calendar_));
}

void PlanModel::leavePart() {
  if (!pick_.digits.empty()) pick(settled(pick_, range(), calendar_));
}

void PlanModel::setDue() {
  leavePart();
  const FileItem* file = store_.currentFile();
  if (file) store_.setDueDate(*file, dueToSet(*file, pick_.at, clock_.now()));
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
