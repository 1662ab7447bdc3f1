import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// What became of the last report, and where the newest is.
Column {
    id: lines

    required property ReportModel report
    property bool leading: false

    // As wide as they are before they wrap.
    readonly property real natural: Math.max(warning.implicitWidth, made.implicitWidth + driveRoom)
    readonly property real driveRoom: report.area.driveLink !== "" ? drive.width + Theme.gap8 : 0

    visible: report.area.warning !== "" || report.area.made !== ""
    spacing: Theme.gap4

    Label {
        id: warning

        visible: text !== ""
        width: Math.min(implicitWidth, lines.width)
        x: lines.leading ? 0 : lines.width - width
        wrapMode: Text.Wrap
        horizontalAlignment: lines.leading ? Text.AlignLeft : Text.AlignRight
        size: Theme.note
        color: Theme.warning
        text: lines.report.area.warning
    }

    Row {
        visible: lines.report.area.made !== ""
        x: lines.leading ? 0 : lines.width - width
        spacing: Theme.gap8

        Label {
            id: made

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, lines.width - lines.driveRoom)
            tellsWhole: true
            size: Theme.note
            color: Theme.faint
            text: lines.report.area.made
        }

        LinkPill {
            id: drive

            visible: lines.report.area.driveLink !== ""
            anchors.verticalCenter: parent.verticalCenter
            title: "Drive"
            icon: "link"
            url: lines.report.area.driveLink
        }
    }
}
