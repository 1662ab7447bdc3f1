import QtQuick
import Vellix.Pieces
import Vellix.Profile

// One figure, with what it is and what is behind it. As high as any other.
Bevel {
    id: tile

    required property string title
    required property string value
    required property string note
    required property string spoken

    implicitHeight: below.y + 2 * line.implicitHeight * Theme.lineHeight + Theme.gap12
    radius: Theme.radiusCard

    Accessible.role: Accessible.ListItem
    Accessible.name: spoken

    Label {
        id: heading

        x: Theme.gap16
        y: Theme.gap12
        width: parent.width - 2 * x
        size: Theme.note
        weight: Font.Medium
        color: Theme.muted
        tellsWhole: true
        text: tile.title
        Accessible.ignored: true
    }

    Figure {
        id: figure

        x: Theme.gap16
        anchors.top: heading.bottom
        anchors.topMargin: Theme.gap4
        width: parent.width - 2 * x
        text: tile.value
    }

    Label {
        id: below

        x: Theme.gap16
        y: figure.y + figure.height + Theme.gap4
        width: parent.width - 2 * x
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
        size: Theme.small
        color: Theme.faint
        tellsWhole: true
        text: tile.note
        Accessible.ignored: true
    }

    // For its height.
    Label {
        id: line

        visible: false
        size: Theme.small
        text: "0"
    }
}
