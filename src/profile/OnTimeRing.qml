import QtQuick
import Vellix.Pieces
import Vellix.Profile

// How much of the reviewing was in time.
Item {
    id: onTime

    required property onTimeRingView ring
    required property color colour

    implicitHeight: track.height + Theme.gap12 + note.height

    Ring {
        id: track

        anchors.horizontalCenter: parent.horizontalCenter
        width: 150
        height: 150
        thickness: 14
        color: Qt.alpha(Theme.muted, 0.14)

        Accessible.role: Accessible.StaticText
        Accessible.name: onTime.ring.spoken

        Ring {
            anchors.fill: parent
            thickness: parent.thickness
            sweep: onTime.ring.fraction
            color: onTime.colour
        }

        Column {
            anchors.centerIn: parent
            width: 104

            Figure {
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.min(implicitWidth, parent.width)
                size: 30
                text: onTime.ring.value
            }

            Label {
                anchors.horizontalCenter: parent.horizontalCenter
                size: 11.5
                color: Theme.muted
                text: onTime.ring.label
                Accessible.ignored: true
            }
        }
    }

    CentredLabel {
        id: note

        anchors.top: track.bottom
        anchors.topMargin: Theme.gap12
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, 260)
        size: Theme.small
        color: Theme.muted
        text: onTime.ring.note
    }
}
