import QtQuick
import Vellix.Board
import Vellix.Pieces

// The left column: the brand, and the board of tickets.
Rectangle {
    id: sidebar

    required property BoardModel board
    required property PictureSource pictures

    color: Theme.column

    Accessible.role: Accessible.Pane
    Accessible.name: "Tickets"

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

    FileList {
        anchors.top: brand.bottom
        anchors.topMargin: Theme.gap8
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        board: sidebar.board
        pictures: sidebar.pictures
    }
}
