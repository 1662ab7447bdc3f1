import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// What became of the last report, and where the newest is.
Column {
    id: lines

    required property ReportModel report
    property bool leading: false

    // As wide as they are before they wrap.
    readonly property real natural: Math.max(warning.implicitWidth, made.implicitWidth + openRoom + driveRoom,
                                             opens && !told ? several.implicitWidth : 0)
    readonly property openReportView open: report.area.open
    readonly property bool opens: open.report !== ""
    // Beside what tells of the report, or alone and with words of its own.
    readonly property bool told: report.area.made !== ""
    readonly property real openRoom: opens && told ? opener.width + Theme.gap4 : 0
    readonly property real driveRoom: report.area.driveLink !== "" ? drive.width + Theme.gap4 : 0

    visible: report.area.warning !== "" || told || opens
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
        visible: lines.told
        x: lines.leading ? 0 : lines.width - width
        spacing: Theme.gap4

        Label {
            id: made

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, lines.width - lines.openRoom - lines.driveRoom)
            tellsWhole: true
            size: Theme.note
            color: Theme.muted
            text: lines.report.area.made
        }

        IconButton {
            id: opener

            visible: lines.opens
            anchors.verticalCenter: parent.verticalCenter
            symbol: "arrow.down.doc"
            size: 13
            help: lines.open.label
            busy: lines.open.opening
            onClicked: lines.report.open()
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

    Pill {
        id: several

        visible: lines.opens && !lines.told
        x: lines.leading ? 0 : lines.width - width
        height: 28
        raised: true
        title: lines.open.label
        icon: "arrow.down.doc"
        busy: lines.open.opening
        onClicked: lines.report.open()
    }
}
