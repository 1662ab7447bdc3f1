import QtQuick
import Vellix.Pieces

// Counts down to a report. The text is told by the owner, who is asked for it once a second while
// the pill can be seen.
Pillbox {
    id: pill

    signal ticked()

    // As wide as it has been: what stands beside it does not move with each digit.
    property real widest: 0

    readonly property alias seen: sight.now

    tone: "blue"
    spinning: true
    width: Math.max(widest, implicitWidth)
    onImplicitWidthChanged: widest = Math.max(widest, implicitWidth)
    // For the next report it begins anew.
    onVisibleChanged: widest = visible ? implicitWidth : 0

    InSight {
        id: sight

        item: pill
    }

    Timer {
        running: pill.seen
        interval: 1000
        repeat: true
        triggeredOnStart: true
        onTriggered: pill.ticked()
    }
}
