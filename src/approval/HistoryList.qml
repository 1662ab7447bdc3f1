pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Approval
import Vellix.Pieces

// The ticket's story: where it came from, and what happened to each of its versions.
Column {
    id: list

    required property HistoryModel history

    readonly property originView origin: history.origin
    readonly property historyView story: history.history

    spacing: Theme.gap12

    onVisibleChanged: history.reads(list, visible)
    Component.onCompleted: history.reads(list, visible)
    Component.onDestruction: history.reads(list, false)

    SectionTitle {
        text: "WHERE IT CAME FROM"
    }

    Label {
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.body
        text: list.origin.line
    }

    TextButton {
        visible: list.origin.folder !== ""
        text: "Filed in the PO folder"
        icon: "folder"
        Accessible.role: Accessible.Link
        onClicked: Qt.openUrlExternally(list.origin.folder)
    }

    Repeater {
        model: KeyedRows {
            rows: list.origin.checked
        }

        CheckedAgainst {
            required property checkedAgainstView value

            width: list.width
            file: value
        }
    }

    Label {
        visible: text !== ""
        width: parent.width
        wrapMode: Text.Wrap
        size: Theme.body
        color: Theme.muted
        text: list.origin.unchecked
    }

    Item {
        width: parent.width
        height: title.implicitHeight + Theme.gap12

        Label {
            id: title

            anchors.bottom: parent.bottom
            size: Theme.lead
            weight: Font.DemiBold
            text: "History"
            Accessible.role: Accessible.Heading
        }

        Label {
            anchors.right: parent.right
            anchors.baseline: title.baseline
            size: Theme.note
            color: Theme.faint
            text: list.story.count
        }
    }

    Label {
        visible: text !== ""
        width: parent.width
        size: Theme.body
        color: Theme.muted
        text: list.story.nothing
    }

    Repeater {
        model: KeyedRows {
            rows: list.story.blocks
        }

        HistoryBlock {
            required property historyBlockView value

            width: list.width
            block: value
        }
    }
}
