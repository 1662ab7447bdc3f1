import QtQuick
import Vellix.Pieces

// The inset ground of a tile: a soft fill with a highlight along its inner edge.
Rectangle {
    radius: Theme.radiusRow
    color: Theme.hoverFill

    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        radius: parent.radius - 1
        color: "transparent"
        border.width: 1
        border.color: Theme.bevelLine
    }
}
