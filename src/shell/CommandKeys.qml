pragma ComponentBehavior: Bound

import QtQml.Models
import QtQuick
import Vellix.Shell

// The shortcuts of the commands, one each, whatever shows the menus: of all in the main window, in
// another only of those that are to be had everywhere. A menu bar of the system's own listens for
// what stands in it.
Item {
    id: keys

    required property CommandsModel commands
    property bool elsewhere: false
    property bool systemMenus: false

    Instantiator {
        model: keys.commands.shortcuts.length

        Shortcut {
            required property int index
            readonly property shortcutView command: keys.commands.shortcuts[index]

            sequences: command.sequences
            // A sheet that stands behind what covers the window would keep even the end from it.
            context: keys.commands.covered && !keys.elsewhere ? Qt.ApplicationShortcut : Qt.WindowShortcut
            enabled: command.enabled && (!keys.elsewhere || command.everywhere)
                     && !(keys.systemMenus && command.listed)
            autoRepeat: command.repeats
            onActivated: keys.commands.run(command.key)
        }
    }
}
