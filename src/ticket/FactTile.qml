import QtQuick
import Vellix.Pieces

// One thing that is known of a ticket, under its name.
Column {
    id: tile

    required property string label
    required property string value
    property real widest: Infinity

    spacing: 1

    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + value

    Label {
        size: Theme.tiny
        font.letterSpacing: 0.6
        color: Theme.muted
        text: tile.label
        Accessible.ignored: true
    }

    Label {
        width: Math.min(implicitWidth, tile.widest)
        size: Theme.row
        tellsWhole: true
        text: tile.value
        Accessible.ignored: true
    }
}
