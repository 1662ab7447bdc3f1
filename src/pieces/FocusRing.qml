import QtQuick
import Vellix.Pieces

// The ring around what the keyboard is at. Fill the control with it and tell the control's radius.
Rectangle {
    property real around: Theme.radiusControl

    anchors.fill: parent
    anchors.margins: -4
    radius: around + 4
    color: "transparent"
    border.width: 2
    border.color: Theme.focusLine
}
