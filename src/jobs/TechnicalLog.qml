import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// The raw log of a job, for whoever needs it: shown and hidden by its button.
Column {
    id: technical

    required property technicalLogView log

    readonly property alias button: control

    signal pressed()

    spacing: Theme.gap8

    Item {
        width: parent.width
        height: control.implicitHeight

        TextButton {
            id: control

            width: Math.min(implicitWidth, parent.width)
            size: Theme.note
            text: technical.log.button
            onClicked: technical.pressed()
        }

        LateSpinner {
            anchors.left: control.right
            anchors.leftMargin: Theme.gap8
            anchors.verticalCenter: parent.verticalCenter
            waits: technical.log.loading
        }
    }

    Rectangle {
        visible: technical.log.shown
        width: parent.width
        height: Math.min(220, words.implicitHeight + 2 * Theme.gap12)
        radius: Theme.radiusRow
        color: Theme.quietFill

        ScrollArea {
            id: scroll

            anchors.fill: parent
            anchors.margins: 4
            label: "Technical log"
            contentHeight: words.implicitHeight + 2 * words.y

            Label {
                id: words

                x: Theme.gap8
                y: Theme.gap8
                width: scroll.width - 2 * x
                wrapMode: Text.Wrap
                verticalAlignment: Text.AlignTop
                size: Theme.tiny
                color: Theme.muted
                font.family: Theme.fixed
                text: technical.log.text
            }
        }

        ScrollBar {
            view: scroll
        }
    }
}
