pragma ComponentBehavior: Bound

import QtQml.Models
import QtQuick
import Vellix.Shell

// The shortcuts of all commands, one each, whatever shows the menus.
Item {
    id: keys

    required property CommandsModel commands

    readonly property var all: {
        const entries = [];
        for (const menu of commands.menus)
            for (const entry of menu.entries)
                entries.push(entry);
        return entries;
    }

    Instantiator {
        model: keys.all.length

        Shortcut {
            required property int index
            readonly property commandView command: keys.all[index]

            // Zooming in is "+" to everybody, whatever key it shares.
            sequences: command.shortcut === "Ctrl+=" ? ["Ctrl+=", "Ctrl++"]
                       : command.shortcut === "" ? [] : [command.shortcut]
            enabled: keys.enabled && command.enabled
            // Held down, only the zoom goes on.
            autoRepeat: command.key === "zoomIn" || command.key === "zoomOut"
            onActivated: keys.commands.run(command.key)
        }
    }
}
