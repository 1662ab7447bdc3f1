import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// A report that has come to its end.
Item {
    id: row

    required property reportRowView report

    signal opened()

    implicitHeight: 28

    Accessible.role: Accessible.ListItem
    Accessible.name: report.spoken

    Symbol {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        size: 14
        name: row.report.icon
        color: Theme.strong[row.report.tone] ?? Theme.muted
    }

    Label {
        id: title

        anchors.left: mark.right
        anchors.leftMargin: 7
        anchors.verticalCenter: parent.verticalCenter
        size: Theme.body
        weight: Font.Medium
        text: row.report.title
        Accessible.ignored: true
    }

    Label {
        anchors.left: title.right
        anchors.leftMargin: Theme.gap8
        anchors.right: when.left
        anchors.rightMargin: Theme.gap8
        anchors.baseline: title.baseline
        tellsWhole: true
        size: Theme.note
        color: Theme.muted
        text: row.report.who
        Accessible.ignored: true
    }

    Label {
        id: when

        anchors.right: opener.left
        anchors.rightMargin: Theme.gap4
        anchors.baseline: title.baseline
        size: Theme.small
        color: Theme.faint
        text: row.report.when
        Accessible.ignored: true
    }

    // Its place is held where there is nothing to open: all times stand below one another.
    IconButton {
        id: opener

        visible: row.report.open.report !== ""
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        symbol: "arrow.down.doc"
        size: 13
        help: row.report.open.label
        busy: row.report.open.opening
        onClicked: row.opened()
    }
}
