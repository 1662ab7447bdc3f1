import QtQuick
import Vellix.Pieces

// The brand mark: two half rounds facing each other, which part and meet while working. `line` is
// the width of the slit between them.
Item {
    id: mark

    property real size: 20
    property bool working: false
    property real line: Math.max(1, Math.round(size / 14))
    property real open: 0

    readonly property real half: Math.floor((size - line) / 2)

    implicitWidth: size
    implicitHeight: size

    Accessible.role: Accessible.Graphic
    Accessible.name: "Vellix"

    HalfRound {
        x: -mark.open * mark.size * 0.12
        anchors.verticalCenter: parent.verticalCenter
        width: mark.half
        height: 2 * mark.half
        color: Theme.accent
    }

    HalfRound {
        x: mark.half + mark.line + mark.open * mark.size * 0.12
        anchors.verticalCenter: parent.verticalCenter
        width: mark.half
        height: 2 * mark.half
        mirrored: true
        color: Theme.ink
    }

    InSight {
        id: sight

        item: mark
    }

    SequentialAnimation {
        running: mark.working && sight.now && !Theme.reducedMotion
        loops: Animation.Infinite
        onStopped: mark.open = 0

        NumberAnimation {
            target: mark
            property: "open"
            from: 0
            to: 1
            duration: 700
            easing.type: Easing.InOutSine
        }
        NumberAnimation {
            target: mark
            property: "open"
            from: 1
            to: 0
            duration: 700
            easing.type: Easing.InOutSine
        }
    }
}
