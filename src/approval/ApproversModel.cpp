#include "approval/ApproversModel.hpp"

namespace vellix {

ApproversModel::ApproversModel(Store& store)
    : store_(store),
      onChange_(store.changes.observe(Store::kBoard | Store::kBusy, [this] { update(); })) {
  update();
}

void ApproversModel::update() {
  if (!store_.board()) clear();
  if (section_.show(approversSection(store_, adding_))) emit sectionChanged();
}

void ApproversModel::type(std::string& field, const QString& text) {
  if (!store_.board() || field == text.toStdString()) return;
  field = text.toStdString();
  emit typedChanged();
  update();
}

void ApproversModel::clear() {
  if (adding_.empty() && addName_.empty()) return;
  adding_.clear();
  addName_.clear();
  emit typedChanged();
}

void ApproversModel::add() {
  if (!addApprover(store_, adding_, addName_)) return;
  clear();
  update();
}

void ApproversModel::remove(const QString& email) { removeApprover(store_, email.toStdString()); }

}  // namespace vellix
