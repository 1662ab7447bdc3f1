import QtQuick
import Vellix.Jobs
import Vellix.Pieces
import Vellix.Ticket

// Several tickets at once: which they are, and one report on all of them.
Item {
    id: multi

    required property FileModel file
    required property ReportModel report

    KeyboardPart {
        around: multi
    }

    ScrollArea {
        id: scroll

        anchors.fill: parent
        label: "Selected files"
        contentHeight: Math.max(height, words.height)

        Column {
            id: words

            anchors.centerIn: parent
            width: Math.min(560, scroll.width - 2 * Theme.gap24)
            topPadding: Theme.gap24
            bottomPadding: Theme.gap24
            spacing: Theme.gap12

            Label {
                width: parent.width
                size: Theme.display
                weight: Font.Bold
                text: multi.file.multi.heading
                Accessible.role: Accessible.Heading
            }

            Label {
                visible: text !== ""
                width: parent.width
                wrapMode: Text.Wrap
                size: Theme.row
                color: Theme.muted
                text: multi.file.multi.titles
            }

            ReportButtons {
                report: multi.report
            }

            ReportLines {
                width: parent.width
                leading: true
                report: multi.report
            }
        }
    }

    ScrollBar {
        view: scroll
    }
}
