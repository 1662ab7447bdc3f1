import QtQuick
import Vellix.Pieces
import Vellix.Profile

// One target: earned, or how far it is.
Bevel {
    id: cell

    required property string id
    required property string icon
    required property bool earned
    required property string progress
    required property double fraction
    required property string spoken
    required property color colour
    required property color ink

    implicitHeight: 74

    Accessible.role: Accessible.ListItem
    Accessible.name: spoken

    Rectangle {
        id: disc

        x: Theme.gap12
        anchors.verticalCenter: parent.verticalCenter
        width: 38
        height: 38
        radius: 19
        color: cell.earned ? cell.colour : Qt.alpha(Theme.muted, 0.14)

        Symbol {
            anchors.centerIn: parent
            size: 18
            name: cell.icon
            color: cell.earned ? cell.ink : Theme.muted
        }
    }

    Column {
        anchors.left: disc.right
        anchors.leftMargin: Theme.gap12
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Label {
            width: parent.width
            size: Theme.body
            weight: Font.DemiBold
            tellsWhole: true
            text: cell.id
            Accessible.ignored: true
        }

        Figure {
            width: parent.width
            size: Theme.small
            weight: Font.Normal
            color: Theme.muted
            text: cell.progress
        }

        Item {
            visible: !cell.earned
            width: parent.width
            height: 8

            ProgressBar {
                y: 4
                width: parent.width
                value: cell.fraction
                color: cell.colour
            }
        }
    }
}
