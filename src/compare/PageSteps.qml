import QtQuick
import Vellix.Compare
import Vellix.Pieces

// Goes from page to page and tells which one is open. It is as wide on each page of the ticket, so
// that what stands behind it stays where it is.
Row {
    id: steps

    required property CompareModel compare

    readonly property canvasBarView view: compare.bar

    HandOver {
        id: over
    }

    IconButton {
        id: previous

        anchors.verticalCenter: parent.verticalCenter
        symbol: "chevron.up"
        onEnabledChanged: over.hand(previous, next)
        help: "Previous page"
        enabled: !steps.view.first
        onClicked: steps.compare.stepPage(-1)
    }

    IconButton {
        id: next

        anchors.verticalCenter: parent.verticalCenter
        symbol: "chevron.down"
        onEnabledChanged: over.hand(next, previous)
        help: "Next page"
        enabled: !steps.view.last
        onClicked: steps.compare.stepPage(1)
    }

    Item {
        id: room

        // Which of the texts is the widest was found out without their face, so it may be a little more.
        readonly property real most: Math.min(Math.ceil(widest.implicitWidth) + 4, 180)

        width: Theme.gap4 + most
        height: parent.height

        Digits {
            id: widest

            visible: false
            size: Theme.body
            text: steps.view.widest
        }

        Digits {
            id: place

            visible: implicitWidth <= room.most
            x: Theme.gap4
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.body
            text: steps.view.place
        }

        // A page may have any name.
        Label {
            visible: !place.visible
            x: Theme.gap4
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, room.most)
            elide: Text.ElideMiddle
            tellsWhole: true
            size: Theme.body
            text: visible ? steps.view.place : ""
        }
    }
}
