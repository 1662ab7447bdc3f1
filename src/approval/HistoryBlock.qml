pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Approval
import Vellix.Pieces

// What happened to one version.
Column {
    id: part

    required property historyBlockView block

    spacing: Theme.gap8

    Accessible.role: Accessible.List
    Accessible.name: block.head

    Label {
        visible: text !== ""
        width: parent.width
        size: Theme.body
        weight: Font.DemiBold
        tellsWhole: true
        text: part.block.head
        Accessible.role: Accessible.Heading
    }

    Label {
        visible: text !== ""
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.body
        color: Theme.muted
        text: part.block.note
    }

    Repeater {
        model: KeyedRows {
            rows: part.block.rows
        }

        HistoryRow {
            required property historyRowView value

            width: part.width
            event: value
        }
    }
}
