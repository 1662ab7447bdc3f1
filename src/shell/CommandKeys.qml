pragma ComponentBehavior: Bound

import QtQml.Models
import QtQuick
import Vellix.Shell

// The shortcuts of all commands, one each, whatever shows the menus.
Item {
    id: keys

    required property CommandsModel commands

    Instantiator {
        model: keys.commands.shortcuts.length

        Shortcut {
            required property int index
            readonly property shortcutView command: keys.commands.shortcuts[index]

            sequences: command.sequences
            enabled: keys.enabled && command.enabled
            autoRepeat: command.repeats
            onActivated: keys.commands.run(command.key)
        }
    }
}
