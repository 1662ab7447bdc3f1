import QtQuick
import Vellix.Pieces

// A row that is pressed as a whole: a ground under the pointer where that is wanted, and what it shows is its content.
Pressable {
    id: row

    property bool ground: true

    radius: Theme.radiusRow
    pressedScale: 0.985

    Rectangle {
        anchors.fill: parent
        radius: row.radius
        color: Theme.hoverFill
        opacity: row.ground && row.hovered ? 1 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }
}
