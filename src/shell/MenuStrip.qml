pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces
import Vellix.Shell

// The menu bar, where the platform has none of its own.
Rectangle {
    id: strip

    required property CommandsModel commands

    // Which menu is open; none: -1.
    property int openIndex: -1

    function show(index: int, byKey: bool) {
        const count = commands.menus.length;
        const wanted = (index + count) % count;
        const next = titles.itemAt(wanted) as MenuTitle;
        if (openIndex < 0 || openIndex === wanted) {
            next.open(byKey);
            return;
        }
        // The focus goes back to where it was before the first of them.
        const last = (titles.itemAt(openIndex) as MenuTitle).menu;
        before.takeOver(last.cameFrom);
        last.close();
        next.open(byKey);
        next.menu.cameFrom.takeOver(before);
    }

    implicitHeight: 28
    color: Theme.column

    Accessible.role: Accessible.MenuBar
    Accessible.name: "Menu bar"

    CameFrom {
        id: before
    }

    Row {
        x: Theme.gap8
        height: parent.height

        Repeater {
            id: titles

            model: strip.commands.menus.length

            MenuTitle {
                height: strip.height
                commands: strip.commands
                onClicked: strip.show(index, false)
                onAsked: (number, byKey) => strip.show(number, byKey)
                onShownChanged: {
                    if (shown)
                        strip.openIndex = index;
                    else if (strip.openIndex === index)
                        strip.openIndex = -1;
                }
            }
        }
    }

    Shortcut {
        enabled: strip.visible
        sequence: "F10"
        onActivated: strip.show(0, true)
    }
}
