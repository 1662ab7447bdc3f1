#include "shell/settings.hpp"

#include <algorithm>
#include <array>

namespace vellix {
namespace {

struct Toggle {
  const char* key;
  const char* label;
  Prefs::Setting<bool> Prefs::* setting;
};

constexpr std::array kReviewing{
    Toggle{"drawToComment", "Click or drag on a page to leave a note", &Prefs::drawToComment},
    Toggle{"showPageStrip", "Show the page strip", &Prefs::showPageStrip},
    Toggle{"showNotes", "Show the notes panel", &Prefs::showNotes},
    Toggle{"openLoupe", "Zoom in on a finding when I pick it", &Prefs::openLoupe},
};
constexpr std::array kTidyingUp{
    Toggle{"foldDecided", "Fold findings once they're marked Real issue or Fine",
           &Prefs::foldDecided},
    Toggle{"showPassed", "Show checks that passed", &Prefs::showPassed},
    Toggle{"foldReviewed", "Fold reviewed tickets into their own group", &Prefs::foldReviewed},
    Toggle{"autoAdvance", "Open the next ticket after Mark reviewed", &Prefs::autoAdvance},
};
constexpr std::array kHeadsUps{
    Toggle{"liveToasts", "Tell me when the other person does something", &Prefs::liveToasts},
    Toggle{"dockBadge", "Show my open tickets on the Dock icon", &Prefs::dockBadge},
};

template <std::size_t N>
SettingsSection section(const char* title, const std::array<Toggle, N>& toggles,
                        const Prefs& prefs) {
  SettingsSection view{.title = title, .toggles = {}};
  for (const Toggle& toggle : toggles) {
    view.toggles.push_back(
        {.key = toggle.key, .label = toggle.label, .on = (prefs.*toggle.setting)()});
  }
  return view;
}

template <std::size_t N>
void setIn(const std::array<Toggle, N>& toggles, Prefs& prefs, std::string_view key, bool on) {
  for (const Toggle& toggle : toggles) {
    if (toggle.key == key) (prefs.*toggle.setting).set(on);
  }
}

}  // namespace

SettingsViewValue settingsView(const Prefs& prefs) {
  return {.appearance = appearanceOf(prefs),
          .appearances = {{"system", "Match the Mac"}, {"light", "Light"}, {"dark", "Dark"}},
          .sections = {section("Reviewing", kReviewing, prefs),
                       section("Tidying up", kTidyingUp, prefs),
                       section("Heads-ups", kHeadsUps, prefs)},
          .trouble = prefs.lasting() ? "" : "These can't be saved here. They hold until you quit."};
}

void setToggle(Prefs& prefs, std::string_view key, bool on) {
  setIn(kReviewing, prefs, key, on);
  setIn(kTidyingUp, prefs, key, on);
  setIn(kHeadsUps, prefs, key, on);
}

std::string appearanceOf(const Prefs& prefs) {
  const std::string& stored = prefs.appearance();
  return stored == "light" || stored == "dark" ? stored : "system";
}

}  // namespace vellix
