import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// A job that waits, or that nobody answers for.
Item {
    id: head

    required property jobBlockView job

    readonly property bool waits: job.kind === "queued"

    implicitHeight: words.implicitHeight

    Spinner {
        visible: head.waits
        y: (title.implicitHeight - height) / 2
        size: 13
    }

    Symbol {
        visible: !head.waits
        y: (title.implicitHeight - height) / 2
        size: 14
        name: head.job.icon
        color: Theme.strong[head.job.tone] ?? Theme.muted
    }

    Column {
        id: words

        x: 21
        width: parent.width - x
        spacing: 2

        Label {
            id: title

            width: parent.width
            size: head.waits ? Theme.lead : Theme.row
            weight: Font.DemiBold
            text: head.job.title
        }

        Label {
            width: parent.width
            wrapMode: Text.Wrap
            lineHeight: 1.2
            size: Theme.note
            color: Theme.muted
            text: head.job.line
        }
    }
}
