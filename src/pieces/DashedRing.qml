import QtQuick
import Vellix.Pieces

// A dashed circle of 10 points; while spinning, a turn takes 1.5 seconds.
Ring {
    id: ring

    property bool spinning: false

    implicitWidth: 10
    implicitHeight: 10
    thickness: 1.25
    dashes: 8
    color: Theme.text

    RotationAnimation on rotation {
        // As InSight tells; every pill has a ring, and hardly one of them turns.
        running: ring.spinning && ring.visible && ring.Window.visibility !== Window.Hidden
                 && ring.Window.visibility !== Window.Minimized && !Theme.reducedMotion
        from: 0
        to: 360
        duration: 1500
        loops: Animation.Infinite
    }
}
