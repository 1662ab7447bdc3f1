import QtQuick
import Vellix.Approval
import Vellix.Pieces

// A file that the proof was checked against; a link where it is told where that lies.
Item {
    id: row

    required property checkedAgainstView file

    readonly property real indent: label.width + Theme.gap4
    readonly property bool leads: file.url !== ""

    implicitHeight: Math.max(label.implicitHeight, link.implicitHeight)

    Label {
        id: label

        anchors.verticalCenter: parent.verticalCenter
        size: Theme.body
        color: Theme.muted
        text: row.file.label
    }

    TextButton {
        id: link

        visible: row.leads
        x: row.indent
        width: Math.min(implicitWidth, row.width - x)
        anchors.verticalCenter: parent.verticalCenter
        text: row.file.name
        Accessible.role: Accessible.Link
        onClicked: Qt.openUrlExternally(row.file.url)
    }

    Label {
        visible: !row.leads
        x: row.indent
        width: Math.min(implicitWidth, row.width - x)
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.body
        tellsWhole: true
        text: row.file.name
    }
}
