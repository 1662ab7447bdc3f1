import QtQuick
import Vellix.Compare
import Vellix.Pieces

// Goes from page to page and tells which one is open, in a room that no page's name changes, so that
// what stands behind it stays where it is.
Row {
    id: steps

    required property CompareModel compare
    // Of the text; what is longer is cut short.
    required property real reach

    readonly property canvasBarView view: compare.bar
    // Before the text.
    readonly property real lead: previous.width + next.width + Theme.gap4
    // What pages without names want of it.
    readonly property real numbers: Math.ceil(widest.implicitWidth)

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
        width: Theme.gap4 + steps.reach
        height: parent.height

        Digits {
            id: widest

            visible: false
            size: Theme.body
            text: steps.view.widest
        }

        Digits {
            id: place

            visible: implicitWidth <= steps.reach
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
            width: Math.min(implicitWidth, steps.reach)
            elide: Text.ElideMiddle
            tellsWhole: true
            size: Theme.body
            text: visible ? steps.view.place : ""
        }
    }
}
