// The settings as the settings window shows them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pieces/choice.hpp"
#include "records/described.hpp"
#include "store/prefs.hpp"

namespace vellix {

struct ToggleView {
  std::string key;
  std::string label;
  bool on = false;
  bool operator==(const ToggleView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ToggleView, (), (key, label, on))

struct SettingsSection {
  std::string title;
  std::vector<ToggleView> toggles;
  bool operator==(const SettingsSection&) const = default;
};
BOOST_DESCRIBE_STRUCT(SettingsSection, (), (title, toggles))

struct SettingsViewValue {
  std::string appearance;  // key of one of the choices
  std::vector<ChoiceView> appearances;
  std::vector<SettingsSection> sections;
  std::string trouble;  // empty as long as there is none
  bool operator==(const SettingsViewValue&) const = default;
};
BOOST_DESCRIBE_STRUCT(SettingsViewValue, (), (appearance, appearances, sections, trouble))

SettingsViewValue settingsView(const Prefs& prefs);

// A key that is no setting's changes nothing.
void setToggle(Prefs& prefs, std::string_view key, bool on);

// "light" or "dark", or "system" for that and for any other text that was stored.
std::string appearanceOf(const Prefs& prefs);

}  // namespace vellix
