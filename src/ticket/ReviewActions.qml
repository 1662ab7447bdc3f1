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

    // As wide as it would like to be; its lines wrap.
    readonly property real wanted: Math.max(buttons.implicitWidth,
                                            lines.visible ? Math.min(lines.natural, 320) : 0)

    spacing: Theme.gap8

    FlowRow {
        id: buttons

        width: actions.leading ? parent.width : implicitWidth
        height: implicitHeight
        x: actions.leading ? 0 : actions.width - width
        spacing: Theme.gap8

        Pill {
            readonly property reviewButtonView review: actions.file.review

            height: 28
            says: review.text
            enabled: review.enabled
            title: review.text
            icon: review.icon
            filled: review.ends
            raised: !review.ends
            // White is read on this green, in the dark as well.
            color: review.ends ? Theme.onPaper.green : Theme.text
            onClicked: actions.file.pressReview()
        }

        ReportButtons {
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
