import QtQuick
import Vellix.Pieces
import Vellix.Profile

// How many real issues of one kind there were.
PressArea {
    id: row

    required property int index
    required property string word
    required property double fraction
    required property string count
    required property string spoken
    required property color colour

    activeFocusOnTab: false
    implicitHeight: 26

    Accessible.role: Accessible.ListItem
    Accessible.name: spoken
    Accessible.focusable: true

    FocusRing {
        visible: row.visualFocus
        anchors.margins: -1
    }

    Label {
        id: kind

        x: Theme.gap4
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(160, row.width * 0.36)
        size: Theme.body
        tellsWhole: true
        text: row.word
        Accessible.ignored: true
    }

    Bar {
        anchors.left: kind.right
        anchors.leftMargin: Theme.gap12
        anchors.right: number.left
        anchors.rightMargin: Theme.gap12
        anchors.verticalCenter: parent.verticalCenter
        height: 10
        least: 6
        round: 5
        fraction: row.fraction
        color: row.colour
    }

    Figure {
        id: number

        anchors.right: parent.right
        anchors.rightMargin: Theme.gap4
        anchors.verticalCenter: parent.verticalCenter
        // Equally wide, so that the bars may be compared.
        width: Math.max(36, Math.min(implicitWidth, row.width * 0.25))
        size: Theme.body
        weight: Font.DemiBold
        trailing: true
        text: row.count
    }
}
