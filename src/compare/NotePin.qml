import QtQuick
import Vellix.Pieces

// The number of a note, standing where it belongs.
Rectangle {
    id: pin

    required property int number

    width: 22
    height: 22
    radius: 11
    color: Theme.underWhite(Theme.onPaper.accent)
    border.width: 1.5
    border.pixelAligned: false
    border.color: Theme.onAccent

    Shadow {
        anchors.fill: parent
        z: -1
        radius: 11
        blur: 6
        drop: 2
        color: Theme.shadow
    }

    Label {
        anchors.centerIn: parent
        size: 10.5
        weight: Font.Bold
        color: Theme.onAccent
        text: pin.number
        Accessible.ignored: true
    }
}
