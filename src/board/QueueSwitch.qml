import QtQuick
import Vellix.Board
import Vellix.Pieces

// Flips the board between the two queues.
Segmented {
    id: queues

    required property BoardModel board

    label: "Queue"
    stretched: true
    implicitHeight: 32
    current: {
        const chosen = board.head.queues.find(queue => queue.selected);
        return chosen ? chosen.value : "";
    }
    options: board.head.queues.map(queue => ({
                key: queue.value,
                label: queue.label,
                count: queue.count,
                late: queue.late
            }))

    onPicked: key => board.setQueue(key)
}
