import QtQuick
import Vellix.Jobs
import Vellix.Pieces

// The creature that stands for the worker. It bobs while the worker is busy and it can be seen.
Item {
    id: critter

    property real size: 16
    property bool busy: false
    property bool up: false

    readonly property bool moves: busy && sight.now && !Theme.reducedMotion

    implicitWidth: drawing.implicitWidth
    implicitHeight: size

    Accessible.role: Accessible.Graphic
    Accessible.name: "Claude"

    onMovesChanged: up = false

    InSight {
        id: sight

        item: critter
    }

    Timer {
        running: critter.moves
        interval: 450
        repeat: true
        onTriggered: critter.up = !critter.up
    }

    CritterDrawing {
        id: drawing

        y: shift(critter.busy, critter.up)
        width: implicitWidth
        height: implicitHeight
        size: critter.size
        color: Theme.accent

        Behavior on y {
            NumberAnimation { duration: Theme.hover }
        }
    }
}
