pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Vellix.Pieces
import Vellix.Shell

// The menu bar, where the platform has none of its own; and the shortcuts of its entries.
Rectangle {
    id: strip

    required property CommandsModel commands

    // Which menu is open; none: -1.
    property int openIndex: -1

    function show(index: int, byKey: bool) {
        const count = commands.menus.length;
        const wanted = (index + count) % count;
        const next = titles.itemAt(wanted).menu;
        commands.update();
        if (openIndex < 0 || openIndex === wanted) {
            next.openAt(byKey);
            return;
        }
        // The focus goes back to where it was before the first of them.
        const last = titles.itemAt(openIndex).menu;
        const from = last.cameFrom;
        last.cameFrom = null;
        last.close();
        next.openAt(byKey);
        next.cameFrom = from;
    }

    implicitHeight: 28
    color: Theme.column

    Accessible.role: Accessible.MenuBar
    Accessible.name: "Menu bar"

    Row {
        x: Theme.gap8
        height: parent.height

        Repeater {
            id: titles

            model: strip.commands.menus.length

            Pressable {
                id: title

                required property int index
                readonly property var view: strip.commands.menus[index]
                readonly property alias menu: menu

                label: view.title
                activeFocusOnTab: false
                pressedScale: 1
                height: strip.height
                width: Math.ceil(word.implicitWidth) + 2 * 9

                Accessible.role: Accessible.MenuItem

                onClicked: strip.show(index, false)

                Rectangle {
                    anchors.fill: parent
                    anchors.topMargin: 3
                    anchors.bottomMargin: 3
                    radius: Theme.radiusControl
                    color: menu.visible ? Theme.selectedFill : Theme.hoverFill
                    opacity: menu.visible || title.hovered ? 1 : 0
                }

                Label {
                    id: word

                    anchors.centerIn: parent
                    size: Theme.body
                    weight: title.index === 0 ? Font.DemiBold : Font.Normal
                    text: title.view.title
                    Accessible.ignored: true
                }

                Menu {
                    id: menu

                    y: title.height
                    label: title.view.title
                    entries: title.view.entries.map(entry => ({
                                key: entry.key,
                                text: entry.text,
                                enabled: entry.enabled,
                                shortcut: strip.commands.written(entry.shortcut)
                            }))
                    onPicked: key => strip.commands.run(key)
                    onLeft: strip.show(title.index - 1, true)
                    onRight: strip.show(title.index + 1, true)
                    onAboutToShow: strip.openIndex = title.index
                    onAboutToHide: if (strip.openIndex === title.index) strip.openIndex = -1

                    // While a menu is open, pointing at another's title opens that one.
                    T.Overlay.modal: MouseArea {
                        hoverEnabled: true
                        onPositionChanged: event => {
                            const at = mapToItem(title.parent, event.x, event.y);
                            const other = title.parent.childAt(at.x, at.y);
                            if (other && other !== title && other.index !== undefined)
                                strip.show(other.index, false);
                        }
                    }
                }
            }
        }
    }

    Shortcut {
        sequence: "F10"
        onActivated: strip.show(0, true)
    }
}
