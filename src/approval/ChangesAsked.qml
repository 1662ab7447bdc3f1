import QtQuick
import Vellix.Approval
import Vellix.Pieces

// What somebody wants to have changed.
Rectangle {
    id: block

    required property changesAskedView changes

    implicitHeight: words.implicitHeight + 2 * Theme.gap8
    radius: Theme.radiusRow
    color: Theme.tint.red

    Column {
        id: words

        x: Theme.gap12
        y: Theme.gap8
        width: parent.width - 2 * x
        spacing: 2

        Label {
            width: parent.width
            wrapMode: Text.Wrap
            size: Theme.note
            weight: Font.Medium
            color: Theme.strong.red
            text: block.changes.line
        }

        Label {
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
            size: Theme.body
            text: block.changes.note
        }
    }
}
