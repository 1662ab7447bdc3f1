import QtQuick
import Vellix.Board
import Vellix.Pieces

// Asks the Mac mini for a sync, or shows the sync at work. As high in the one as in the other.
Item {
    id: card

    required property BoardModel board

    readonly property syncCardView shown: board.syncCard

    implicitHeight: 36

    BigButton {
        visible: !card.shown.working
        anchors.fill: parent
        title: "Sync"
        icon: "arrow.triangle.2.circlepath"
        busy: card.shown.busy
        help: Theme.keys("Check supplier mail for new proofs, file them to Drive and run the checks (⇧⌘S)")
        onAction: card.board.requestSync()
    }

    Pillbox {
        visible: card.shown.working
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(implicitWidth, stop.x - Theme.gap8)
        text: card.shown.text
        icon: card.shown.icon
        tone: card.shown.tone
        small: card.shown.small
        spinning: card.shown.spinning
        help: implicitWidth > width ? card.shown.text : ""
    }

    TextButton {
        id: stop

        visible: card.shown.working
        enabled: !card.shown.stopping
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap4
        anchors.verticalCenter: parent.verticalCenter
        height: Math.max(24, implicitHeight)
        text: "Stop"
        color: Theme.strong.red
        onClicked: card.board.stopSync()
    }
}
