#include "update/UpdateModel.hpp"

namespace vellix {

UpdateModel::UpdateModel(Updater& updater)
    : updater_(updater), onChange_(updater.changes.observe(Updater::kAny, [this] { update(); })) {
  update();
}

void UpdateModel::update() {
  if (required_.show(requiredUpdate(updater_))) emit requiredChanged();
  if (bar_.show(updateBar(updater_))) emit barChanged();
}

void UpdateModel::install() { updater_.install(); }

void UpdateModel::snooze() { updater_.snooze(); }

void UpdateModel::download() { updater_.download(); }

}  // namespace vellix
