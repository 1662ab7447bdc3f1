import QtQuick
import Vellix.Inspector
import Vellix.Pieces

// The page by its name, and what there is to say of all its findings together.
Column {
    id: summary

    required property findingsHead head

    spacing: Theme.gap8

    Column {
        width: parent.width
        bottomPadding: Theme.gap4
        spacing: 2

        Label {
            width: parent.width
            size: Theme.title
            weight: Font.Bold
            text: summary.head.title
            Accessible.role: Accessible.Heading
        }

        Label {
            size: Theme.note
            color: Theme.faint
            text: summary.head.found
        }
    }

    Label {
        visible: text !== ""
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.note
        color: Theme.strong.amber
        text: summary.head.notice
    }

    Column {
        visible: summary.head.calm !== ""
        width: parent.width
        topPadding: Theme.gap8
        bottomPadding: Theme.gap8
        spacing: Theme.gap4

        Label {
            width: parent.width
            wrapMode: Text.Wrap
            size: Theme.row
            weight: Font.DemiBold
            text: summary.head.calm
        }

        Label {
            width: parent.width
            wrapMode: Text.Wrap
            size: Theme.body
            color: Theme.muted
            text: summary.head.calmReason
        }
    }
}
