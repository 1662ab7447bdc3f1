import QtQuick
import Vellix.Pieces

// Takes a pane's place when it has no picture.
Item {
    id: none

    required property string what
    required property string why

    Column {
        anchors.centerIn: parent
        width: Math.min(240, none.width)
        spacing: Theme.gap8

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            size: 22
            name: "doc.questionmark"
            color: Theme.faint
        }

        CentredLabel {
            width: parent.width
            size: Theme.row
            weight: Font.Medium
            text: none.what
        }

        CentredLabel {
            width: parent.width
            size: Theme.note
            color: Theme.muted
            text: none.why
        }
    }
}
