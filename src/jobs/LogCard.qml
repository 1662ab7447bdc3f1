import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// A job in the log, on a ground of its own.
Rectangle {
    id: card

    required property jobBlockView job

    signal stopped()

    implicitHeight: block.implicitHeight + 2 * Theme.gap12
    radius: Theme.radiusRow
    color: Theme.hoverFill

    JobBlock {
        id: block

        x: Theme.gap12
        y: Theme.gap12
        width: parent.width - 2 * x
        job: card.job
        onStopped: card.stopped()
    }
}
