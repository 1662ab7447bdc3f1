import QtQuick
import Vellix.Notes
import Vellix.Pieces

// Who is tagged, as a small capsule in the person's colour.
Rectangle {
    id: capsule

    required property tagChipView chip
    property real room: Infinity

    readonly property color ink: chip.color === "" ? Theme.muted : chip.color

    width: Math.min(Math.ceil(words.implicitWidth) + 16, room)
    height: 20
    radius: 10
    color: Qt.alpha(ink, 0.16)

    Accessible.role: Accessible.StaticText
    Accessible.name: chip.name

    Label {
        id: words

        x: 8
        width: Math.max(0, parent.width - 16)
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.small
        weight: Font.Medium
        color: Theme.text
        tellsWhole: true
        text: capsule.chip.name
        Accessible.ignored: true
    }
}
