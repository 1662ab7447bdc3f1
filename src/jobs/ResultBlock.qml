pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// What became of a job.
Column {
    id: block

    required property resultBlockView result

    spacing: 6

    Item {
        width: parent.width
        height: title.implicitHeight

        Symbol {
            id: mark

            anchors.verticalCenter: parent.verticalCenter
            size: 14
            name: block.result.icon
            color: title.color
        }

        Label {
            id: title

            anchors.left: mark.right
            anchors.leftMargin: 7
            size: Theme.lead
            weight: Font.DemiBold
            color: Theme.strong[block.result.tone] ?? Theme.muted
            text: block.result.title
        }

        Label {
            anchors.left: title.right
            anchors.leftMargin: Theme.gap8
            anchors.right: parent.right
            anchors.baseline: title.baseline
            horizontalAlignment: Text.AlignRight
            size: Theme.small
            color: Theme.faint
            text: block.result.finished
        }
    }

    Repeater {
        model: KeyedRows {
            rows: block.result.lines
        }

        MarkedLine {
            required property resultLineView value

            width: block.width
            text: value.text
            icon: value.icon
            ink: Theme.strong[value.tone] ?? Theme.muted
            markSize: 14
        }
    }

    Label {
        visible: text !== ""
        width: parent.width
        size: Theme.tiny
        color: Theme.muted
        text: block.result.by
    }
}
