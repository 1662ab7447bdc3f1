pragma ComponentBehavior: Bound

import QtQml.Models
import Qt.labs.platform as Platform
import Vellix.Shell

// The Mac's own menu bar. The entries of the first menu go where the system keeps such things.
Platform.MenuBar {
    id: bar

    required property CommandsModel commands

    readonly property var roles: ({
            settings: Platform.MenuItem.PreferencesRole,
            quit: Platform.MenuItem.QuitRole
        })

    Instantiator {
        model: bar.commands.menus.length

        onObjectAdded: (index, object) => bar.insertMenu(index, object as Platform.Menu)
        onObjectRemoved: (index, object) => bar.removeMenu(object as Platform.Menu)

        Platform.Menu {
            id: menu

            required property int index
            readonly property menuView view: bar.commands.menus[index]

            title: view.title

            Instantiator {
                model: menu.view.entries.length

                onObjectAdded: (index, object) => menu.insertItem(index, object as Platform.MenuItem)
                onObjectRemoved: (index, object) => menu.removeItem(object as Platform.MenuItem)

                Platform.MenuItem {
                    required property int index
                    readonly property commandView entry: menu.view.entries[index]

                    text: entry.text
                    shortcut: entry.shortcut
                    enabled: entry.enabled
                    separator: entry.key === ""
                    role: bar.roles[entry.key] ?? (menu.index === 0
                                                   ? Platform.MenuItem.ApplicationSpecificRole
                                                   : Platform.MenuItem.NoRole)
                    onTriggered: bar.commands.run(entry.key)
                }
            }
        }
    }
}
