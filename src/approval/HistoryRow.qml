import QtQuick
import Vellix.Approval
import Vellix.Pieces

// One thing that happened.
Item {
    id: row

    required property historyRowView event

    implicitHeight: Math.max(mark.height, words.implicitHeight) + Theme.gap8

    Accessible.role: Accessible.ListItem
    Accessible.name: event.spoken

    Rectangle {
        id: mark

        width: 22
        height: width
        radius: width / 2
        color: Theme.tint[row.event.tone] ?? Theme.quietFill

        Symbol {
            anchors.centerIn: parent
            size: 11.5
            name: row.event.icon
            color: Theme.fore[row.event.tone] ?? Theme.muted
        }
    }

    Column {
        id: words

        anchors.left: mark.right
        anchors.leftMargin: Theme.gap8
        anchors.right: parent.right
        spacing: 1

        Item {
            width: parent.width
            height: Math.max(mark.height, who.implicitHeight)

            Label {
                id: who

                width: Math.min(implicitWidth, parent.width - when.width - Theme.gap8)
                anchors.verticalCenter: parent.verticalCenter
                size: Theme.body
                weight: Font.DemiBold
                tellsWhole: true
                text: row.event.who
                Accessible.ignored: true
            }

            Label {
                id: when

                anchors.right: parent.right
                anchors.baseline: who.baseline
                size: Theme.small
                color: Theme.faint
                text: row.event.when
                Accessible.ignored: true
            }
        }

        Label {
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
            size: Theme.body
            color: Theme.muted
            text: row.event.said
            Accessible.ignored: true
        }
    }
}
