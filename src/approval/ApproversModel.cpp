#include "approval/ApproversModel.hpp"

namespace vellix {

ApproversModel::ApproversModel(Store& store)
    : store_(store),
      onChange_(store.changes.observe(Store::kBoard | Store::kBusy, [this] { update(); })) {
  update();
}

void ApproversModel::update() {
  if (section_.show(approversSection(store_))) emit sectionChanged();
}

bool ApproversModel::valid(const QString& typed) {
  return companyAddress(typed.toStdString()).has_value();
}

bool ApproversModel::add(const QString& typed, const QString& name) {
  return addApprover(store_, typed.toStdString(), name.toStdString()).has_value();
}

void ApproversModel::remove(const QString& email) { removeApprover(store_, email.toStdString()); }

}  // namespace vellix
