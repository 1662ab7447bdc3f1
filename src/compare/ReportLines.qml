import QtQuick
import Vellix.Compare
import Vellix.Pieces

// What became of the last report, and where the newest is.
Column {
    id: lines

    required property FileModel file
    property bool leading: false

    readonly property var report: file.report

    visible: report.warning !== "" || report.made !== ""
    spacing: Theme.gap4

    Label {
        visible: text !== ""
        width: Math.min(implicitWidth, lines.width)
        anchors.right: lines.leading ? undefined : lines.right
        wrapMode: Text.Wrap
        horizontalAlignment: lines.leading ? Text.AlignLeft : Text.AlignRight
        size: Theme.note
        color: Theme.warning
        text: lines.report.warning
    }

    Row {
        visible: lines.report.made !== ""
        anchors.right: lines.leading ? undefined : lines.right
        spacing: Theme.gap8

        Label {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth,
                            lines.width - (drive.visible ? drive.width + parent.spacing : 0))
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
