import QtQuick
import Vellix.Board
import Vellix.Pictures
import Vellix.Pieces

// The tickets of one queue, cut into status groups.
Item {
    id: list

    required property BoardModel board
    required property PictureSource pictures

    readonly property bool hasRows: rows.count > 0

    function step(by: int) {
        rows.step(by);
    }

    QueueSwitch {
        id: queues

        x: Theme.gap12
        width: parent.width - 2 * x
        board: list.board
    }

    Item {
        id: filter

        anchors.top: queues.bottom
        anchors.topMargin: Theme.gap8
        x: Theme.gap16
        width: parent.width - 2 * x
        height: 24

        CheckBox {
            anchors.verticalCenter: parent.verticalCenter
            text: "Only mine"
            checked: list.board.head.mineOnly
            onToggled: on => list.board.setMineOnly(on)
        }

        Label {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.tiny
            weight: Font.DemiBold
            color: Theme.fore.red
            text: list.board.head.overdue
        }
    }

    Column {
        visible: list.board.head.empty
        anchors.centerIn: rows
        width: rows.width - 2 * Theme.gap24
        spacing: Theme.gap4

        CentredLabel {
            width: parent.width
            size: Theme.large
            weight: Font.Medium
            text: list.board.head.emptyFirst
        }

        CentredLabel {
            width: parent.width
            size: Theme.note
            color: Theme.muted
            text: list.board.head.emptySecond
        }
    }

    KeyboardPart {
        visible: list.hasRows
        around: rows
        at: rows
    }

    FileRows {
        id: rows

        anchors.top: filter.bottom
        anchors.topMargin: Theme.gap4
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        board: list.board
        pictures: list.pictures
    }

    // What is scrolled away goes under it.
    Hairline {
        id: edge

        anchors.top: rows.top
        width: parent.width
        opacity: rows.atYBeginning ? 0 : 1
        visible: opacity > 0

        Behavior on opacity {
            NumberAnimation { duration: Theme.hover }
        }
    }

    ScrollBar {
        view: rows
        onPressedChanged: rows.rest()
    }
}
