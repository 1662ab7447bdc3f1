import QtQuick
import Vellix.Compare
import Vellix.Pieces

// What became of the last report, and where the newest is.
Column {
    id: lines

    required property FileModel file
    property bool leading: false

    readonly property var report: file.report
    // As wide as they are before they wrap.
    readonly property real natural: Math.max(warning.implicitWidth, made.implicitWidth + driveRoom)
    readonly property real driveRoom: report.driveLink !== "" ? drive.width + Theme.gap8 : 0

    visible: report.warning !== "" || report.made !== ""
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
        text: lines.report.warning
    }

    Row {
        visible: lines.report.made !== ""
        x: lines.leading ? 0 : lines.width - width
        spacing: Theme.gap8

        Label {
            id: made

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, lines.width - lines.driveRoom)
            tellsWhole: true
            size: Theme.note
            color: Theme.faint
            text: lines.report.made
        }

        LinkPill {
            id: drive

            visible: lines.report.driveLink !== ""
            anchors.verticalCenter: parent.verticalCenter
            title: "Drive"
            icon: "link"
            url: lines.report.driveLink
        }
    }
}
