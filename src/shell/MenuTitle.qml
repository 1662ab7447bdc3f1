import QtQuick
import Vellix.Pieces
import Vellix.Shell

// The name of a menu in the strip, and the menu under it.
Pressable {
    id: title

    required property int index
    required property CommandsModel commands

    readonly property alias menu: place.item
    property bool shown: false

    // Another menu is wanted: an arrow led to it, or the pointer is over its title.
    signal asked(int number, bool byKey)

    function open(byKey: bool) {
        if (!place.item)
            place.setSource("StripMenu.qml", { parent: title, commands: commands, number: index });
        place.item.openAt(byKey);
    }

    // Closes without giving the focus back; returns what had it.
    function leave(): var {
        const from = place.item.cameFrom;
        place.item.cameFrom = null;
        place.item.close();
        return from;
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

    Loader {
        id: place
    }

    Connections {
        target: place.item

        function onAboutToShow() {
            title.shown = true;
        }
        function onAboutToHide() {
            title.shown = false;
        }
        function onLeft() {
            title.asked(title.index - 1, true);
        }
        function onRight() {
            title.asked(title.index + 1, true);
        }
        function onPointed(x: real, y: real) {
            const other = title.parent.childAt(title.x + x, y) as MenuTitle;
            if (other && other !== title)
                title.asked(other.index, false);
        }
    }
}
