pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Pieces
import Vellix.Shell

// The name of a menu in the strip, and the menu under it.
Pressable {
    id: title

    required property int index
    required property CommandsModel commands

    readonly property StripMenu menu: place.object as StripMenu
    property bool shown: false

    // Another menu is wanted: an arrow led to it, or the pointer is over its title.
    signal asked(int number, bool byKey)

    function open(byKey: bool) {
        (place.made() as StripMenu).openAt(byKey);
    }

    label: commands.menus[index].title
    expandable: true
    expanded: shown
    activeFocusOnTab: false
    pressedScale: 1
    width: Math.ceil(word.implicitWidth) + 2 * 9

    Accessible.role: Accessible.MenuItem

    Rectangle {
        anchors.fill: parent
        anchors.topMargin: 3
        anchors.bottomMargin: 3
        radius: Theme.radiusControl
        color: title.shown ? Theme.selectedFill : Theme.hoverFill
        opacity: title.shown || title.hovered ? 1 : 0
    }

    Label {
        id: word

        anchors.centerIn: parent
        size: Theme.body
        weight: title.index === 0 ? Font.DemiBold : Font.Normal
        text: title.label
        Accessible.ignored: true
    }

    OnDemand {
        id: place

        StripMenu {
            parent: title
            commands: title.commands
            number: title.index
            onAboutToShow: title.shown = true
            onAboutToHide: title.shown = false
            onLeft: title.asked(title.index - 1, true)
            onRight: title.asked(title.index + 1, true)
            onPointed: (x, y) => {
                const other = title.parent.childAt(title.x + x, y) as MenuTitle;
                if (other && other !== title)
                    title.asked(other.index, false);
            }
        }
    }
}
