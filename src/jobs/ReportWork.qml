import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// A report at work, and the button that stops it.
Row {
    id: work

    required property ReportModel report

    readonly property alias stop: stopper

    spacing: Theme.gap8

    ReportProgress {
        text: work.report.area.progress
        onTicked: work.report.tick()
    }

    TextButton {
        id: stopper

        anchors.verticalCenter: parent.verticalCenter
        enabled: !work.report.area.stopping
        text: "Stop"
        color: Theme.strong.red
        onClicked: work.report.stop()
    }
}
