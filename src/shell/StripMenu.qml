import QtQuick
import QtQuick.Templates as T
import Vellix.Pieces
import Vellix.Shell

// One menu of the strip, under its title.
Menu {
    id: menu

    required property CommandsModel commands
    required property int number

    readonly property menuView view: commands.menus[number]

    // The pointer moved over the strip, in the title's coordinates, while the menu is open.
    signal pointed(real x, real y)

    y: parent.height
    label: view.title
    entries: Array.from(view.entries, entry => ({
                key: entry.key,
                text: entry.text,
                enabled: entry.enabled,
                shortcut: commands.written(entry.shortcut)
            }))
    onPicked: key => commands.run(key)

    T.Overlay.modal: Ground {
        id: cover

        HoverHandler {
            // A pointer that only rests there, while keys are used, leads nowhere.
            property var last: null

            onPointChanged: {
                const at = point.position;
                const moved = last && (at.x !== last.x || at.y !== last.y);
                last = Qt.point(at.x, at.y);
                if (!moved)
                    return;
                const there = cover.mapToItem(menu.parent, at);
                menu.pointed(there.x, there.y);
            }
        }
    }
}
