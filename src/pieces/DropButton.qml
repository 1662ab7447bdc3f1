import QtQuick
import Vellix.Pieces

// A raised capsule that opens a popover, lit while that is `open`. `label` is its name; what it shows
// is its content, side by side.
Pressable {
    id: button

    property bool open: false
    property real padding: 12
    property alias spacing: row.spacing
    default property alias content: row.data

    expandable: true
    expanded: open
    radius: height / 2
    implicitWidth: Math.ceil(row.implicitWidth) + 2 * padding
    implicitHeight: 28

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: Theme.raised
        border.width: 1
        border.color: button.open ? Theme.selectedLine : Theme.quietFill
    }

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: button.open ? Theme.selectedFill : Theme.text
        opacity: button.open ? 1 : button.hovered ? 0.05 : 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }

    Row {
        id: row

        anchors.centerIn: parent
        height: parent.height
        spacing: 6
    }
}
