pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces

// Things to do, in a list that drops down. `entries` are maps of `key`, `text`, `enabled` and, where
// wanted, `shortcut` as it is written, `checked`, `help`, and `stays`, which keeps the menu open when
// the entry is picked; one without a key is a separator.
Popover {
    id: menu

    required property var entries

    // The most that fits into the window, and is still read as a list.
    readonly property real widest: Math.min(360, (parent?.Window.width ?? 0) - 2 * (margins + padding))
    readonly property real tallest: (parent?.Window.height ?? 0) - 2 * (margins + padding)

    // The pointer is on it.
    readonly property alias pointed: pointer.hovered

    signal picked(string key)
    // An arrow that leads out of the menu, to the one beside it.
    signal left()
    signal right()

    // To the next entry from this one, if there is one.
    function go(index: int, by: int): bool {
        for (let i = index + by; i >= 0 && i < lines.count; i += by) {
            const line = lines.itemAt(i) as MenuEntry;
            if (line && line.takesFocus) {
                line.forceActiveFocus(Qt.TabFocusReason);
                return true;
            }
        }
        return false;
    }
    // By so many entries, or else as far as there are any.
    function leap(index: int, by: int) {
        const way = Math.sign(by);
        if (!go(Math.max(-1, Math.min(index + by - way, lines.count)), way) && by !== way)
            go(by > 0 ? lines.count : -1, -way);
    }

    radius: Theme.radiusRow
    padding: 5

    onVisibleChanged: if (visible && byKey) go(-1, 1)

    // Made at once, as is wanted.
    // qmllint disable deferred-property-id
    contentItem: FocusScope {
        implicitWidth: Math.max(184, Math.min(column.natural, menu.widest))
        implicitHeight: Math.min(column.implicitHeight, menu.tallest)
        focus: true

        Accessible.role: Accessible.PopupMenu
        Accessible.name: menu.label

        // An entry that the pointer moves to is at hand; not one that comes under it while keys scroll.
        HoverHandler {
            id: pointer

            property var last: null

            onHoveredChanged: last = null
            onPointChanged: {
                const at = point.scenePosition;
                const moved = last && (at.x !== last.x || at.y !== last.y);
                last = Qt.point(at.x, at.y);
                const inside = column.mapFromItem(null, at);
                const line = moved ? column.childAt(inside.x, inside.y) as MenuEntry : null;
                if (line && line.takesFocus)
                    line.forceActiveFocus(Qt.MouseFocusReason);
            }
        }

        Keys.onDownPressed: menu.go(-1, 1)
        Keys.onUpPressed: menu.go(lines.count, -1)
        Keys.onLeftPressed: menu.left()
        Keys.onRightPressed: menu.right()

        ListKeys {
            id: keys
        }

        ScrollArea {
            id: area

            // Room for the ring of the keyboard, which would be cut off. What the pointer is on
            // stays under it.
            readonly property real air: menu.padding - 1

            anchors.fill: parent
            anchors.margins: -air
            margin: (inside as PressArea)?.visualFocus ? air : 0
            onMarginChanged: follow()
            contentHeight: column.implicitHeight + 2 * air

            Column {
                id: column

                // Of the widest entry; the entries themselves are as wide as there is room.
                readonly property real natural: {
                    let most = 0;
                    for (let i = 0; i < children.length; ++i)
                        most = Math.max(most, children[i].implicitWidth);
                    return most;
                }

                x: area.air
                y: area.air
                width: area.width - 2 * area.air

                Repeater {
                    id: lines

                    // By number: an entry that changes while the menu is open keeps its place and
                    // focus.
                    model: menu.entries.length

                    MenuEntry {
                        required property int index

                        width: column.width
                        entry: menu.entries[index] ?? ({ key: "", text: "", enabled: false })
                        onClicked: {
                            const key = entry.key;
                            // Before what is picked may open another float, which keeps it.
                            if (!entry.stays)
                                menu.close();
                            menu.picked(key);
                        }
                        Keys.onPressed: event => {
                            const page = Math.max(1, Math.floor(menu.contentHeight / height) - 1);
                            const by = keys.by(event.key, 1, page, lines.count);
                            event.accepted = by !== 0;
                            if (event.accepted)
                                menu.leap(index, by);
                        }
                    }
                }
            }
        }

        ScrollBar {
            view: area
        }
    }
}
