// The values that views here take, by their names in QML.
#pragma once

#include "bridge/ViewType.hpp"
#include "shell/commands.hpp"
#include "shell/mark_lab.hpp"
#include "shell/root_view.hpp"
#include "shell/settings.hpp"
#include "shell/sign_in_screen.hpp"

namespace vellix {

VELLIX_VIEW(CommandView, commandView)
VELLIX_VIEW(LabPill, labPill)
VELLIX_VIEW(MarkLabView, markLabView)
VELLIX_VIEW(MenuView, menuView)
VELLIX_VIEW(RootViewValue, rootViewValue)
VELLIX_VIEW(SettingsSection, settingsSection)
VELLIX_VIEW(SettingsViewValue, settingsViewValue)
VELLIX_VIEW(ShortcutView, shortcutView)
VELLIX_VIEW(SignInView, signInView)
VELLIX_VIEW(ToastShown, toastShown)
VELLIX_VIEW(ToggleView, toggleView)

}  // namespace vellix
