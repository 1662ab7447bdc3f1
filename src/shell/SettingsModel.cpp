#include "shell/SettingsModel.hpp"

namespace vellix {

SettingsModel::SettingsModel(Prefs& prefs)
    : prefs_(prefs), onPrefs_(prefs.changes.observe(Prefs::kAny, [this] { update(); })) {
  update();
}

void SettingsModel::set(const QString& key, bool on) { setToggle(prefs_, key.toStdString(), on); }

void SettingsModel::setAppearance(const QString& value) {
  prefs_.appearance.set(value.toStdString());
}

void SettingsModel::update() {
  if (view_.show(settingsView(prefs_))) emit viewChanged();
}

}  // namespace vellix
