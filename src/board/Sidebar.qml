import QtQuick
import Vellix.Board
import Vellix.Jobs
import Vellix.Pictures
import Vellix.Pieces

// The left column: the brand, the board of tickets, the sync, what the worker does, and the people.
Rectangle {
    id: sidebar

    required property BoardModel board
    required property ActivityModel activity
    required property ClaudeLogModel log
    required property PictureSource pictures

    signal commanded(string key)

    readonly property alias people: people

    // The keyboard goes so many tickets on in the list.
    function step(by: int) {
        tickets.step(by);
    }

    color: Theme.column

    Accessible.role: Accessible.Pane
    Accessible.name: "Tickets"

    // While there is no list to go to.
    KeyboardPart {
        visible: !tickets.hasRows
        around: sidebar
    }

    Row {
        id: brand

        x: Theme.gap16
        y: Theme.gap12
        height: 28
        spacing: Theme.gap8

        SorelMark {
            anchors.verticalCenter: parent.verticalCenter
            size: 20
            working: sidebar.board.head.syncing
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            font.family: Theme.serif
            size: 21
            text: "Vellix"
        }
    }

    LiveDot {
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap12
        anchors.verticalCenter: brand.verticalCenter
        board: sidebar.board
        room: sidebar.width - brand.x - brand.width - Theme.gap8 - anchors.rightMargin
    }

    FileList {
        id: tickets

        anchors.top: brand.bottom
        anchors.topMargin: Theme.gap8
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: rule.top
        board: sidebar.board
        pictures: sidebar.pictures
    }

    Hairline {
        id: rule

        anchors.bottom: sync.top
        anchors.bottomMargin: Theme.gap12
        width: parent.width
    }

    SyncCard {
        id: sync

        anchors.bottom: people.top
        anchors.bottomMargin: Theme.gap12
        x: Theme.gap12
        width: claude.x - Theme.gap8 - x
        board: sidebar.board
    }

    ClaudeLogButton {
        id: claude

        anchors.right: parent.right
        anchors.rightMargin: Theme.gap12
        anchors.verticalCenter: sync.verticalCenter
        log: sidebar.log
    }

    PeopleBar {
        id: people

        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.gap12
        x: Theme.gap12
        width: parent.width - 2 * x
        board: sidebar.board
        activity: sidebar.activity
        pictures: sidebar.pictures
        onCommanded: key => sidebar.commanded(key)
    }
}
