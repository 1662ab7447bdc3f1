import QtQuick
import Vellix.Jobs
import Vellix.Pieces
import Vellix.Ticket

// What is done with the ticket as a whole. `leading` puts it at the left of its room.
Column {
    id: actions

    required property FileModel file
    required property ReportModel report
    property bool leading: false

    // What else stands in the row, in front of it.
    readonly property alias lead: front
    // As wide as it would like to be by itself; its lines wrap.
    readonly property real wanted: Math.max(review.implicitWidth + buttons.spacing + make.implicitWidth,
                                            lines.visible ? Math.min(lines.natural, 320) : 0)

    spacing: Theme.gap8

    FlowRow {
        id: buttons

        width: actions.leading ? parent.width : implicitWidth
        height: implicitHeight
        x: actions.leading ? 0 : actions.width - width
        spacing: Theme.gap8

        Item {
            id: front

            width: childrenRect.width
            height: childrenRect.height
        }

        Pill {
            id: review

            readonly property reviewButtonView shown: actions.file.review

            height: 28
            says: shown.text
            enabled: shown.enabled
            title: shown.text
            icon: shown.icon
            filled: shown.ends
            raised: !shown.ends
            // White is read on this green, in the dark as well.
            color: shown.ends ? Theme.onPaper.green : Theme.text
            onClicked: actions.file.pressReview()
        }

        ReportButtons {
            id: make

            report: actions.report
        }
    }

    ReportLines {
        id: lines

        width: parent.width
        leading: actions.leading
        report: actions.report
    }
}
