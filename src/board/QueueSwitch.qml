import QtQuick
import Vellix.Board
import Vellix.Pieces

// Flips the board between the two queues.
Segmented {
    required property BoardModel board

    label: "Queue"
    stretched: true
    implicitHeight: 32
    current: board.head.queue
    options: board.head.queues

    onPicked: key => board.setQueue(key)
}
