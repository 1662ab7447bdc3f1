import QtQuick
import QtQuick.Templates as T
import Vellix.Pieces
import Vellix.Shell

// One menu of the strip, under its title. Made when it is first opened.
Menu {
    id: menu

    required property CommandsModel commands
    required property int number

    readonly property var view: commands.menus[number]

    // The pointer moved over the strip, in the title's coordinates, while the menu is open.
    signal pointed(real x, real y)

    y: parent.height
    label: view.title
    entries: view.entries.map(entry => ({
                key: entry.key,
                text: entry.text,
                enabled: entry.enabled,
                shortcut: commands.written(entry.shortcut)
            }))
    onPicked: key => commands.run(key)

    T.Overlay.modal: MouseArea {
        hoverEnabled: true
        onPositionChanged: event => {
            const at = mapToItem(menu.parent, event.x, event.y);
            menu.pointed(at.x, at.y);
        }
    }
}
