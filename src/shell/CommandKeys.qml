pragma ComponentBehavior: Bound

import QtQml.Models
import QtQuick
import Vellix.Shell

// The shortcuts of the commands, one each, whatever shows the menus: of all in the main window, in
// another only of those that are to be had everywhere.
Item {
    id: keys

    required property CommandsModel commands
    property bool elsewhere: false

    Instantiator {
        model: keys.commands.shortcuts.length

        Shortcut {
            required property int index
            readonly property shortcutView command: keys.commands.shortcuts[index]

            sequences: command.sequences
            // A sheet that stands behind what covers the window would keep even the end from it.
            context: keys.commands.covered && !keys.elsewhere ? Qt.ApplicationShortcut : Qt.WindowShortcut
            enabled: keys.enabled && command.enabled && (!keys.elsewhere || command.everywhere)
            autoRepeat: command.repeats
            onActivated: keys.commands.run(command.key)
        }
    }
}
