import QtQuick
import Vellix.Pieces

// Says that the sign-in waits for the browser, and calls it off.
FocusScope {
    id: sheet

    required property bool open
    // Where the keyboard begins.
    readonly property Item first: cancelButton
    // The keyboard is here, and came here by key.
    readonly property bool keyed: cancelButton.visualFocus || againButton.visualFocus

    signal again()
    signal cancel()

    implicitWidth: 440
    implicitHeight: 60
    visible: open || opacity > 0
    opacity: open ? 1 : 0

    Accessible.role: Accessible.Dialog
    Accessible.name: heading.text

    Behavior on opacity {
        Glide {}
    }

    Shadow {
        anchors.fill: card
    }

    Rectangle {
        id: card

        width: parent.width
        height: parent.height
        y: (1 - sheet.opacity) * Theme.gap8
        radius: Theme.radiusCard
        color: Theme.raised
        border.width: 1
        border.color: Theme.quietFill

        Ground {
            anchors.fill: parent
        }

        Column {
            anchors.left: parent.left
            anchors.leftMargin: Theme.gap16
            anchors.right: buttons.left
            anchors.rightMargin: Theme.gap16
            anchors.verticalCenter: parent.verticalCenter
            spacing: 2

            Label {
                id: heading

                width: parent.width
                weight: Font.DemiBold
                text: "Waiting for your browser"
            }

            Label {
                width: parent.width
                size: Theme.note
                color: Theme.muted
                text: "Finish there and you're in."
            }
        }

        Row {
            id: buttons

            anchors.right: parent.right
            anchors.rightMargin: Theme.gap16
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.gap16

            TextButton {
                id: againButton

                anchors.verticalCenter: parent.verticalCenter
                text: "Open it again"
                help: "Open the sign-in page again"
                onClicked: sheet.again()
            }

            Pill {
                id: cancelButton

                anchors.verticalCenter: parent.verticalCenter
                title: "Cancel"
                onClicked: sheet.cancel()
            }
        }
    }
}
