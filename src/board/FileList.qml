import QtQuick
import Vellix.Board
import Vellix.Pictures
import Vellix.Pieces

// The tickets of one queue, cut into status groups.
Item {
    id: list

    required property BoardModel board
    required property PictureSource pictures

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

    ListView {
        id: rows

        anchors.top: filter.bottom
        anchors.topMargin: Theme.gap4
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        leftMargin: Theme.gap8
        rightMargin: Theme.gap8
        bottomMargin: Theme.gap16
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        // Rows are made as they come into view: what is made ahead is in the way when rows go.
        cacheBuffer: 0
        model: list.board.rows
        // The arrow keys belong to the commands. No row is the list's own current one.
        keyNavigationEnabled: false
        currentIndex: -1

        // A list that fills from nothing is there at once; from then on its rows are seen to move.
        property bool settled: false
        onCountChanged: settled = settled && count > 0

        Timer {
            running: rows.count > 0 && !rows.settled
            interval: 100
            onTriggered: rows.settled = true
        }

        // Its neighbours come into view too, so that they are there to go to.
        function reveal(index: int) {
            for (const row of [index - 1, index + 1, index])
                positionViewAtIndex(Math.max(0, Math.min(row, count - 1)), ListView.Contain);
        }

        TabOrder {
            id: order

            content: rows.contentItem
        }

        Accessible.role: Accessible.List
        Accessible.name: "Tickets"

        delegate: Loader {
            id: line

            required property int index
            required property bool header
            required property string title
            required property bool folds
            required property bool open
            required property string count
            required property fileRowView ticket

            width: rows.width - rows.leftMargin - rows.rightMargin
            sourceComponent: header ? groupHeader : ticketRow

            Component.onCompleted: order.sortSoon()
            onIndexChanged: order.sortSoon()
            onActiveFocusChanged: {
                if (activeFocus)
                    rows.reveal(index);
            }

            Component {
                id: groupHeader

                GroupHeader {
                    title: line.title
                    folds: line.folds
                    open: line.open
                    count: line.count
                    onToggled: list.board.toggleReviewed()
                }
            }

            Component {
                id: ticketRow

                FileRow {
                    ticket: line.ticket
                    pictures: list.pictures
                    onChosen: command => list.board.select(line.ticket.id, command)
                    Keys.onPressed: event => event.accepted = list.board.selectByKey(
                        line.ticket.id, event.key, event.modifiers, event.isAutoRepeat)
                }
            }
        }

        add: Transition {
            id: coming

            enabled: rows.settled

            NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.standard }
            Glide { property: "y"; from: coming.ViewTransition.destination.y - 20 }
        }
        remove: Transition {
            id: going

            NumberAnimation { property: "opacity"; to: 0; duration: Theme.hover }
            Glide { property: "y"; to: going.ViewTransition.destination.y - 20 }
        }
        move: Transition {
            Glide { property: "y" }
        }
        displaced: Transition {
            Glide { property: "y" }
            // A row may be pushed aside while it still fades in.
            NumberAnimation { property: "opacity"; to: 1; duration: Theme.hover }
        }
    }

    ScrollBar {
        view: rows
    }
}
