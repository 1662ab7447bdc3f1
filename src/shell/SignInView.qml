import QtQuick
import Vellix.Pieces

// The first screen of a person who is not signed in.
Rectangle {
    color: Theme.window

    Column {
        anchors.centerIn: parent
        width: Math.min(420, parent.width - 2 * Theme.gap24)
        spacing: Theme.gap16

        SorelMark {
            anchors.horizontalCenter: parent.horizontalCenter
            size: 56
        }

        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            font.family: Theme.serif
            size: 34
            text: "Vellix"
            Accessible.role: Accessible.Heading
        }

        Label {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            size: Theme.large
            color: Theme.muted
            text: "Supplier proofs, checked against what we sent."
        }
    }

    Label {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.gap24
        size: Theme.note
        color: Theme.faint
        text: "For Renny and Jorvas"
    }
}
