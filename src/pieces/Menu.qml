pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces

// Things to do, in a list that drops down. `entries` are maps of `key`, `text`, `enabled` and, where
// wanted, `shortcut` as it is written, `checked`, `help`, and `stays`, which keeps the menu open when
// the entry is picked; one without a key is a separator.
Popover {
    id: menu

    required property var entries

    // The pointer is on it.
    readonly property alias pointed: pointer.hovered

    signal picked(string key)
    // An arrow that leads out of the menu, to the one beside it.
    signal left()
    signal right()

    function go(index: int, by: int) {
        for (let i = index + by; i >= 0 && i < lines.count; i += by) {
            const line = lines.itemAt(i) as MenuEntry;
            if (line && line.takesFocus) {
                line.forceActiveFocus(Qt.TabFocusReason);
                return;
            }
        }
    }

    radius: Theme.radiusRow
    padding: 5

    onOpened: if (byKey) go(-1, 1)

    // Made at once, as is wanted.
    // qmllint disable deferred-property-id
    contentItem: FocusScope {
        implicitWidth: Math.max(184, column.implicitWidth)
        implicitHeight: column.implicitHeight
        focus: true

        Accessible.role: Accessible.PopupMenu
        Accessible.name: menu.label

        HoverHandler {
            id: pointer
        }

        Keys.onDownPressed: menu.go(-1, 1)
        Keys.onUpPressed: menu.go(lines.count, -1)
        Keys.onLeftPressed: menu.left()
        Keys.onRightPressed: menu.right()

        Column {
            id: column

            width: parent.width

            Repeater {
                id: lines

                // By number: an entry that changes while the menu is open keeps its place and focus.
                model: menu.entries.length

                MenuEntry {
                    required property int index

                    width: column.width
                    entry: menu.entries[index]
                    onClicked: {
                        const key = entry.key;
                        if (!entry.stays)
                            menu.close();
                        menu.picked(key);
                    }
                    Keys.onDownPressed: menu.go(index, 1)
                    Keys.onUpPressed: menu.go(index, -1)
                    Keys.onPressed: event => {
                        if (event.key === Qt.Key_Home)
                            menu.go(-1, 1);
                        else if (event.key === Qt.Key_End)
                            menu.go(lines.count, -1);
                        else
                            return;
                        event.accepted = true;
                    }
                }
            }
        }
    }
}
